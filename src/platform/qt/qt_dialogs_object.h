// The dialogs that a script opens to let its user choose a file, a folder, a colour, a font or a printer.
#pragma once

#include <memory>

#include "platform/toolkit.h"

namespace velm {

// Members: DialogTitle, Filter ("name|mask;mask|name|mask"), FileName, FolderName (get only: the folder of
// the last choice, with a backslash at its end), Flags, Color, CustColors (colours joined by ","),
// FontName, FontSize, FontBold, FontItalic, FontUnderline, FontStrikethrough, PrintMargins
// ("left,top,right,bottom" in hundredths of a millimetre), Cancel (get only).
//
// Calls: ShowOpen, ShowSave, ShowDir, ShowColor, ShowFont, ShowPrinter, ShowPrintPage. Each starts from
// the members, waits, and stores the choice in them; when the user cancels, only Cancel changes. With the
// flag for several files FileName is a list: names with their folder, escaped, joined by ",".
std::unique_ptr<MemberSurface> MakeQtDialogs();

}  // namespace velm
