// The questions of a start without a command line.
#include "faces/window/choose_script.h"

#include "core/run_state.h"
#include "platform/files.h"

namespace velm {

namespace {

constexpr const char16_t* kTitle = u"Velmrunプログラムを指定して実行";
constexpr const char16_t* kKind = u"Velmrunファイル";
constexpr const char16_t* kMasks = u"*.vlm";
constexpr const char16_t* kPrompt = u"Velmrunプログラムファイル名を入力してください。";

}  // namespace

FileChoice AskScriptFile() { return AskFile(kTitle, kKind, kMasks); }

std::optional<std::u16string> ChooseScript(const std::function<FileChoice()>& askFile,
                                           Dialogs& dialogs) {
    const FileChoice choice = askFile();
    switch (choice.end) {
        case FileChoice::End::kCancelled: return std::nullopt;
        case FileChoice::End::kChosen: return ScriptPath(choice.nativePath);
        case FileChoice::End::kFailed: break;
    }
    return dialogs.AskText(kPrompt, u"", run.ProgramTitle).value_or(u"");
}

}  // namespace velm
