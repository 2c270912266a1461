// 繰り返し: the plan of a loop's head, and the state of its run.
#pragma once

#include <cstdint>
#include <memory>

#include "core/run_state.h"
#include "core/statement.h"
#include "core/variables.h"
#include "core/word.h"

namespace velm {

class KeptCode;

// A loop's head cut into its words, which its text alone decides.
struct LoopPlan {
    enum class Fault : std::uint8_t { kNone, kMissingWords, kBadGrammar };

    LoopPlan();
    LoopPlan(LoopPlan&&) noexcept;
    ~LoopPlan();

    Fault fault = Fault::kNone;
    bool forever = false;
    bool bodyMissingQuotes = false;
    Word count;
    Word limit;
    Word from;
    Word counter;
    std::shared_ptr<const AssignmentTarget> counterTarget;
    std::shared_ptr<SentenceList> body;  // none: the body is a block
    std::unique_ptr<KeptCode> code;

    // Whether the body is the lines that follow.
    bool IsBlock() const { return fault == Fault::kNone && !bodyMissingQuotes && !body; }
};

// The plan of a sentence of 繰り返し.
const LoopPlan& PlanOfLoop(Statement& statement);

// The state of a run of a loop; BeginLoop gives the first one.
struct LoopState {
    bool forever;
    double count;  // of passes
    double limit;  // of the counter
    double pass;
};

// Evaluates the words of the head and sets the counter.
LoopState BeginLoop(const LoopPlan& plan);

// Adds 1 to the counter. False when the value before that was the limit of a まで loop.
bool CountPass(const LoopPlan& plan, const LoopState& state);

// Whether a flag ends the loop that runs.
inline bool IsLeavingLoop() {
    return run.StopFlag || (run.AnySet() && (run.ReturnFlag || run.LoopBreakFlag));
}

// Goes on with a loop in the middle of a pass, from a line on, by the walk over lines. What a loop leaves
// behind (CurLine, JumpFlag) is then set.
void WalkLoop(const LoopPlan& plan, LoopState state, const Program& program, std::int32_t first,
              std::int32_t line);

// The first line from one on that ends the body of a loop, with those of loops within it passed over; the line
// behind the program's last where there is none.
std::int32_t EndOfBody(const Program& program, std::int32_t first);

}  // namespace velm
