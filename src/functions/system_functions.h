// The functions that read the machine, the system and the desktop: releases, environment, the system's
// folders, screen, mouse, keys, fonts, clipboard. Without a display those of the desktop give the empty
// text. The state of the run is in state_functions.h. Bound by the function table.
#pragma once

namespace velm {

class Arguments;
class Value;

// The system.
void FnSystemVersion(Value& result, Arguments& arguments);
void FnSystemBuild(Value& result, Arguments& arguments);
void FnSystemKind(Value& result, Arguments& arguments);
void FnEnvironmentVariable(Value& result, Arguments& arguments);

// Its folders.
void FnSystemRootFolder(Value& result, Arguments& arguments);
void FnSystemFolder(Value& result, Arguments& arguments);
void FnTemporaryFolder(Value& result, Arguments& arguments);
void FnDesktopFolder(Value& result, Arguments& arguments);
void FnDocumentsFolder(Value& result, Arguments& arguments);
void FnFavoritesFolder(Value& result, Arguments& arguments);
void FnStartMenuFolder(Value& result, Arguments& arguments);
void FnProgramsFolder(Value& result, Arguments& arguments);
void FnStartupFolder(Value& result, Arguments& arguments);
void FnSendToFolder(Value& result, Arguments& arguments);
void FnProgramFilesFolder(Value& result, Arguments& arguments);

// The desktop.
void FnWindowTitles(Value& result, Arguments& arguments);
void FnActiveWindowTitle(Value& result, Arguments& arguments);
void FnFonts(Value& result, Arguments& arguments);
void FnKeyState(Value& result, Arguments& arguments);
void FnScreenWidth(Value& result, Arguments& arguments);
void FnScreenHeight(Value& result, Arguments& arguments);
void FnScreenMouseX(Value& result, Arguments& arguments);
void FnScreenMouseY(Value& result, Arguments& arguments);
void FnMousePointer(Value& result, Arguments& arguments);
void FnPaste(Value& result, Arguments& arguments);

}  // namespace velm
