// The functions that read the state of the run: the last error, the running script, the command line,
// what the last event brought. The machine around it is in system_functions.h. Bound by the function
// table.
#pragma once

namespace velm {

class Arguments;
class Value;

// The last error.
void FnErrorMessage(Value& result, Arguments& arguments);
void FnErrorNumber(Value& result, Arguments& arguments);
void FnErrorFile(Value& result, Arguments& arguments);
void FnErrorLine(Value& result, Arguments& arguments);

// The program and its script.
void FnProgramTitle(Value& result, Arguments& arguments);
void FnRunMode(Value& result, Arguments& arguments);
void FnCommandLine(Value& result, Arguments& arguments);
void FnSelectedFiles(Value& result, Arguments& arguments);
void FnScriptFolder(Value& result, Arguments& arguments);
void FnScriptName(Value& result, Arguments& arguments);
void FnSettingsFile(Value& result, Arguments& arguments);
void FnIsRunning(Value& result, Arguments& arguments);
void FnVelmVersion(Value& result, Arguments& arguments);
void FnVelmDate(Value& result, Arguments& arguments);

// What came in from outside.
void FnDroppedFiles(Value& result, Arguments& arguments);
void FnReceivedMessage(Value& result, Arguments& arguments);
void FnPressedButton(Value& result, Arguments& arguments);
void FnPressedKey(Value& result, Arguments& arguments);
void FnEventX(Value& result, Arguments& arguments);
void FnEventY(Value& result, Arguments& arguments);

}  // namespace velm
