// 分岐, 抜ける and 飛べ.
#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/action.h"
#include "core/blocks.h"
#include "core/diagnostics.h"
#include "core/eval.h"
#include "core/expression.h"
#include "core/number_node.h"
#include "core/sentence.h"
#include "core/short_roads.h"
#include "core/temporary_sentence.h"
#include "core/word_lists.h"
#include "core/word_plan.h"
#include "data/brackets.h"
#include "data/numbers.h"
#include "data/text.h"

namespace velm {

// A の場合 line cut into its values and the sentence behind it.
struct CasePlan {
    bool list = false;
    Word value;                                   // unless a list
    std::u16string items;                         // the list as written
    std::shared_ptr<TemporarySentence> sentence;  // none: the case's lines follow
};

namespace {

constexpr int kNoLabel = 29;
constexpr int kMissing = 40;
constexpr int kNoBranchEnd = 42;
constexpr std::u16string_view kCaseWord = u"の場合";
constexpr std::u16string_view kIfName = u"もし";
constexpr std::u16string_view kLoopName = u"繰り返し";

CasePlan PlanCase(std::u16string_view text) {
    CasePlan plan;
    std::u16string_view value = text;
    if (text.ends_with(kCaseWord)) {
        value.remove_suffix(kCaseWord.size());
    } else {
        const std::size_t at = FindOutsideBrackets(text, kCaseWord);
        const std::size_t behind = at - 1 + kCaseWord.size() + 1;
        value = text.substr(0, at - 1);
        const std::u16string_view rest =
            behind < text.size() ? text.substr(behind) : std::u16string_view();
        plan.sentence = std::make_shared<TemporarySentence>(Word(rest));
    }
    plan.items = NormaliseCommas(value);
    plan.list = Contains(plan.items, u",");
    plan.value = Word(plan.items);
    return plan;
}

const CasePlan& PlanOf(Statement& statement) {
    std::shared_ptr<const CasePlan>& plan = statement.Cache().branch;
    if (!plan) plan = std::make_shared<CasePlan>(PlanCase(statement.Source));
    return *plan;
}

// One run of a 分岐: the search for the case, and the lines of the case.
class Branch {
  public:
    explicit Branch(Value value)
        : program_(Programs[static_cast<std::size_t>(run.CurProgram)]),
          value_(std::move(value)),
          number_(value_.Number()),
          line_(run.CurLine + 1) {}

    void Run() {
        Search();
        if (!finished_) RunCase();
        run.JumpFlag = true;
    }

  private:
    ProgramPtr program_;
    Value value_;
    std::optional<double> number_;
    std::int32_t line_;
    std::int32_t nest_ = 0;
    bool finished_ = false;  // nothing is left to run
    bool ended_ = false;     // the case is over, only the end is sought
    std::shared_ptr<TemporarySentence> inline_;

    bool InProgram() const { return static_cast<std::size_t>(line_) < program_->Statements.size(); }
    Statement& Line() const { return *program_->Statements[static_cast<std::size_t>(line_)]; }

    bool Matches(const Value& candidate) const {
        if (!number_) return candidate.SameText(value_);
        const std::optional<double> number = candidate.Number();
        return number && *number == *number_;
    }

    bool MatchesCase(const CasePlan& plan) const {
        if (!plan.list) return Matches(EvalWord(plan.value));
        const std::vector<std::u16string> items = SplitList(plan.items, true);
        return std::any_of(items.begin(), items.end(),
                           [this](const std::u16string& item) { return Matches(Value(item)); });
    }

    void FailWithoutEnd() {
        RaiseError(kNoBranchEnd, kIconInformation, u"", u"", -1);
        finished_ = true;
    }

    // The walk over the procedure's lines must come to its 終わり, and so goes on in front of it.
    void FailAtProcedureEnd() {
        FailWithoutEnd();
        --run.CurLine;
    }

    // Seeks the case that matches. Kept: 他の場合 stops the search at any nesting.
    void Search() {
        bool found = false;
        while (!found && !finished_) {
            if (!InProgram()) {
                FailWithoutEnd();
                return;
            }
            Statement& statement = Line();
            run.CurLine = line_++;
            switch (statement.mark) {
                case LineMark::kCaseEnd: finished_ = nest_-- == 0; break;
                case LineMark::kEnd: FailAtProcedureEnd(); break;
                case LineMark::kDefault: found = true; break;
                case LineMark::kCaseHead: ++nest_; break;
                case LineMark::kCase: found = nest_ == 0 && TakeCase(statement); break;
                default: break;
            }
        }
        nest_ = 0;
    }

    bool TakeCase(Statement& statement) {
        const CasePlan& plan = PlanOf(statement);
        inline_ = plan.sentence;  // what the value runs may drop the statement
        if (MatchesCase(plan)) return true;
        inline_.reset();
        return false;
    }

