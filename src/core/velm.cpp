// The engine: initialisation, runs and what hosts ask of it.
#include "core/velm.h"

#include <set>
#include <utility>

#include "core/blocks.h"
#include "core/diagnostics.h"
#include "core/eval.h"
#include "core/event_data.h"
#include "core/execute.h"
#include "core/hooks.h"
#include "core/prepare.h"
#include "core/procedures.h"
#include "core/protection.h"
#include "core/script_file.h"
#include "core/sentence.h"
#include "core/settings_state.h"
#include "core/tables.h"
#include "core/variables.h"
#include "data/failure.h"
#include "data/lists.h"
#include "data/numbers.h"
#include "data/text.h"
#include "platform/clock.h"
#include "platform/files.h"

namespace velm {

RunState run;
ProcessState process;
std::vector<ProgramPtr> Programs;
Hooks hooks;

std::set<std::int32_t>& UsedMessages() {
    static std::set<std::int32_t> numbers;
    return numbers;
}

Velm& TheEngine() {
    static Velm engine;
    return engine;
}

Velm::Velm() {
    run.Status = RunStatus::kIdle;
    BuildCommandTable();
    BuildFunctionTable();
    BuildSettingTable();
}

void ResetRunState() {
    run.ProgramTitle = u"Velmrun";
    run.ErrorMode = ErrorModes::kShow;
    run.ErrorText.clear();
    run.ErrorNumber = 0;
    run.ErrorLine = 0;
    run.ErrorFile.clear();
    run.ErrorWord.clear();
    run.ErrorProc.clear();
    run.ProgressOn = false;
    run.ProgressProc.clear();
    run.LastPercent = -1;
    ResetSettings();
    eventData = EventData();
    Globals.Clear();
    Procedures.Clear();
    Locals = ScopePtr();
    wordDictionary = nullptr;
    run.Response = Value();
    run.CurrentStatement = StatementPtr();
    run.CurLine = 0;
    run.CurProgram = 0;
    run.JumpFlag = run.ReturnFlag = run.LoopBreakFlag = run.IfBreakFlag = false;
    if (hooks.ResetObjects != nullptr) hooks.ResetObjects();
    SeedRandom(static_cast<std::uint32_t>(TheClock().MillisecondsSinceStart()));
    run.Exhausted = false;
    run.StopFlag = process.Interrupted.load();
    run.Status = RunStatus::kRunning;
}

namespace {

// Prepares source into a program that runs at index 0.
ProgramPtr PrepareMain(std::u16string_view source, bool hosted) {
    ProgramPtr program(new Program);
    program->Statements = PrepareProgram(source);
    if (!hosted) {
        ScanBlocks(*program);
        RegisterProcedures(*program, 0);
    }
    return program;
}

// The procedures of the main script point into its lines; they go when the script is replaced.
void ForgetMainProcedures() {
    const std::vector<xxCmdData*> all = Procedures.InOrder();
    for (const xxCmdData* entry : all) {
        if (entry->Num != 0) continue;
        const std::u16string_view name = entry->Name;
        Procedures.Remove(Intern(name.starts_with(u'!') ? name.substr(1) : name));
    }
}

// Goes to the folder of a script. Returns the script's full path, or the path itself where the folder
// can't be entered.
std::u16string GoToFolderOf(std::u16string_view path) {
    std::u16string full(path);
    const std::u16string_view name = FileNameOf(path);
    const std::u16string_view folder = path.substr(0, path.size() - name.size());
    Attempt([&] {
        if (!folder.empty()) ChangeFolder(folder);
        full = WithBackslash(CurrentFolder()).append(name);
    });
    return full;
}

}  // namespace

void Velm::Run(std::u16string_view source, std::u16string_view path, bool nested) {
    LoadProtection();
    if (!nested) {
        if (!path.empty()) {
            process.ProgramPath = GoToFolderOf(path);
        }
        ResetRunState();
        Programs.assign(1, ProgramPtr(new Program));
    }
    const ProgramPtr program = PrepareMain(source, hosted);
    Programs[0] = program;
    PumpEvents();
    RunTop(*program);
    if (!nested && hooks.CloseObjects != nullptr) hooks.CloseObjects();
    // The stop of an inner run is not the stop of the outer one, but for those that end the process.
    if (nested) run.StopFlag = run.Exhausted || process.Interrupted;
    if (run.Status == RunStatus::kRunning) run.Status = RunStatus::kIdle;
    process.CommandLine.clear();
    pendingFailure.Clear();
}

void Velm::RunFile(std::u16string_view path, bool nested) {
    const std::u16string_view bare = StripPair(path, u"\"", u"\"");
    process.ProgramPath = bare;
    std::u16string source;
    Attempt([&] { source = ReadScriptFile(bare); });
    const PendingFailure failed = pendingFailure;
    Run(source, bare, nested);
    pendingFailure = failed;
}

void RunNested(std::u16string_view source) {
    const ProgramPtr saved = Programs[0];
    const std::int32_t line = run.CurLine;
    const std::int32_t program = run.CurProgram;
    const RunStatus status = run.Status;
    ForgetMainProcedures();
    run.CurProgram = 0;
    TheEngine().Run(source, u"", true);
    Programs[0] = saved;
    ForgetMainProcedures();
    ScanBlocks(*saved);
    RegisterProcedures(*saved, 0);
    run.CurLine = line;
    run.CurProgram = program;
    if (run.Status == RunStatus::kIdle) run.Status = status;
}

void Velm::RunComnd(std::u16string_view sentence) { velm::RunComnd(sentence); }

void Velm::DoStop() { StopRun(); }

void Velm::DoPause() {
    if (run.Status == RunStatus::kPaused) {
        run.Status = RunStatus::kRunning;
        return;
    }
    run.Status = RunStatus::kPaused;
    RaiseHost(HostMode::kCommand, u"中断", u"");
}

std::int16_t Velm::GetErrLine() const {
    return static_cast<std::int16_t>(run.ErrorLine == 0 ? run.CurLine + 1 : run.ErrorLine);
}

std::u16string Velm::GetFunc(std::u16string_view word) { return EvalText(word).Text(); }

std::u16string Velm::GetForEditor(std::int16_t what) const {
    std::u16string text;
    if (what == 1) {
        for (const xxCmdData* entry : Globals.InOrder()) {
            text.append(u"◆").append(entry->Name).append(kCrLf);
            text.append(entry->Value.Text()).append(kCrLf);
        }
        return UnescapeItem(text);
    }
    if (what != 3) return text;
    std::vector<std::u16string> names;
    if (Locals) {
        for (const Scope::Local& local : Locals->InOrder()) {
            names.push_back(local.name.Text() + u"\t手順内のみ");
        }
    }
    for (const xxCmdData* entry : Globals.InOrder()) names.push_back(entry->Name);
    return Join(names, kCrLf);
}

void Velm::SetDebugObj(bool present) {
    process.RunMode = present ? RunModes::kEditor : RunModes::kScript;
}

int Velm::ErrMessage(std::u16string_view text, std::int32_t number, int buttons,
                     std::u16string_view word) {
    if (text.empty()) return RaiseError(number, buttons, word, word, -1);
    return RaiseMessage(text, number, buttons, word, word, -1);
}

std::u16string RaiseHost(HostMode mode, std::u16string_view key, std::u16string_view value) {
    const HostEvents& events = TheEngine().events;
    if (mode == HostMode::kQuery) {
        const std::u16string answer = events.HostQuery ? events.HostQuery(key) : std::u16string();
        return answer == u"True" ? u"{no}" : answer;
    }
    bool handled = false;
    if (mode == HostMode::kValue && events.HostValue) {
        const Value text = EvalText(value);
        handled = events.HostValue(key, text.Text(), NumberOf(text), value);
    } else if (mode == HostMode::kCommand && events.HostCommand) {
        handled = events.HostCommand(key, value);
    } else if (mode == HostMode::kProperty && events.HostProperty) {
        handled = events.HostProperty(key, value);
    }
    return handled ? u"False" : u"True";
}

}  // namespace velm
