// velmconsole: the engine with its dialogs on the terminal.
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>

#include "core/coverage.h"
#include "core/run_state.h"
#include "core/script_file.h"
#include "core/stack_guard.h"
#include "core/velm.h"
#include "data/failure.h"
#include "data/script_source.h"
#include "data/text.h"
#include "data/utf.h"
#include "faces/console/console_dialogs.h"
#include "objects/object_system.h"
#include "platform/allocator.h"
#include "platform/files.h"
#include "platform/posix/toolkit_module.h"
#include "platform/startup.h"
#include "platform/toolkit.h"

namespace velm {
namespace {

constexpr int kStatusUnreadable = 2;
constexpr int kStatusOutputFailed = 1;
constexpr int kStatusInterrupted = 130;

constexpr const char* kHelp =
    "使い方: velmconsole スクリプト [言葉 ...]\n"
    "  スクリプトを端末で実行します。「-」は標準入力から読みます。\n"
    "  言葉は関数 コマンドライン で読めます。\n"
    "  --help     この説明\n"
    "  --version  版\n";

// The first Ctrl-C ends the run in order; a second one ends the process.
extern "C" void OnInterrupt(int /*signal*/) {
    if (process.Interrupted) std::_Exit(kStatusInterrupted);
    process.Interrupted = true;
    run.StopFlag = true;
}

std::string ReadStandardInput() {
    std::string bytes;
    char block[65536];
    for (std::size_t n = std::fread(block, 1, sizeof block, stdin); n > 0;
         n = std::fread(block, 1, sizeof block, stdin)) {
        bytes.append(block, n);
    }
    return bytes;
}

int FailToRead(const std::string& name, const std::u16string& why) {
    std::fprintf(stderr, "velmconsole: %sを読めません。%s\n", name.c_str(),
                 Utf16ToUtf8(why).c_str());
    return kStatusUnreadable;
}

// The words behind the script, as the function コマンドライン tells them.
std::u16string CommandLineOf(int count, char** words) {
    std::u16string line;
    for (int i = 2; i < count; ++i) {
        if (i > 2) line += u' ';
        line.append(Utf8ToUtf16(words[i]));
    }
    return line;
}

int RunScript(const std::string& name) {
    std::u16string source;
    std::u16string path;
    const bool read = Attempt([&] {
        if (name == "-") {
            source = DecodeScriptSource(ReadStandardInput());
        } else {
            path = ScriptPath(std::filesystem::absolute(name).string());
            source = ReadScriptFile(path);
        }
    });
    if (!read) return FailToRead(name, pendingFailure.description);
    process.ProgramPath = path;
    TheEngine().Run(source, path, false);
    if (process.Interrupted) return kStatusInterrupted;
    return outputFailed ? kStatusOutputFailed : 0;
}

int Main(int count, char** words) {
    KeepFreedMemory();
    InitStackGuard();
    HoldStandardStreams();
    const std::string_view first = count > 1 ? words[1] : "";
    if (count == 2 && first == "--version") {
        std::puts("velmconsole " VELM_VERSION);
        return 0;
    }
    if (count < 2 || (count == 2 && first == "--help")) {
        std::fputs(kHelp, count < 2 ? stderr : stdout);
        return count < 2 ? kStatusUnreadable : 0;
    }
    CatchInterrupt(OnInterrupt);
    IgnoreClosedPipes();
    ConsoleDialogs dialogs;
    SetDialogs(&dialogs);
    SetToolkitStarter(LoadToolkitModule);
    TheEngine();
    InstallObjectSystem();
    if (count == 2 && first == "--list-rows") {
        ListRows(stdout);
        return 0;
    }
    process.CommandLine = CommandLineOf(count, words);
    int status = RunScript(words[1]);
    if (std::fflush(stdout) != 0 && status == 0) {
        std::fputs("velmconsole: 出力できません。\n", stderr);
        status = kStatusOutputFailed;
    }
    WriteCoverage();
    return status;
}

}  // namespace
}  // namespace velm

int main(int count, char** words) { return velm::Main(count, words); }