    void RunCase() {
        if (inline_) {
            inline_->Run();
            ended_ = true;
        }
        while (!finished_ && !run.StopFlag && !run.ReturnFlag) RunCaseLine();
    }

    void RunCaseLine() {
        if (!InProgram()) {
            FailWithoutEnd();
            return;
        }
        run.CurLine = line_;
        Statement& statement = Line();
        const bool last = static_cast<std::size_t>(line_) + 1 == program_->Statements.size();
        if (statement.mark == LineMark::kCaseEnd) {
            finished_ = nest_-- == 0;
        } else if (statement.mark == LineMark::kEnd) {
            FailAtProcedureEnd();
        } else if (last) {
            FailWithoutEnd();
        } else if (statement.mark == LineMark::kCaseHead && ended_) {
            ++nest_;
        } else if (statement.mark == LineMark::kCase || statement.mark == LineMark::kDefault) {
            ended_ = true;
        } else if (!ended_) {
            RunLine(statement, line_);
        }
        ++line_;
    }
};

std::int32_t FindLabel(const Program& program, std::u16string_view label) {
    for (std::size_t i = 0; i < program.Statements.size(); ++i) {
        const Statement& statement = *program.Statements[i];
        if (statement.Kind == StatementKind::kLabel && statement.Source == label) {
            return static_cast<std::int32_t>(i);
        }
    }
    return 0;
}

}  // namespace

void CmdBranch(Statement& statement, Context& /*context*/) {
    if (statement.HeArg.IsEmpty()) {
        RaiseError(kMissing, kIconInformation, u"変数", u"", -1);
        return;
    }
    Branch(EvalWord(statement.HeArg)).Run();
}

namespace {

bool RunState::*FlagOf(std::u16string_view what) {
    if (what == kIfName) return &RunState::IfBreakFlag;
    return what == kLoopName ? &RunState::LoopBreakFlag : &RunState::ReturnFlag;
}

LeavePlan PlanLeave(Statement& statement) {
    const auto [from, with] = GetWords(statement, u"から", u"で");
    return {statement.fences, FlagOf(from.IsEmpty() ? statement.WoArg : from), with};
}

bool IsPlanned(const Statement& statement) {
    return kShortRoads && statement.cache != nullptr && statement.cache->leave &&
           statement.cache->leave->fences == statement.fences;
}

// 抜ける with a word that is a constant, a variable, a cell or arithmetic, or without one.
class Leave : public Action {
  public:
    explicit Leave(std::shared_ptr<const LeavePlan> plan) : plan_(std::move(plan)) {
        if (plan_->with.IsEmpty()) return;
        const WordPlan& with = plan_->with.Plan();
        number_ = CompileNumber(plan_->with);
        if (with.kind == PlanKind::kArithmetic) sum_ = with.expression->Tree();
    }

    bool Run(Statement& statement) const override {
        if (plan_->fences != statement.fences) return false;
        run.CurrentStatement = StatementPtr(&statement);
        if (number_ != nullptr && !TakeWord()) return false;
        run.*plan_->flag = true;
        return true;
    }

  private:
    std::shared_ptr<const LeavePlan> plan_;
    NumberNodePtr number_;
    const NumberNode* sum_ = nullptr;

    bool TakeWord() const {
        double number = 0;
        if (sum_ != nullptr) {
            run.Response.SetHeldNumber(RoundResult(sum_->Number()));
        } else if (const Value* value = TryValue(plan_->with)) {
            run.Response = *value;
        } else if (number_->Try(number)) {
            run.Response.SetHeldNumber(number);
        } else {
            return false;
        }
        return true;
    }
};

}  // namespace

void CmdLeave(Statement& statement, Context& /*context*/) {
    if (!IsPlanned(statement)) {
        statement.Cache().leave = std::make_shared<LeavePlan>(PlanLeave(statement));
    }
    const LeavePlan plan = *statement.cache->leave;  // what the word runs may drop the statement
    if (!plan.with.IsEmpty()) run.Response = EvalWord(plan.with);
    run.*plan.flag = true;
}

ActionPtr CompileLeave(Statement& statement) {
    return IsPlanned(statement) ? ActionPtr(new Leave(statement.cache->leave)) : ActionPtr();
}

// Kept: a label at the first line counts as not found.
void CmdJump(Statement& statement, Context& /*context*/) {
    std::u16string label = statement.HeArg.Text();
    if (!label.empty() && !label.ends_with(u'：')) label += u'：';
    const std::int32_t line = label.empty() ? 0 : FindLabel(CurrentProgram(), label);
    if (line == 0) {
        RaiseError(kNoLabel, kIconStop, label, u"", -1);
        return;
    }
    run.CurLine = line;
    run.JumpFlag = true;
}

}  // namespace velm
