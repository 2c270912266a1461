// velmscript: the engine with its dialogs as windows. The command line is one text, and the whole of it
// is the path of the script.
#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

#include "core/run_state.h"
#include "core/stack_guard.h"
#include "core/velm.h"
#include "data/utf.h"
#include "data/width.h"
#include "faces/window/choose_script.h"
#include "objects/object_system.h"
#include "platform/allocator.h"
#include "platform/files.h"
#include "platform/qt/qt_application.h"
#include "platform/qt/qt_dialogs.h"
#include "platform/qt/qt_toolkit.h"
#include "platform/toolkit.h"

namespace velm {
namespace {

constexpr std::u16string_view kRuntimeName = u"VELMSCRIPT";
constexpr std::u16string_view kRunForm = u"/run ";

constexpr const char* kHelp =
    "使い方: velmscript [スクリプト]\n"
    "  スクリプトをウィンドウで実行します。省くと、ファイルを選ぶ画面が出ます。\n"
    "  コマンドラインの全体が、スクリプトのパスになります。\n"
    "  --help     この説明\n"
    "  --version  版\n";

// The words joined again. A path that isn't valid text is a native one, and reaches the same file.
std::u16string CommandLineOf(int count, char** words) {
    std::string line;
    for (int i = 1; i < count; ++i) {
        if (i > 1) line += ' ';
        line += words[i];
    }
    return IsValidUtf8(line) ? Utf8ToUtf16(line) : ScriptPath(line);
}

std::filesystem::path OwnPath(const char* calledAs) {
    std::error_code noLink;
    const auto own = std::filesystem::read_symlink("/proc/self/exe", noLink);
    return noLink ? calledAs : own;
}

// Answers the options that are no run; whether the command line was one.
bool AnswerOption(std::u16string_view line) {
    if (line == u"--help") std::fputs(kHelp, stdout);
    if (line == u"--version") std::puts("velmscript " VELM_VERSION);
    return line == u"--help" || line == u"--version";
}

// A copy of the runtime under another name never takes its command line for a script. Nothing is
// attached to it, so its script is empty.
void RunStandAlone(const std::u16string& line, const std::filesystem::path& own) {
    TheEngine().GetSetInfo(u"コマンドライン", line);
    process.RunMode = RunModes::kStandAlone;
    TheEngine().Run(u"", ScriptPath(own.string()), false);
}

void RunScript(const std::u16string& line, Dialogs& dialogs) {
    if (!line.empty()) {
        TheEngine().RunFile(line, false);
    } else if (const auto path = ChooseScript(AskScriptFile, dialogs)) {
        TheEngine().RunFile(*path, false);
    }
}

int Main(int count, char** words) {
    KeepFreedMemory();
    InitStackGuard();
    const std::u16string line = CommandLineOf(count, words);
    const std::filesystem::path own = OwnPath(words[0]);
    const bool isRuntime = ToUpper(Utf8ToUtf16(own.filename().string())) == kRuntimeName;
    if (isRuntime && AnswerOption(line)) return 0;
    const ApplicationPointer application = StartApplication();
    QtDialogs dialogs;
    SetDialogs(&dialogs);
    SetToolkitStarter(StartQtToolkit);
    InstallObjectSystem();
    if (ToLower(line.substr(0, kRunForm.size())) == kRunForm) {
        TheEngine().RunFile(line.substr(kRunForm.size()), false);
    } else if (isRuntime) {
        RunScript(line, dialogs);
    } else {
        RunStandAlone(line, own);
    }
    return 0;
}

}  // namespace
}  // namespace velm

int main(int count, char** words) { return velm::Main(count, words); }
