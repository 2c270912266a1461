// Which script a start without a command line runs: the person is asked.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/dialogs.h"
#include "platform/qt/qt_dialogs.h"

namespace velm {

// Asks with the file dialog, and with a text prompt where no dialog came up. Nothing when the person
// cancelled the dialog. Kept: a cancelled prompt is an empty path, which then runs an empty script.
std::optional<std::u16string> ChooseScript(const std::function<FileChoice()>& askFile,
                                           Dialogs& dialogs);

// The file dialog for scripts.
FileChoice AskScriptFile();

}  // namespace velm
