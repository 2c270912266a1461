// Errors, script, command line and events as functions.
#include "functions/state_functions.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "core/event_data.h"
#include "core/run_state.h"
#include "core/settings_state.h"
#include "data/lists.h"
#include "data/text.h"
#include "data/utf.h"
#include "data/value.h"
#include "functions/file_functions.h"
#include "platform/files.h"
#include "platform/system_info.h"

namespace velm {

namespace {

// The version of the language; the build's own revision stands behind it.
constexpr std::u16string_view kLanguageVersion = u"1.32.";

// What may stand behind the program's name: nothing for the program, ".so" for a library.
constexpr std::u16string_view kProgramEndings[] = {u"", u".so"};

std::u16string_view NameOfRunMode(RunModes mode) {
    switch (mode) {
        case RunModes::kEditor: return u"エディタ";
        case RunModes::kScript: return u"Velmファイル";
        case RunModes::kStandAlone: return u"実行ファイル";
    }
    return u"VelmA";
}

// The pieces between the blanks outside double quotes, without the quotes; empty ones are left out.
std::vector<std::u16string> CutCommandLine(std::u16string_view line) {
    std::vector<std::u16string> pieces(1);
    bool quoted = false;
    for (const char16_t unit : line) {
        if (unit == u'"') {
            quoted = !quoted;
        } else if (unit == u' ' && !quoted) {
            pieces.emplace_back();
        } else {
            pieces.back() += unit;
        }
    }
    std::erase(pieces, std::u16string());
    return pieces;
}

// The part of the build's version behind its last point.
std::u16string BuildRevision() {
    constexpr std::string_view version = VELM_VERSION;
    return Utf8ToUtf16(version.substr(version.rfind('.') + 1));
}

}  // namespace

void FnErrorMessage(Value& result, Arguments&) { result = Value(run.ErrorText); }
void FnErrorNumber(Value& result, Arguments&) { result = Value::OfInteger(run.ErrorNumber); }
void FnErrorFile(Value& result, Arguments&) { result = Value(run.ErrorFile); }
void FnErrorLine(Value& result, Arguments&) { result = Value::OfInteger(run.ErrorLine); }

void FnProgramTitle(Value& result, Arguments&) { result = Value(run.ProgramTitle); }
void FnRunMode(Value& result, Arguments&) { result = Value(NameOfRunMode(process.RunMode)); }
void FnCommandLine(Value& result, Arguments&) { result = Value(process.CommandLine); }

void FnSelectedFiles(Value& result, Arguments&) {
    result = Value(ListOfNames(CutCommandLine(process.CommandLine)));
}

void FnScriptFolder(Value& result, Arguments&) { result = Value(FolderOf(process.ProgramPath)); }
void FnScriptName(Value& result, Arguments&) { result = Value(FileNameOf(process.ProgramPath)); }
void FnSettingsFile(Value& result, Arguments&) { result = Value(settings.settingsFile); }

void FnIsRunning(Value& result, Arguments&) {
    result = Value::OfBool(process.HostRuns || OtherProcessRuns(ProgramFile()));
}

void FnVelmVersion(Value& result, Arguments&) {
    result = Value(std::u16string(kLanguageVersion) + BuildRevision());
}

// The program's file, or the last of the libraries of its name that is there.
void FnVelmDate(Value& result, Arguments&) {
    const std::u16string program = ScriptPath(ProgramFile());
    for (const std::u16string_view ending : kProgramEndings) {
        const std::u16string file = program + std::u16string(ending);
        if (IsPlainFile(file)) result = Value(FileDateText(file));
    }
}

void FnDroppedFiles(Value& result, Arguments&) { result = Value(eventData.DroppedFiles); }
void FnReceivedMessage(Value& result, Arguments&) { result = Value(eventData.Received); }
void FnPressedButton(Value& result, Arguments&) { result = Value(eventData.EventButton); }
void FnPressedKey(Value& result, Arguments&) { result = Value(eventData.EventKey); }
void FnEventX(Value& result, Arguments&) { result = Value::OfInteger(eventData.EventX); }
void FnEventY(Value& result, Arguments&) { result = Value::OfInteger(eventData.EventY); }

}  // namespace velm
