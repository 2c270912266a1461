// The execution loop: the only road by which any code runs a statement.
#pragma once

#include <memory>
#include <string_view>

#include "core/run_state.h"
#include "core/statement.h"

namespace velm {

class Velm;

// What a handler gets beside its statement.
struct Context {
    Velm& engine;
    std::vector<ProgramPtr>& programs;
};

Context& TheContext();

// The short road of ExecStatement (core/short_roads.h) for assignments and 抜ける. false, with nothing
// done, for anything else.
bool TryStatement(Statement& statement);

// Executes one statement. A failing step is passed over, and the pending failure is cleared at the end.
void ExecStatement(Statement& statement);

// Runs one sentence that is no line of a program: analysed as if for the first time on each call.
void RunComnd(const Word& sentence);
void RunComnd(std::u16string_view sentence);

// The top-level pass over a program: procedure bodies are skipped.
void RunTop(const Program& program);

// Runs a line of a program that a block walker has come to, and follows a jump: line is where to go on.
inline void RunLine(Statement& statement, std::int32_t& line) {
    run.CurLine = line;
    ExecStatement(statement);
    if (!run.JumpFlag) return;
    run.JumpFlag = false;
    line = run.CurLine;
}

// Runs the sentences of a line that stands for several, as 。 cuts them.
void RunSentences(Statement& statement);

}  // namespace velm
