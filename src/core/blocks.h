// Control flow: もし with its branches, 繰り返し, 分岐, 抜ける and 飛べ. The
// handlers here run the inner lines themselves through ExecStatement, so that nesting is recursion.
#pragma once

#include <cstdint>

#include "core/execute.h"
#include "core/run_state.h"

namespace velm {

// What 抜ける says, read off the statement when its fences were in a certain state; the text decides what
// that is. In another state its words are asked for, which sets the fences.
struct LeavePlan {
    std::uint32_t fences = 0;
    bool RunState::*flag = nullptr;
    Word with;
};

// Works out the block depth of each line of a program, at load. Reports error 24 for a block without
// its end.
void ScanBlocks(Program& program);

// Runs a sentence of kind もし.
void ExecIf(Statement& statement);

// The handlers of 繰り返, 分岐, 抜ける and 飛べ.
void CmdRepeat(Statement& statement, Context& context);
void CmdBranch(Statement& statement, Context& context);
void CmdLeave(Statement& statement, Context& context);
void CmdJump(Statement& statement, Context& context);

}  // namespace velm
