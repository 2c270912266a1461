// The execution loop: the only road by which any code runs a statement.
#pragma once

#include <memory>
#include <string_view>

#include "core/action.h"
#include "core/hooks.h"
#include "core/run_state.h"
#include "core/statement.h"
#include "data/failure.h"

namespace velm {

class Velm;

// What a handler gets beside its statement.
struct Context {
    Velm& engine;
    std::vector<ProgramPtr>& programs;
};

Context& TheContext();

// Runs the action of a statement that has one. false, with nothing done, when the told rule is to be followed.
// The caller holds the statement and its action.
inline bool TryStatement(Statement& statement) {
    if (!statement.action || hooks.RestartRepeatedMedia != nullptr) return false;
    bool taken = true;
    Attempt([&] { taken = statement.action->Run(statement); });
    if (taken && pendingFailure.IsSet()) pendingFailure.Clear();
    return taken;
}

// Executes one statement by the told rule. A failing step is passed over, and the pending failure is cleared at
// the end.
void ExecByRule(Statement& statement);

// Executes one statement.
inline void ExecStatement(Statement& statement) {
    if (!TryStatement(statement)) ExecByRule(statement);
}

// Runs one sentence that is no line of a program: analysed as if for the first time on each call.
void RunComnd(const Word& sentence);
void RunComnd(std::u16string_view sentence);

// The top-level pass over a program: procedure bodies are skipped.
void RunTop(const Program& program);

// Runs a line of a program that a block walker has come to, and follows a jump: line is where to go on.
inline void RunLine(Statement& statement, std::int32_t& line) {
    run.CurLine = line;
    ExecStatement(statement);
    if (!run.AnySet() || !run.JumpFlag) return;
    run.JumpFlag = false;
    line = run.CurLine;
}

// Runs the sentences of a line that stands for several, as 。 cuts them.
void RunSentences(Statement& statement);

}  // namespace velm
