// Operations that run words and lines: what is left to the told rule, loops, and leaving a procedure.
#include <utility>

#include "core/bytecode/machine.h"
#include "core/bytecode/ops.h"
#include "core/eval.h"
#include "core/hooks.h"
#include "core/procedures.h"
#include "data/failure.h"
#include "data/numbers.h"

namespace velm {

namespace {

// What a word throws ends the line; a flag that it sets is for those to see who come to the end of the line.
template <class Step>
inline const Op* RunWord(const Op& op, Frame& frame, Step step) {
    // A word before this one may have stopped the run; the place of the stop is to be told.
    if (!run.StopFlag) [[likely]]
        run.CurLine = LineAt(frame, op.line).number;
    if (op.data->statement) run.CurrentStatement = op.data->statement;
    if (!Attempt(step)) {
        pendingFailure.Clear();
        return GoOnBehind(frame, &LineAt(frame, op.line));
    }
    frame.Refresh();
    return &op + 1;
}

const Op* LoadWordOp(const Op& op, Frame& frame) {
    double& result = RegisterOf(frame, op.c);
    if (op.b >= 0 && SlotOf(frame, op.b)->IsPlainNumber(result)) return &op + 1;
    return RunWord(op, frame, [&] { result = EvalCall(op.data->word).NumberOrZero(); });
}

const Op* CallWordOp(const Op& op, Frame& frame) {
    const OpData& data = *op.data;
    double& result = RegisterOf(frame, op.c);
    return RunWord(op, frame, [&] {
        const bool called = FindVariable(data.symbol) == nullptr && data.call->Run();
        result = called ? run.Response.NumberOrZero() : EvalWord(data.word).NumberOrZero();
    });
}

// The end of a line in which words may have run anything.
inline const Op* EndLine(const Op& op, Frame& frame) {
    if (pendingFailure.IsSet()) pendingFailure.Clear();
    if (!IsQuiet()) [[unlikely]]
        return GoOnBehind(frame, &LineAt(frame, op.line));
    frame.Refresh();
    return &op + 1;
}

// What AssignWord does, for words that the operations on numbers don't know.
const Op* AssignWordOp(const Op& op, Frame& frame) {
    const OpData& data = *op.data;
    const CodeLine& line = LineAt(frame, op.line);
    run.CurLine = line.number;
    Attempt([&] {
        if (data.action && data.action->Run(*line.statement)) return;
        if (data.call && FindVariable(data.symbol) == nullptr && data.call->Run()) {
            SetVariable(*data.target, run.Response);
        } else if (op.b != 0) {
            SetVariable(*data.target, EvalCall(data.word));
        } else {
            Word word = data.word;
            AssignWord(*data.target, word);
        }
    });
    return EndLine(op, frame);
}

const Op* StoreByRuleOp(const Op& op, Frame& frame) {
    const double number = RoundResult(RegisterOf(frame, op.a));
    Value* place = SlotOf(frame, op.c);
    if (place != &Frame::noVariable) [[likely]] {
        place->SetHeldNumber(number);
    } else {
        StoreNumber(*op.data->target, number);
    }
    return EndLine(op, frame);
}

const Op* JumpOp(const Op& op, Frame& frame) { return OpAt(frame, op.a); }

const Op* RunLineOp(const Op& op, Frame& frame) { return RunByRule(LineAt(frame, op.line), frame); }

const Op* CheckBindingOp(const Op& op, Frame& frame) {
    const bool bound = op.data->commands == Commands.Generation() &&
                       op.data->procedures == Procedures.Generation();
    if (!bound) return RunByRule(LineAt(frame, op.line), frame);
    run.Response = Value();
    return &op + 1;
}

const CodeLevel& LevelOf(const Op& op, const Frame& frame) {
    return frame.code.levels[static_cast<std::size_t>(op.a)];
}

// Behind a loop: the flag that left it is done with, and what stands around it is looked at.
const Op* BehindLoop(const CodeLevel& level, Frame& frame) {
    run.LoopBreakFlag = false;
    run.CurLine = level.end;
    if (level.parent < 0) return Stop(frame, CodeResult::End::kDone, level.end);
    if (IsQuiet()) [[likely]]
        return OpAt(frame, level.behind);
    if (!run.StopFlag) run.JumpFlag = true;
    return GoOnBehind(frame, &LineAt(frame, level.head));
}

// Makes all passes that are left of a loop by the walk over lines.
const Op* WalkPasses(const CodeLevel& level, Frame& frame) {
    const LoopState& state = frame.loops[static_cast<std::size_t>(level.state)];
    const bool done =
        Attempt([&] { WalkLoop(*level.loop, state, frame.program, level.first, level.first); });
    if (!done) pendingFailure.Clear();
    return GoOnBehind(frame, &LineAt(frame, level.head));
}

const Op* BeginLoopOp(const Op& op, Frame& frame) {
    const CodeLevel& level = LevelOf(op, frame);
    const CodeLine& head = LineAt(frame, level.head);
    LoopState& state = frame.loops[static_cast<std::size_t>(level.state)];
    run.CurLine = head.number;
    run.CurrentStatement = head.statement;
    const bool done = Attempt([&] { state = velm::BeginLoop(*level.loop); });
    if (pendingFailure.IsSet()) pendingFailure.Clear();
    if (!done) return GoOnBehind(frame, &head);
    const bool hasPass = state.forever || state.count > 0;
    if (IsQuiet() && hasPass) [[likely]] {
        frame.Refresh();
        return &op + 1;
    }
    if (hasPass) return WalkPasses(level, frame);  // a word has set a flag
    // Kept: with a negative count the run goes on from the start.
    run.CurLine = state.count < 0 ? 0 : level.end;
    run.LoopBreakFlag = false;
    if (!run.StopFlag) run.JumpFlag = true;
    return GoOnBehind(frame, &head);
}

// What stands between two passes, for whatever counter and flags.
[[gnu::noinline]] const Op* EndPassByRule(const Op& op, Frame& frame) {
    const CodeLevel& level = LevelOf(op, frame);
    LoopState& state = frame.loops[static_cast<std::size_t>(op.c)];
    if (IsLeavingLoop()) return BehindLoop(level, frame);
    bool more = false;
    const auto count = [&] { more = CountPass(*level.loop, state); };
    if (level.parent < 0) {
        count();
    } else if (!Attempt(count)) {
        // The sentence of the loop has failed, and the run goes on behind it.
        pendingFailure.Clear();
        return GoOnBehind(frame, &LineAt(frame, level.head));
    }
    frame.Refresh();
    ++state.pass;
    if (!more || !(state.forever || state.pass < state.count)) return BehindLoop(level, frame);
    if (IsQuiet()) return &op - op.d;
    // The next pass begins with a flag.
    if (level.parent < 0) return Stop(frame, CodeResult::End::kWalkOn, level.first);
    return WalkPasses(level, frame);
}

const Op* EndPassOp(const Op& op, Frame& frame) {
    LoopState& state = frame.loops[static_cast<std::size_t>(op.c)];
    run.CurLine = op.line;
    if (state.forever && hooks.PumpEvents != nullptr) {
        hooks.PumpEvents();
        frame.Refresh();
    }
    if (!IsQuiet() || op.b == ops::kCounterByRule) [[unlikely]]
        return EndPassByRule(op, frame);
    if (op.b != ops::kNoCounter) {
        double before = 0;
        Value* counter = SlotOf(frame, op.b);
        if (!counter->IsPlainNumber(before)) [[unlikely]]
            return EndPassByRule(op, frame);
        counter->SetHeldNumber(RoundToText(before + 1));
        if (state.forever && before == state.limit) return BehindLoop(LevelOf(op, frame), frame);
    }
    ++state.pass;
    if (state.forever || state.pass < state.count) [[likely]]
        return &op - op.d;
    return BehindLoop(LevelOf(op, frame), frame);
}

const Op* LeaveLoopOp(const Op& op, Frame& frame) {
    run.CurrentStatement = op.data->statement;
    run.LoopBreakFlag = true;
    return OpAt(frame, LevelOf(op, frame).passEnd);
}

// Response is set: leaves the procedure. A flag that a word has set is for the walks around it to see.
const Op* LeaveProcedure(const Op& op, Frame& frame) {
    if (IsQuiet()) [[likely]]
        return Stop(frame, CodeResult::End::kReturned, 0);
    run.ReturnFlag = true;
    return GoOnBehind(frame, &LineAt(frame, op.line));
}

const Op* Return(const Op& op, Frame& frame) {
    if (op.data != nullptr) run.CurrentStatement = op.data->statement;
    return LeaveProcedure(op, frame);
}

const Op* ReturnRegisterOp(const Op& op, Frame& frame) {
    run.Response.SetHeldNumber(RegisterOf(frame, op.a));
    return Return(op, frame);
}

const Op* ReturnSumOp(const Op& op, Frame& frame) {
    run.Response.SetHeldNumber(RoundResult(RegisterOf(frame, op.a)));
    return Return(op, frame);
}

const Op* ReturnSlotOp(const Op& op, Frame& frame) {
    const Value* value = SlotOf(frame, op.a);
    if (value == &Frame::noVariable) return Decline(op, frame);
    run.Response = *value;
    return Return(op, frame);
}

const Op* ReturnConstantOp(const Op& op, Frame& frame) {
    run.Response = *op.constant;
    return Return(op, frame);
}

const Op* ReturnNothingOp(const Op& op, Frame& frame) { return Return(op, frame); }

const Op* ReturnWordOp(const Op& op, Frame& frame) {
    const OpData& data = *op.data;
    run.CurLine = LineAt(frame, op.line).number;
    run.CurrentStatement = data.statement;
    const bool done = Attempt([&] {
        const bool called = data.call && FindVariable(data.symbol) == nullptr && data.call->Run();
        if (!called) run.Response = EvalWord(data.word);
    });
    if (done) return LeaveProcedure(op, frame);
    pendingFailure.Clear();
    return GoOnBehind(frame, &LineAt(frame, op.line));
}

const Op* EndOp(const Op& op, Frame& frame) { return Stop(frame, CodeResult::End::kWalkOn, op.a); }

}  // namespace

namespace ops {

OpHandler LoadWord() { return LoadWordOp; }
OpHandler CallWord() { return CallWordOp; }
OpHandler StoreByRule() { return StoreByRuleOp; }
OpHandler AssignWord() { return AssignWordOp; }
OpHandler Jump() { return JumpOp; }
OpHandler RunLine() { return RunLineOp; }
OpHandler CheckBinding() { return CheckBindingOp; }
OpHandler BeginLoop() { return BeginLoopOp; }
OpHandler EndPass() { return EndPassOp; }
OpHandler LeaveLoop() { return LeaveLoopOp; }
OpHandler ReturnRegister() { return ReturnRegisterOp; }
OpHandler ReturnSum() { return ReturnSumOp; }
OpHandler ReturnSlot() { return ReturnSlotOp; }
OpHandler ReturnConstant() { return ReturnConstantOp; }
OpHandler ReturnWord() { return ReturnWordOp; }
OpHandler ReturnNothing() { return ReturnNothingOp; }
OpHandler End() { return EndOp; }

}  // namespace ops

}  // namespace velm
