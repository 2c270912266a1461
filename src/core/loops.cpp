// 繰り返し in all its forms.
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/blocks.h"
#include "core/diagnostics.h"
#include "core/eval.h"
#include "core/hooks.h"
#include "core/line_block.h"
#include "core/sentence.h"
#include "core/short_roads.h"
#include "core/temporary_sentence.h"
#include "core/variables.h"
#include "data/brackets.h"
#include "data/numbers.h"
#include "data/text.h"

namespace velm {

// A loop's head cut into its words, which its text alone decides.
struct LoopPlan {
    enum class Fault : std::uint8_t { kNone, kMissingWords, kBadGrammar };

    Fault fault = Fault::kNone;
    bool forever = false;
    bool bodyMissingQuotes = false;
    Word count;
    Word limit;
    Word from;
    Word counter;
    std::shared_ptr<const AssignmentTarget> counterTarget;
    std::shared_ptr<SentenceList> body;  // none: the body is a block
    mutable KeptBlock lines;
};

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

const LoopPlan& PlanOf(Statement& statement) {
    std::shared_ptr<const LoopPlan>& plan = statement.Cache().loop;
    if (!plan) plan = std::make_shared<LoopPlan>(PlanLoop(statement));
    return *plan;
}

double WholeNumber(const Word& word) {
    const double number = EvalNumber(word);
    return static_cast<double>(ToInt32(number));
}

// One run of a loop.
class Loop {
  public:
    explicit Loop(const LoopPlan& plan) : plan_(plan), forever_(plan.forever) {
        if (!plan.count.IsEmpty()) count_ = WholeNumber(plan.count);
        if (!plan.limit.IsEmpty()) limit_ = WholeNumber(plan.limit);
        if (plan.counterTarget) {
            if (kShortRoads && !plan.counterTarget->indexed) counter_ = plan.counterTarget->symbol;
            const Word& start = plan.from.IsEmpty() ? plan.counter : plan.from;
            SetVariable(*plan.counterTarget, Value::OfNumber(EvalNumber(start)));
        }
    }

    void Run() {
        if (plan_.bodyMissingQuotes) {
            RaiseError(kNoQuotes, kIconInformation, u"", u"", -1);
        } else if (plan_.body == nullptr) {
            RunBlock();
        } else if (!plan_.body->IsBarred()) {
            RunSentences();
        }
    }

  private:
    const LoopPlan& plan_;
    bool forever_;
    const Symbol* counter_ = nullptr;  // none: the counter is a cell, or there is none
    double count_ = 0;
    double limit_ = -1;
    std::int32_t line_ = 0;

    static bool IsLeaving() {
        return run.StopFlag || (run.AnySet() && (run.ReturnFlag || run.LoopBreakFlag));
    }

    static double CountOf(const Value& variable) {
        double number = 0;
        return variable.IsPlainNumber(number) ? number : NumberOf(variable);
    }

    // Adds 1 to the counter. False when the value before that was the limit of a まで loop.
    bool Count() {
        double before = 0;
        if (!plan_.counterTarget) return true;
        // The common case, a variable that holds a number: found once, for reading and storing.
        Value* place = counter_ == nullptr ? nullptr : FindForChange(counter_);
        if (place != nullptr && place->IsPlainNumber(before)) {
            place->SetHeldNumber(RoundToText(before + 1));
        } else {
            before = CountByRule(*plan_.counterTarget);
        }
        return !forever_ || before != limit_;
    }

    [[gnu::noinline]] double CountByRule(const AssignmentTarget& target) {
        if (target.indexed) {
            const double before = EvalNumber(plan_.counter);
            SetVariable(target, Value::OfNumber(before + 1));
            return before;
        }
        const Value* variable = FindVariable(target.symbol);
        const double before = variable == nullptr ? 0 : CountOf(*variable);
        StoreNumber(target, before + 1);
        return before;
    }

    // What stands between two passes; false when there is no next one.
    bool EndPass() {
        if (forever_) PumpEvents();
        if (IsLeaving()) return false;
        return Count();
    }

