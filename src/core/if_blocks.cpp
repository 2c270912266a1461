// もし: the one-line forms and the blocks.
#include "core/if_blocks.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/action.h"
#include "core/blocks.h"
#include "core/compiled_comparison.h"
#include "core/conditions.h"
#include "core/diagnostics.h"
#include "core/short_roads.h"
#include "core/statement.h"
#include "core/temporary_sentence.h"
#include "data/text.h"

namespace velm {

namespace {

constexpr int kBadIf = 2;
constexpr int kNoBlank = 7;
constexpr int kNoIfEnd = 24;
constexpr std::u16string_view kThen = u"なら";
constexpr std::u16string_view kElse = u"でないなら";

struct ComparisonWord {
    std::u16string_view text;
    int code;
    bool anyMode;
    bool cleared;
};

constexpr ComparisonWord kComparisonWords[] = {
    {u"より上", comparison::kGreater, false, false},
    {u"より下", comparison::kLess, false, false},
    {u"以上", comparison::kGreaterOrEqual, false, false},
    {u"以下", comparison::kLessOrEqual, false, false},
    {u"のどれか", comparison::kEqual, true, false},
    {u"", comparison::kEqual, false, true},
    {u"でない", comparison::kEqual, false, true},
};

// 1-based positions in the text behind もし, as the rules tell them; 0 for none.
std::size_t Position(std::u16string_view text, std::u16string_view needle, std::size_t from = 1) {
    const std::size_t hit = text.find(needle, from - 1);
    return hit == kNotFound ? 0 : hit + 1;
}

std::u16string_view From(std::u16string_view text, std::size_t position) {
    return position > text.size() ? std::u16string_view() : text.substr(position - 1);
}

std::u16string_view Between(std::u16string_view text, std::size_t first, std::size_t behind) {
    return first >= behind ? std::u16string_view() : From(text, first).substr(0, behind - first);
}

std::shared_ptr<TemporarySentence> SentenceOf(std::u16string_view text) {
    return std::make_shared<TemporarySentence>(Word(text));
}

void CutParts(std::u16string_view text, std::size_t then, std::size_t n, IfPlan& plan) {
    std::size_t nara = then - n;
    const std::size_t other = Position(text, kElse);
    if (other != 0 && other + 3 == nara) nara = Position(text, kThen, other + 4);
    const std::size_t thenStart = nara + 3 + n;
    std::u16string_view thenPart;
    std::u16string_view elsePart;
    if (other == 0) {
        thenPart = From(text, thenStart);
    } else if (nara == 0) {
        elsePart = From(text, other + 6);
    } else if (nara < other) {
        thenPart = Between(text, thenStart, other);
        elsePart = From(text, other + 6);
    } else {
        elsePart = Between(text, other + 6 + n, nara);
        thenPart = From(text, thenStart);
    }
    plan.inverted = other != 0;
    plan.oneLine = !thenPart.empty() || !elsePart.empty();
    plan.thenPart = SentenceOf(thenPart);
    plan.elsePart = SentenceOf(elsePart);
}

IfPlan PlanIf(std::u16string_view text) {
    IfPlan plan;
    std::u16string spaced(text);
    std::replace(spaced.begin(), spaced.end(), kIdeographicBlank, u' ');
    const std::size_t nara = Position(spaced, kThen);
    if (nara == 0) {
        plan.error = kBadIf;
        return plan;
    }
    const std::size_t blank = nara == 1 ? kNotFound : spaced.rfind(u' ', nara - 2);
    if (blank == kNotFound) {
        plan.error = kNoBlank;
        return plan;
    }
    const std::u16string_view word =
        std::u16string_view(spaced).substr(blank + 1, nara - blank - 2);
    for (const ComparisonWord& known : kComparisonWords) {
        if (known.text != word) continue;
        const std::u16string_view condition = std::u16string_view(spaced).substr(0, blank);
        plan.condition = PlanConditionList(condition, known.code, known.anyMode);
        CutParts(text, nara, known.cleared ? 0 : word.size(), plan);
        return plan;
    }
    plan.error = kBadIf;
    return plan;
}

// The first line from one on where the branches of a block of this depth part, or that behind the last.
std::int32_t FindBranch(const Program& program, std::int32_t from, std::int32_t depth) {
    auto line = static_cast<std::size_t>(from);
    for (; line < program.Depth.size(); ++line) {
        if (program.Depth[line] != depth) continue;
        const LineMark mark = program.Statements[line]->mark;
        if (mark >= LineMark::kIfEnd && mark <= LineMark::kElseIf) break;
    }
    return static_cast<std::int32_t>(line);
}

// The first line from one on that lies behind a block of this depth.
std::int32_t FindBehind(const Program& program, std::int32_t from, std::int32_t depth) {
    auto line = static_cast<std::size_t>(from);
    while (line < program.Depth.size() && program.Depth[line] != depth - 1) ++line;
    return static_cast<std::int32_t>(line);
}

BlockShape FindShape(const Program& program, std::int32_t first) {
    const auto head = static_cast<std::size_t>(first) - 1;
    const std::int32_t around = program.Depth[head];
    const bool inside = head + 1 < program.Depth.size() && program.Depth[head + 1] == around;
    BlockShape shape;
    shape.version = program.version;
    shape.first = first;
    shape.depth = inside ? around : around + 1;
    shape.branch = FindBranch(program, first, shape.depth);
    shape.behind = FindBehind(program, first, shape.depth);
    return shape;
}

// The walk over the lines of a block: from the head to its もし終わり.
class IfWalk {
  public:
    IfWalk(bool condition, const IfPlan& plan, std::int32_t first)
        : program_(Programs[static_cast<std::size_t>(run.CurProgram)]),
          shape_(ShapeOf(plan, *program_, first)),
          running_(condition),
          line_(first) {}

