// Process and system commands.
#include "commands/process_commands.h"

#include <memory>
#include <string>
#include <utility>

#include "core/blocks.h"
#include "core/diagnostics.h"
#include "core/eval.h"
#include "core/hooks.h"
#include "core/prepare.h"
#include "core/procedures.h"
#include "core/protection.h"
#include "core/run_state.h"
#include "core/script_file.h"
#include "core/sentence.h"
#include "core/velm.h"
#include "data/failure.h"
#include "data/resources.h"
#include "data/text.h"
#include "platform/clock.h"
#include "platform/process.h"

namespace velm {

namespace {

constexpr int kBadValue = 36;
constexpr int kFileNotFoundError = 201;
constexpr int kNotAnApplication = 209;
constexpr int kUnknownCause = 999;
constexpr int kPollMilliseconds = 20;
constexpr int kWaitMilliseconds = 10;
constexpr std::u16string_view kSystemWord = u"ウィンドウズ";
constexpr std::u16string_view kPackedExtension = u"vlx";
constexpr std::u16string_view kScriptSuffix = u".vlm";

void CheckChannel() {
    if (hooks.CheckChannel != nullptr) hooks.CheckChannel();
}

void ReportStartFailure(const std::u16string& command) {
    const int number = pendingFailure.number;
    if (number == failure::kFileNotFound) {
        RaiseError(kFileNotFoundError, kIconStop, command, u"", -1);
    } else if (number == failure::kBadCall) {
        RaiseError(kNotAnApplication, kIconStop, command, u"", -1);
    } else if (number > 0) {
        RaiseError(kUnknownCause, kIconStop, pendingFailure.description, u"", -1);
    }
}

// Starts the program that the を word names; its process id, 0 when it didn't start. The window style
// that で asks for is the program's own affair on this desktop.
std::int64_t Start(Statement& statement) {
    if (!CheckProtection(Protected::kSystem)) return 0;
    statement.DeArg = GetWord(statement, u"で");
    const std::u16string command = EvalWithWords(kProgramWords, statement.WoArg).Text();
    std::int64_t processId = 0;
    if (!Attempt([&] { processId = StartProgram(command); })) {
        ReportStartFailure(command);
        return 0;
    }
    run.Response = Value::OfInteger(processId);
    return processId;
}

void EndSessionIfAsked(const Statement& statement, int flags) {
    if (statement.WoArg.Text() != kSystemWord) return;
    if (CheckProtection(Protected::kSystem)) EndSession(flags);
}

}  // namespace

void CmdStart(Statement& statement, Context& /*context*/) { Start(statement); }

void CmdStartAndWait(Statement& statement, Context& /*context*/) {
    const std::int64_t processId = Start(statement);
    while (processId != 0 && !run.StopFlag && IsProgramRunning(processId)) {
        PumpEvents();
        CheckChannel();
        SleepMilliseconds(kPollMilliseconds);
    }
}

// Kept: スタンバイ passes 3, which starts the machine anew.
void CmdLogOff(Statement& statement, Context& /*context*/) { EndSessionIfAsked(statement, 0); }
void CmdRestart(Statement& statement, Context& /*context*/) { EndSessionIfAsked(statement, 2); }
void CmdStandby(Statement& statement, Context& /*context*/) { EndSessionIfAsked(statement, 3); }
void CmdForceEnd(Statement& statement, Context& /*context*/) { EndSessionIfAsked(statement, 4); }

void CmdWait(Statement& statement, Context& /*context*/) {
    if (statement.WoArg.IsEmpty()) {
        RaiseError(kBadValue, kIconInformation, u"", u"", -1);
        return;
    }
    const auto milliseconds = static_cast<float>(EvalNumber(statement.WoArg) * 1000);
    const double end = static_cast<double>(TheClock().MillisecondsSinceStart()) +
                       static_cast<double>(milliseconds);
    while (static_cast<double>(TheClock().MillisecondsSinceStart()) <= end && !run.StopFlag) {
        PumpEvents();
        SleepMilliseconds(kWaitMilliseconds);
    }
}

void CmdRest(Statement& /*statement*/, Context& /*context*/) {
    PumpEvents();
    CheckChannel();
}

void WaitForEvents() {
    while (!run.StopFlag) {
        PumpEvents();
        if (run.StopFlag) return;
        CheckChannel();
        if (hooks.RestartRepeatedMedia != nullptr) hooks.RestartRepeatedMedia();
        SleepMilliseconds(kPollMilliseconds);
    }
}

void CmdStandBy(Statement& /*statement*/, Context& /*context*/) {
    if (hooks.RefreshMenus != nullptr) hooks.RefreshMenus();
    WaitForEvents();
}

void CmdOrder(Statement& statement, Context& /*context*/) {
    const std::u16string& to = statement.HeArg.Text();
    if (to == u"MCI" || to == u"ＭＣＩ") {
        const std::u16string text = EvalWord(statement.WoArg).Text();
        if (hooks.SendMediaCommand != nullptr) run.Response = Value(hooks.SendMediaCommand(text));
    } else if (to == u"Velm" || to == u"ＶＥＬＭ") {
        RaiseHost(HostMode::kCommand, u"命令", EvalWord(statement.WoArg).Text());
    }
}

// The text runs as a program of its own: its blocks and labels are those of its lines.
void CmdProcessText(Statement& statement, Context& /*context*/) {
    const std::u16string source = EvalWord(statement.WoArg).Text();
    const std::int32_t line = run.CurLine;
    const std::int32_t program = run.CurProgram;
    const std::u16string fileName = CurrentProgram().FileName;
    const std::int32_t index = AddProgram(PrepareProgram(source), fileName);
    const ProgramPtr added = Programs[static_cast<std::size_t>(index)];
    ScanBlocks(*added);
    run.CurProgram = index;
    RunTop(*added);
    if (static_cast<std::size_t>(index) + 1 == Programs.size()) Programs.pop_back();
    run.CurLine = line;
    run.CurProgram = program;
}

namespace {

// The source of the file that a word names; false, with the failure reported, when it can't be read.
bool ReadSource(std::u16string& path, std::u16string& source) {
    if (ExtensionOf(path) == kPackedExtension) {
        source = ReadPackedFile(path);
        return true;
    }
    if (ExtensionOf(path).empty()) path.append(kScriptSuffix);
    const bool read = Attempt([&] { source = ReadScriptFile(path); });
    if (!read) RaiseError(kFileNotFoundError, kIconStop, path, u"", -1);
    return read;
}

}  // namespace

void CmdRunFile(Statement& statement, Context& /*context*/) {
    std::u16string path = EvalWord(statement.WoArg).Text();
    std::u16string source;
    if (ReadSource(path, source)) RunNested(source);
}

void CmdRefer(Statement& statement, Context& /*context*/) {
    std::u16string path = EvalWord(statement.WoArg).Text();
    std::u16string source;
    if (!ReadSource(path, source)) return;
    const std::int32_t index = AddProgram(PrepareProgram(source), FileNameOf(path));
    Program& added = *Programs[static_cast<std::size_t>(index)];
    ScanBlocks(added);
    RegisterProcedures(added, index);
}

void CmdReport(Statement& statement, Context& /*context*/) {
    if (process.RunMode != RunModes::kEditor) return;
    RaiseHost(HostMode::kCommand, u"報告", EvalWord(statement.WoArg).Text());
}

void CmdEnd(Statement& /*statement*/, Context& /*context*/) { run.StopFlag = true; }

}  // namespace velm
