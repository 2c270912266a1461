// 繰り返し in all its forms.
#include "core/loops.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/blocks.h"
#include "core/bytecode/bytecode.h"
#include "core/diagnostics.h"
#include "core/eval.h"
#include "core/hooks.h"
#include "core/sentence.h"
#include "core/temporary_sentence.h"
#include "core/variables.h"
#include "data/brackets.h"
#include "data/numbers.h"
#include "data/text.h"

namespace velm {

LoopPlan::LoopPlan() : code(std::make_unique<KeptCode>()) {}
LoopPlan::LoopPlan(LoopPlan&&) noexcept = default;
LoopPlan::~LoopPlan() = default;

namespace {

constexpr int kNoQuotes = 22;
constexpr int kMissingWords = 35;
constexpr int kBadGrammar = 91;
constexpr std::u16string_view kForever = u"永遠";
constexpr std::u16string_view kForeverHead = u"永遠に";
constexpr std::u16string_view kBadGrammarText =
    u"「もし」または「繰り返せ」の文法が正しくありません。";

// The sentences between the first 「 and the last outside 」 of the を word.
void PlanBody(const Word& body, LoopPlan& plan) {
    if (body.IsEmpty()) return;
    const std::u16string_view text = body;
    const std::size_t open = text.find(u'「');
    const std::size_t close = FindLastOutsideBrackets(text, u"」");
    if (open == kNotFound || close == 0 || close - 1 <= open) {
        plan.bodyMissingQuotes = true;
        return;
    }
    plan.body = std::make_shared<SentenceList>(text.substr(open + 1, close - open - 2),
                                               SentenceList::Heads::kAsTheyAre);
}

void PlanForever(Word& counter, const Word& to, LoopPlan& plan) {
    if (to.Text() == kForever) {
        plan.forever = true;
        counter = Word();
        return;
    }
    std::u16string_view rest = counter;
    if (!rest.starts_with(kForever)) return;
    plan.forever = true;
    rest.remove_prefix(kForever.size());
    if (rest.starts_with(u'、')) rest.remove_prefix(1);
    counter = Word(rest);
}

LoopPlan PlanLoop(const Statement& source) {
    const StatementPtr copy(new Statement(source));
    LoopPlan plan;
    if (std::u16string_view(copy->Source).starts_with(kForeverHead)) {
        plan.forever = true;
        copy->Marked = Word(std::u16string_view(copy->Source).substr(kForeverHead.size()));
        copy->HeArg = Word();
    }
    auto [count, to, limit, from] = GetWords(*copy, u"回", u"に", u"まで", u"から");
    Word counter = copy->HeArg;
    if (!plan.forever || to.Text() == kForever) PlanForever(counter, to, plan);
    if (!plan.forever && count.IsEmpty() && limit.IsEmpty()) {
        const bool end = Contains(copy->Verb, u"終わり");
        plan.fault = end ? LoopPlan::Fault::kMissingWords : LoopPlan::Fault::kBadGrammar;
        return plan;
    }
    if (!limit.IsEmpty()) plan.forever = true;
    plan.count = count;
    plan.limit = limit;
    plan.from = from;
    plan.counter = counter;
    if (!counter.IsEmpty()) plan.counterTarget = PlanTarget(counter);
    PlanBody(copy->WoArg, plan);
    return plan;
}

double WholeNumber(const Word& word) {
    const double number = EvalNumber(word);
    return static_cast<double>(ToInt32(number));
}

double CountOf(const Value& variable) {
    double number = 0;
    return variable.IsPlainNumber(number) ? number : NumberOf(variable);
}

double CountByRule(const LoopPlan& plan, const AssignmentTarget& target) {
    if (target.indexed) {
        const double before = EvalNumber(plan.counter);
        SetVariable(target, Value::OfNumber(before + 1));
        return before;
    }
    const Value* variable = FindVariable(target.symbol);
    const double before = variable == nullptr ? 0 : CountOf(*variable);
    StoreNumber(target, before + 1);
    return before;
}

bool InProgram(const Program& program, std::int32_t line) {
    return static_cast<std::size_t>(line) < program.Statements.size();
}

Statement& LineOf(const Program& program, std::int32_t line) {
    return *program.Statements[static_cast<std::size_t>(line)];
}

bool IsProcedureEnd(const Program& program, std::int32_t line) {
    return !InProgram(program, line) || LineOf(program, line).Kind == StatementKind::kProcedureEnd;
}

bool IsEnding(const Program& program, std::int32_t line) {
    return run.StopFlag || IsProcedureEnd(program, line);
}

// Whether another pass is to be made.
bool HasPass(const LoopState& state) { return state.forever || state.pass < state.count; }

// What stands between two passes; false when there is no next one.
bool EndPass(const LoopPlan& plan, LoopState& state, bool leftAtEnd) {
    if (state.forever) PumpEvents();
    if (IsLeavingLoop() || leftAtEnd || !CountPass(plan, state)) return false;
    ++state.pass;
    return HasPass(state);
}

// Walks over the lines of the body from one on, and returns the line behind it. Kept: when the loop is left,
// the rest is passed over to the first line that ends a loop.
std::int32_t WalkBody(const Program& program, std::int32_t first, std::int32_t line) {
    while ((line == first && !run.StopFlag) || !IsEnding(program, line)) {
        run.CurLine = line;
        Statement& statement = LineOf(program, line);
        if (statement.VerbMark() == LoopMark::kLoopEnd) break;
        if (!run.ReturnFlag && !run.LoopBreakFlag) RunLine(statement, line);
        ++line;
        if (IsEnding(program, line)) break;
    }
    return line;
}

// The run goes on behind CurLine: behind the loop's end, but at a 終わり itself, which ends the procedure that
// the loop stands in.
void GoOnBehind(std::int32_t line, bool leftAtEnd) {
    if (run.StopFlag) return;
    run.CurLine = leftAtEnd ? line - 1 : line;
    run.JumpFlag = true;
}

// The passes of a loop whose body is the lines from first on. Kept: with a negative count no pass and no scan
// is made, so that the run goes on from the start.
void RunBlock(const LoopPlan& plan, LoopState& state, const Program& program, std::int32_t first) {
    if (!state.forever && state.count == 0) {
        GoOnBehind(EndOfBody(program, first), false);
        return;
    }
    std::int32_t line = 0;
    bool leftAtEnd = false;
    for (bool more = HasPass(state); more; more = EndPass(plan, state, leftAtEnd)) {
        line = first;
        const Bytecode* code = run.AnySet() ? nullptr : plan.code->Of(program, first, &plan);
        if (code != nullptr) {
            const CodeResult result = RunCode(*code, program, state);
            line = result.line;
            leftAtEnd = false;
            if (result.end == CodeResult::End::kDone) break;
        }
        if (InProgram(program, first)) line = WalkBody(program, first, line);
        leftAtEnd = IsProcedureEnd(program, line);
    }
    GoOnBehind(line, leftAtEnd);
}

// The passes of a loop whose body is the text of sentences.
void RunSentences(const LoopPlan& plan, LoopState& state) {
    std::vector<TemporarySentence>& sentences = plan.body->All();
    std::vector<TemporarySentence::InstancePtr> ready;
    ready.reserve(sentences.size());
    for (TemporarySentence& sentence : sentences) ready.push_back(sentence.Take());
    for (bool more = HasPass(state); more; more = EndPass(plan, state, false)) {
        for (const TemporarySentence::InstancePtr& sentence : ready) {
            if (!run.StopFlag) sentence->Exec();
        }
    }
    for (std::size_t i = 0; i < ready.size(); ++i) sentences[i].Return(std::move(ready[i]));
}

void RunLoop(const LoopPlan& plan) {
    LoopState state = BeginLoop(plan);
    if (plan.bodyMissingQuotes) {
        RaiseError(kNoQuotes, kIconInformation, u"", u"", -1);
    } else if (plan.body == nullptr) {
        const ProgramPtr program = Programs[static_cast<std::size_t>(run.CurProgram)];
        RunBlock(plan, state, *program, run.CurLine + 1);
    } else if (!plan.body->IsBarred()) {
        RunSentences(plan, state);
    }
}

}  // namespace

const LoopPlan& PlanOfLoop(Statement& statement) {
    std::shared_ptr<const LoopPlan>& plan = statement.Cache().loop;
    if (!plan) plan = std::make_shared<LoopPlan>(PlanLoop(statement));
    return *plan;
}

LoopState BeginLoop(const LoopPlan& plan) {
    LoopState state{plan.forever, 0, -1, 0};
    if (!plan.count.IsEmpty()) state.count = WholeNumber(plan.count);
    if (!plan.limit.IsEmpty()) state.limit = WholeNumber(plan.limit);
    if (plan.counterTarget) {
        const Word& start = plan.from.IsEmpty() ? plan.counter : plan.from;
        SetVariable(*plan.counterTarget, Value::OfNumber(EvalNumber(start)));
    }
    return state;
}

bool CountPass(const LoopPlan& plan, const LoopState& state) {
    if (!plan.counterTarget) return true;
    const double before = CountByRule(plan, *plan.counterTarget);
    return !state.forever || before != state.limit;
}

void WalkLoop(const LoopPlan& plan, LoopState state, const Program& program, std::int32_t first,
              std::int32_t line) {
    bool leftAtEnd = false;
    while (true) {
        line = WalkBody(program, first, line);
        leftAtEnd = IsProcedureEnd(program, line);
        if (!EndPass(plan, state, leftAtEnd)) break;
        line = first;
    }
    GoOnBehind(line, leftAtEnd);
    run.LoopBreakFlag = false;
}

std::int32_t EndOfBody(const Program& program, std::int32_t first) {
    std::int32_t nesting = 0;
    std::int32_t line = first;
    for (; InProgram(program, line); ++line) {
        const LoopMark mark = LineOf(program, line).VerbMark();
        if (mark == LoopMark::kLoopEnd) {
            if (nesting == 0) return line;
            --nesting;
        } else if (mark == LoopMark::kLoopHead) {
            ++nesting;
        }
    }
    return line - 1;
}

void CmdRepeat(Statement& statement, Context& /*context*/) {
    run.ReturnFlag = false;
    run.LoopBreakFlag = false;
    const LoopPlan& plan = PlanOfLoop(statement);
    if (plan.fault == LoopPlan::Fault::kMissingWords) {
        RaiseError(kMissingWords, kIconInformation, u"", u"", -1);
    } else if (plan.fault == LoopPlan::Fault::kBadGrammar) {
        RaiseMessage(kBadGrammarText, kBadGrammar, kIconInformation, u"", u"", -1);
    } else {
        RunLoop(plan);
    }
    run.LoopBreakFlag = false;
}

}  // namespace velm