    // Goes on at a line of the branch that runs.
    void WalkFrom(std::int32_t line) {
        line_ = line;
        if (IsLeaving()) {
            Finish();
        } else {
            Walk();
        }
    }

    void Walk() {
        while (true) {
            if (!running_ && !IsLeaving()) PassOver();
            if (!InProgram(line_)) {
                RaiseError(kNoIfEnd, kIconInformation, u"", u"", -1);
                if (nesting_.depth > kMostUnclosed) run.StopFlag = true;
                return;
            }
            if (!Step()) break;
            ++line_;
            if (IsLeaving()) break;
        }
        Finish();
    }

  private:
    // How many walks run within one another. The lines behind a block without its end run once more in
    // each block around it, twice as often with each one: where there are many, the run ends.
    struct Nesting {
        Nesting() { ++depth; }
        Nesting(const Nesting&) = delete;
        Nesting& operator=(const Nesting&) = delete;
        ~Nesting() { --depth; }
        static inline int depth = 0;
    };
    static constexpr int kMostUnclosed = 12;

    Nesting nesting_;
    ProgramPtr program_;
    BlockShape shape_;
    bool running_;
    std::int32_t line_;

    bool InProgram(std::int32_t line) const {
        return static_cast<std::size_t>(line) < program_->Statements.size();
    }
    std::int32_t DepthOf(std::int32_t line) const {
        return program_->Depth[static_cast<std::size_t>(line)];
    }

    static bool IsLeaving() { return run.StopFlag || run.ReturnFlag || run.IfBreakFlag; }

    void Finish() const {
        if (run.StopFlag) return;
        run.IfBreakFlag = false;
        run.CurLine = BehindBlock() - 1;
        run.JumpFlag = true;
    }

    // Goes on over lines that don't run to the next one where the block's branches part.
    void PassOver() {
        const bool atStart = line_ == shape_.first;
        line_ = atStart ? shape_.branch : FindBranch(*program_, line_, shape_.depth);
    }

    std::int32_t BehindBlock() const {
        const bool within = line_ >= shape_.first && line_ <= shape_.behind;
        return within ? shape_.behind : FindBehind(*program_, line_, shape_.depth);
    }

    // Looks at one line; false when the walk ends there.
    bool Step() {
        Statement& statement = *program_->Statements[static_cast<std::size_t>(line_)];
        const std::int32_t depth = DepthOf(line_);
        if (depth == shape_.depth) {
            if (statement.mark == LineMark::kIfEnd) return false;
            if (statement.mark == LineMark::kElse) {
                if (running_) return false;
                running_ = true;
                return true;
            }
            if (statement.mark == LineMark::kElseIf) {
                if (!running_) RunElseIf(statement);
                return false;
            }
        }
        if (depth >= shape_.depth && running_) RunLine(statement, line_);
        return true;
    }

