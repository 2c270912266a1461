// Control flow: もし with its branches, 繰り返し, 分岐, 抜ける and 飛べ. Blocks have no compiled form: the
// handlers here run the inner lines themselves through ExecStatement, so that nesting is recursion.
#pragma once

#include <cstdint>

#include "core/execute.h"
#include "core/run_state.h"

namespace velm {

class TemporarySentence;

// Works out the block depth of each line of a program, at load. Reports error 24 for a block without
// its end.
void ScanBlocks(Program& program);

// Runs a sentence of kind もし.
void ExecIf(Statement& statement);
// The short road of a もし of one line up to the sentence that is to run; nullptr, with nothing done, when
// there is no such road. See TryStatement.
TemporarySentence* TryIf(const Statement& statement);

// The handlers of 繰り返, 分岐, 抜ける and 飛べ.
void CmdRepeat(Statement& statement, Context& context);
void CmdBranch(Statement& statement, Context& context);
void CmdLeave(Statement& statement, Context& context);
// The short road of CmdLeave for a sentence that has run before and whose word is a plain value.
bool TryLeave(Statement& statement);
void CmdJump(Statement& statement, Context& context);

}  // namespace velm