    void RunSentences() {
        std::vector<TemporarySentence>& sentences = plan_.body->All();
        std::vector<TemporarySentence::InstancePtr> ready;
        ready.reserve(sentences.size());
        for (TemporarySentence& sentence : sentences) ready.push_back(sentence.Take());
        for (double pass = 0; forever_ || pass < count_; ++pass) {
            for (const TemporarySentence::InstancePtr& sentence : ready) {
                if (!run.StopFlag) sentence->Exec();
            }
            if (!EndPass()) break;
        }
        for (std::size_t i = 0; i < ready.size(); ++i) sentences[i].Return(std::move(ready[i]));
    }

    static bool InProgram(const Program& program, std::int32_t line) {
        return static_cast<std::size_t>(line) < program.Statements.size();
    }
    static Statement& LineOf(const Program& program, std::int32_t line) {
        return *program.Statements[static_cast<std::size_t>(line)];
    }
    static bool IsProcedureEnd(const Program& program, std::int32_t line) {
        return !InProgram(program, line) ||
               LineOf(program, line).Kind == StatementKind::kProcedureEnd;
    }

    // Kept: with a negative count no pass and no scan is made, so that the run goes on from the start.
    void RunBlock() {
        const ProgramPtr program = Programs[static_cast<std::size_t>(run.CurProgram)];
        const std::int32_t first = run.CurLine + 1;
        bool leftAtEnd = false;
        if (!forever_ && count_ == 0) {
            line_ = EndOfBody(*program, first);
        } else {
            const LineBlock* block = plan_.lines.At(*program, first);
            for (double pass = 0; forever_ || pass < count_; ++pass) {
                leftAtEnd = RunPass(*program, first, block);
                if (forever_) PumpEvents();
                if (IsLeaving() || leftAtEnd || !Count()) break;
            }
        }
        if (run.StopFlag) return;
        // The run goes on behind CurLine: behind the loop's end, but at a 終わり itself, which ends the
        // procedure that the loop stands in.
        run.CurLine = leftAtEnd ? line_ - 1 : line_;
        run.JumpFlag = true;
    }

    // Runs the body once; whether that came to the end of the procedure.
    bool RunPass(const Program& program, std::int32_t first, const LineBlock* block) {
        const std::int32_t line = block == nullptr ? first : block->Run();
        if (block != nullptr && block->EndsAtLoopEnd(line)) {
            run.CurLine = line_ = line;
            return false;
        }
        line_ = InProgram(program, first) ? WalkOn(program, first, line) : first;
        return IsProcedureEnd(program, line_);
    }

    // Walks over the lines of the body from one on, and returns the line behind it. Kept: when the loop is
    // left, the rest is passed over to the first line that ends a loop.
    static std::int32_t WalkOn(const Program& program, std::int32_t first, std::int32_t line) {
        while (line == first || !IsEnding(program, line)) {
            run.CurLine = line;
            Statement& statement = LineOf(program, line);
            if (statement.VerbMark() == LoopMark::kLoopEnd) break;
            if (!run.ReturnFlag && !run.LoopBreakFlag) RunLine(statement, line);
            ++line;
            if (IsEnding(program, line)) break;
        }
        return line;
    }
    static bool IsEnding(const Program& program, std::int32_t line) {
        return run.StopFlag || IsProcedureEnd(program, line);
    }

    // Where the body of a loop that makes no pass ends.
    static std::int32_t EndOfBody(const Program& program, std::int32_t first) {
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
};

}  // namespace

void CmdRepeat(Statement& statement, Context& /*context*/) {
    run.ReturnFlag = false;
    run.LoopBreakFlag = false;
    const LoopPlan& plan = PlanOf(statement);
    if (plan.fault == LoopPlan::Fault::kMissingWords) {
        RaiseError(kMissingWords, kIconInformation, u"", u"", -1);
    } else if (plan.fault == LoopPlan::Fault::kBadGrammar) {
        RaiseMessage(kBadGrammarText, kBadGrammar, kIconInformation, u"", u"", -1);
    } else {
        Loop(plan).Run();
    }
    run.LoopBreakFlag = false;
}

}  // namespace velm
