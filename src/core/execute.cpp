// The execution of statements.
#include "core/execute.h"

#include <memory>
#include <string>

#include "core/action.h"
#include "core/blocks.h"
#include "core/diagnostics.h"
#include "core/eval.h"
#include "core/hooks.h"
#include "core/procedures.h"
#include "core/sentence.h"
#include "core/short_roads.h"
#include "core/stack_guard.h"
#include "core/temporary_sentence.h"
#include "core/variables.h"
#include "core/velm.h"
#include "data/brackets.h"
#include "data/failure.h"
#include "data/text.h"

namespace velm {

namespace {

constexpr int kUnknownCommand = 1;
constexpr std::u16string_view kOf = u"の";
constexpr std::u16string_view kCaller = u"呼び出し元";

// 呼び出し元の…: the sentence is offered to the host. Returns whether it took it.
bool OfferToHost(Statement& statement) {
    const std::size_t inVerb = FindOutsideBrackets(statement.Verb, kOf);
    const std::size_t at = inVerb != 0 ? inVerb : FindOutsideBrackets(statement.Source, kOf);
    const std::u16string_view whole =
        inVerb != 0 ? statement.Verb.Text() : std::u16string_view(statement.Source);
    const std::u16string_view object =
        at != 0 ? whole.substr(0, at - 1) : std::u16string_view(statement.WoArg);
    if (object != kCaller) return false;
    if (inVerb != 0) statement.Verb = Word(std::u16string(whole.substr(inVerb)));
    std::u16string rest = statement.WoArg.Text();
    const std::size_t of = rest.find(kOf);
    if (at != 0 && of != kNotFound) rest.erase(0, of + 1);
    return RaiseHost(HostMode::kCommand, statement.Verb, rest) == u"False";
}

bool TakenByObject(Statement& statement) {
    if (hooks.TakeObjectSentence != nullptr && hooks.TakeObjectSentence(statement)) return true;
    return TheEngine().events.HostCommand && OfferToHost(statement);
}

// The first keyword, in table order, that the verb contains.
xxCmdData* FindContained(std::u16string_view verb) {
    for (xxCmdData* entry : Commands.InOrder()) {
        if (Contains(verb, entry->Name)) return entry;
    }
    return nullptr;
}

// Whether a procedure of the script took the sentence; it has then run.
bool RunsProcedure(Statement& statement) {
    run.Response = Value();
    if (CallProcedureAsCommand(statement.SourceName(), false, statement)) {
        statement.Kind = StatementKind::kCallBySource;
        return true;
    }
    if (!statement.Verb.IsEmpty() &&
        CallProcedureAsCommand(statement.Verb.AsName(), true, statement)) {
        statement.Kind = StatementKind::kCallByVerb;
        return true;
    }
    run.Response = Value();
    return false;
}

enum class Resolution : std::uint8_t { kDone, kBound };

// Binds a command sentence to its handler, or finds that it needs none any more.
Resolution Resolve(Statement& statement) {
    if (TakenByObject(statement)) return Resolution::kDone;
    xxCmdData* entry = statement.Verb.IsEmpty() ? nullptr : Commands.Find(statement.Verb.AsName());
    statement.exact = entry != nullptr;
    if (entry == nullptr) {
        if (RunsProcedure(statement)) return Resolution::kDone;
        entry = FindContained(statement.Verb);
        if (entry == nullptr && hooks.TakeControlSentence != nullptr &&
            hooks.TakeControlSentence(statement)) {
            return Resolution::kDone;
        }
    }
    if (entry != nullptr) {
        statement.FuncPnt = entry->FuncPnt.command;
        entry->used = entry->FuncPnt.command != nullptr;
        if (!entry->Joshi.empty()) SplitArgs(statement, entry->Joshi);
    }
    return Resolution::kBound;
}

void ReportUnknown(Statement& statement) {
    const std::u16string& verb = statement.Verb.Text();
    if (verb == u"\r") return;
    RaiseError(kUnknownCommand, kIconInformation, verb.empty() ? statement.Source : verb, u"", -1);
}

void ExecCommand(Statement& statement) {
    run.CurrentStatement = StatementPtr(&statement);
    if (statement.FuncPnt == nullptr && Resolve(statement) == Resolution::kDone) return;
    if (statement.FuncPnt == nullptr) {
        ReportUnknown(statement);
        return;
    }
    statement.FuncPnt(statement, TheContext());
}

void ExecAssignment(Statement& statement) {
    std::shared_ptr<const AssignmentTarget>& target = statement.Cache().target;
    if (!target) target = PlanTarget(statement.Verb);
    AssignWord(*target, statement.WoArg);
}

void ExecProperty(Statement& statement) {
    if (hooks.IsProperty != nullptr && hooks.IsProperty(statement.Verb)) {
        hooks.SetProperty(statement.Verb, statement);
    } else {
        ExecAssignment(statement);
    }
}

void ExecSetting(Statement& statement) {
    if (xxCmdData* entry = SettingWords.Find(statement.Verb.AsName())) entry->used = true;
    if (statement.FuncPnt != nullptr) statement.FuncPnt(statement, TheContext());
}

void Dispatch(Statement& statement) {
    switch (statement.Kind) {
        case StatementKind::kCommand: ExecCommand(statement); break;
        case StatementKind::kAssignment: ExecAssignment(statement); break;
        case StatementKind::kSetting: ExecSetting(statement); break;
        case StatementKind::kProperty: ExecProperty(statement); break;
        case StatementKind::kIf: ExecIf(statement); break;
        case StatementKind::kSentences: RunSentences(statement); break;
        case StatementKind::kCallBySource:
            CallProcedureAsCommand(statement.SourceName(), false, statement);
            break;
        case StatementKind::kCallByVerb:
            CallProcedureAsCommand(statement.Verb.AsName(), true, statement);
            break;
        case StatementKind::kProcedureHead:
        case StatementKind::kProcedureEnd:
        case StatementKind::kLabel: break;
    }
}

}  // namespace

Context& TheContext() {
    static Context context{TheEngine(), Programs};
    return context;
}

namespace {

ActionPtr Compile(Statement& statement) {
    switch (statement.Kind) {
        case StatementKind::kAssignment:
            if (statement.cache == nullptr || !statement.cache->target) return ActionPtr();
            return CompileAssignment(statement.cache->target, statement.WoArg);
        case StatementKind::kIf: return CompileIf(statement);
        case StatementKind::kCallByVerb: return CompileCall(statement);
        case StatementKind::kCommand:
            return statement.FuncPnt == CmdLeave ? CompileLeave(statement) : ActionPtr();
        default: return ActionPtr();
    }
}

}  // namespace

// Afterwards it is known what the statement says. Its plans live in it, and it must live to the end of its run,
// whatever becomes of its program.
void ExecByRule(Statement& statement) {
    if (statement.Source.empty()) return;
    const StatementPtr held(&statement);
    const NestingGuard guard(statement.Source.size());
    if (guard.Exhausted()) return;
    if (hooks.RestartRepeatedMedia != nullptr) hooks.RestartRepeatedMedia();
    Attempt([&] { Dispatch(statement); });
    pendingFailure.Clear();
    if (!kShortRoads || statement.compiled) return;
    // What a call says may need a second run to settle, and changes with the procedure.
    statement.compiled = statement.Kind != StatementKind::kCallByVerb;
    if (!Attempt([&] { statement.action = Compile(statement); })) pendingFailure.Clear();
}

void RunComnd(const Word& sentence) {
    if (sentence.IsEmpty()) return;
    const StatementPtr statement = ParseStatement(sentence);
    ExecStatement(*statement);
}

void RunComnd(std::u16string_view sentence) { RunComnd(Word(sentence)); }

void RunSentences(Statement& statement) {
    std::shared_ptr<SentenceList>& sentences = statement.Cache().sentences;
    if (!sentences) sentences = std::make_shared<SentenceList>(statement.Source);
    if (sentences->IsBarred()) return;
    for (TemporarySentence& sentence : sentences->All()) {
        sentence.Run();
        if (run.StopFlag || run.ReturnFlag) return;
    }
}

void RunTop(const Program& program) {
    bool active = true;
    for (std::size_t i = 0; i < program.Statements.size() && !run.StopFlag; ++i) {
        run.CurLine = static_cast<std::int32_t>(i);
        const StatementPtr statement = program.Statements[i];
        const StatementKind kind = statement->Kind;
        if (kind == StatementKind::kProcedureHead) active = false;
        if (active) ExecStatement(*statement);
        if (kind == StatementKind::kProcedureEnd) active = true;
        run.JumpFlag = false;
        i = static_cast<std::size_t>(run.CurLine);
    }
}

}  // namespace velm