    void RunElseIf(Statement& statement);
};

void RunPlan(const IfPlan& plan) {
    if (plan.error != 0) {
        RaiseError(plan.error, kIconWarning, u"", u"", -1);
        return;
    }
    ChooseBranch(plan, EvalConditionList(plan.condition));
}

void IfWalk::RunElseIf(Statement& statement) {
    const std::u16string_view source = statement.Source;
    run.CurLine = line_;
    RunPlan(PlanOfIf(statement, source.substr(4)));
}

// A もし sentence whose plan is made.
class If : public Action {
  public:
    explicit If(std::shared_ptr<const IfPlan> plan) : plan_(std::move(plan)) {
        const std::vector<Comparison>& conditions = plan_->condition.conditions;
        if (conditions.size() == 1) only_ = conditions[0].compiled.get();
    }

    bool Run(Statement& /*statement*/) const override {
        bool result = false;
        if (only_ == nullptr || !only_->Try(result)) result = EvalConditionList(plan_->condition);
        ChooseBranch(*plan_, result);
        return true;
    }

  private:
    std::shared_ptr<const IfPlan> plan_;
    const CompiledComparison* only_ = nullptr;
};

}  // namespace

void ChooseBranch(const IfPlan& plan, bool result) {
    if (run.StopFlag) return;  // by a word of the condition
    if (plan.oneLine) {
        (result ? plan.thenPart : plan.elsePart)->Run();
        return;
    }
    if (plan.inverted) result = !result;
    IfWalk(result, plan, run.CurLine + 1).Walk();
}

const IfPlan& PlanOfIf(Statement& statement, std::u16string_view text) {
    std::shared_ptr<const IfPlan>& plan = statement.Cache().condition;
    if (!plan) plan = std::make_shared<IfPlan>(PlanIf(text));
    return *plan;
}

const BlockShape& ShapeOf(const IfPlan& plan, const Program& program, std::int32_t first) {
    BlockShape& shape = plan.shape;
    const bool known = kShortRoads && shape.version == program.version && shape.first == first;
    if (!known) shape = FindShape(program, first);
    return shape;
}

void WalkIf(const IfPlan& plan, std::int32_t first, std::int32_t line) {
    IfWalk(true, plan, first).WalkFrom(line);
}

ActionPtr CompileIf(Statement& statement) {
    const bool planned = statement.cache != nullptr && statement.cache->condition &&
                         statement.cache->condition->error == 0;
    return planned ? ActionPtr(new If(statement.cache->condition)) : ActionPtr();
}

void ExecIf(Statement& statement) { RunPlan(PlanOfIf(statement, statement.WoArg)); }

namespace {

bool IsIfHead(std::u16string_view source) {
    return source.starts_with(u"もし") && source.ends_with(kThen);
}

// A block that never ends stops the scan: what its enclosing blocks would have counted behind the next
// unclosed head is not counted.
void UncountUnclosed(Program& program, const std::vector<std::size_t>& heads) {
    for (std::size_t j = 0; j + 1 < heads.size(); ++j) {
        const std::size_t last = j + 2 < heads.size() ? heads[j + 2] : program.Depth.size();
        const auto outer = static_cast<std::int32_t>(j + 1);
        program.Depth[heads[j + 1]] -= outer;
        for (std::size_t i = heads[j + 1] + 1; i < last; ++i) program.Depth[i] -= outer;
    }
}

void FindDepths(Program& program) {
    program.Depth.assign(program.Statements.size(), 0);
    std::vector<std::size_t> open;
    for (std::size_t i = 0; i < program.Statements.size(); ++i) {
        const Statement& statement = *program.Statements[i];
        program.Depth[i] = static_cast<std::int32_t>(open.size());
        if (statement.mark == LineMark::kIfEnd) {
            // Kept: a stray end ends the scan, and the blocks behind it have no depth.
            if (open.empty()) {
                program.Depth[i] = 1;
                return;
            }
            open.pop_back();
        } else if (IsIfHead(statement.Source)) {
            open.push_back(i);
        }
    }
    if (open.empty()) return;
    UncountUnclosed(program, open);
    RaiseError(kNoIfEnd, kIconInformation, u"", u"", static_cast<std::int32_t>(open.back() + 1));
}

}  // namespace

void ScanBlocks(Program& program) {
    const std::vector<std::int32_t> before = std::move(program.Depth);
    FindDepths(program);
    if (program.version == 0 || program.Depth != before) NewVersion(program);
}

}  // namespace velm
