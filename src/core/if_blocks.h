// もし: the plan of a sentence, and where the lines of its block stand.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "core/conditions.h"
#include "core/run_state.h"
#include "core/statement.h"

namespace velm {

class TemporarySentence;

// Where the lines of a block stand, for a condition that was met at a line of a program.
struct BlockShape {
    std::uint64_t version = 0;  // of the program
    std::int32_t first = -1;    // the line behind the head
    std::int32_t depth = 0;     // of the lines where the branches part
    std::int32_t branch = 0;    // the first of these
    std::int32_t behind = 0;    // the first line behind the block
};

// A もし sentence cut into its parts.
struct IfPlan {
    int error = 0;  // 2 or 7, reported at each run
    ConditionList condition;
    bool inverted = false;  // でないなら
    bool oneLine = false;
    std::shared_ptr<TemporarySentence> thenPart;
    std::shared_ptr<TemporarySentence> elsePart;
    mutable BlockShape shape;  // as it was last met
};

// The plan of a sentence; text is what stands behind もし.
const IfPlan& PlanOfIf(Statement& statement, std::u16string_view text);

// The shape of the block whose head is the line before the first one.
const BlockShape& ShapeOf(const IfPlan& plan, const Program& program, std::int32_t first);

// Runs what the result of the condition of the current line chooses.
void ChooseBranch(const IfPlan& plan, bool result);

// Goes on with the branch of a block that runs, from a line on, by the walk over lines. What a block leaves
// behind (CurLine, JumpFlag) is then set.
void WalkIf(const IfPlan& plan, std::int32_t first, std::int32_t line);

}  // namespace velm
