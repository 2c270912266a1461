// Running bytecode, and going on where it can't.
#include "core/bytecode/machine.h"

#include "core/execute.h"
#include "core/if_blocks.h"
#include "core/temporary_sentence.h"
#include "data/failure.h"

namespace velm {

Value Frame::noVariable;

void Frame::FillSlots() {
    if (Locals && Locals.IsShared()) LocalsForChange();
    Scope* scope = Locals.Get();
    Value** slot = slots.data();
    for (const Symbol* symbol : code.symbols) {
        Value* variable = scope == nullptr ? nullptr : scope->Find(symbol);
        if (variable == nullptr) {
            xxCmdData* entry = Globals.Find(symbol);
            variable = entry != nullptr ? &entry->Value : &noVariable;
        }
        *slot++ = variable;
    }
    globals = Globals.Generation();
    locals = scope;
    localCount = scope == nullptr ? 0 : scope->InOrder().size();
}

void FinishBlock(const CodeLine& head) {
    if (run.StopFlag) return;
    run.IfBreakFlag = false;
    run.CurLine = head.last;
    run.JumpFlag = true;
}

const Op* GoOnBehind(Frame& frame, const CodeLine* line) {
    while (true) {
        const std::int32_t at = run.JumpFlag ? run.CurLine : line->number;
        run.JumpFlag = false;
        if (IsQuiet() && at == line->last) {
            frame.Refresh();
            return OpAt(frame, line->next);
        }
        const CodeLevel& level = frame.code.levels[static_cast<std::size_t>(line->level)];
        const bool isRoot = level.parent < 0;
        if (isRoot) return Stop(frame, CodeResult::End::kWalkOn, at + 1);
        const bool done = Attempt([&] {
            if (level.kind == CodeLevel::Kind::kIf) {
                WalkIf(*level.condition, level.first, at + 1);
            } else {
                const LoopState& state = frame.loops[static_cast<std::size_t>(level.state)];
                WalkLoop(*level.loop, state, frame.program, level.first, at + 1);
            }
        });
        line = &LineAt(frame, level.head);
        if (!done) {
            pendingFailure.Clear();
        } else if (level.nested) {
            FinishBlock(*line);
        }
    }
}

const Op* RunByRule(const CodeLine& line, Frame& frame) {
    run.CurLine = line.number;
    if (line.sentence != nullptr) {
        line.sentence->Run();
    } else {
        ExecStatement(*line.statement);
    }
    if (IsQuiet() && line.number == line.last) [[likely]] {
        frame.Refresh();
        return OpAt(frame, line.next);
    }
    return GoOnBehind(frame, &line);
}

const Op* Decline(const Op& op, Frame& frame) { return RunByRule(LineAt(frame, op.line), frame); }

namespace {

inline void Execute(const Bytecode& code, Frame& frame) {
    frame.FillSlots();
    const Op* op = code.ops.data();
    while (op != nullptr) op = op->run(*op, frame);
}

}  // namespace

CodeResult RunCode(const Bytecode& code, const Program& program) {
    Frame frame(code, program);
    Execute(code, frame);
    return frame.result;
}

CodeResult RunCode(const Bytecode& code, const Program& program, LoopState& state) {
    Frame frame(code, program);
    frame.loops[0] = state;
    Execute(code, frame);
    state = frame.loops[0];
    return frame.result;
}

}  // namespace velm
