// The operations of the bytecode.
#include "core/bytecode_machine.h"

#include <type_traits>
#include <utility>

#include "core/compiled_comparison.h"
#include "core/conditions.h"
#include "core/eval.h"
#include "core/execute.h"
#include "core/hooks.h"
#include "core/if_blocks.h"
#include "core/number_node.h"
#include "core/procedures.h"
#include "core/short_roads.h"
#include "core/temporary_sentence.h"
#include "data/failure.h"
#include "data/numbers.h"

namespace velm {

Value Frame::noVariable;

inline void Frame::FillSlotsInline() {
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

void Frame::FillSlots() { FillSlotsInline(); }

namespace {

bool IsQuiet() { return !run.AnySet() && !run.StopFlag; }

const Op* OpAt(const Frame& frame, int index) {
    return &frame.code.ops[static_cast<std::size_t>(index)];
}

const CodeLine& LineAt(const Frame& frame, int index) {
    return frame.code.lines[static_cast<std::size_t>(index)];
}

const Op* Stop(Frame& frame, CodeResult::End end, std::int32_t line) {
    frame.result = {end, line};
    return nullptr;
}

// What the walk over a block does at its end, when another one has run within it.
void FinishBlock(const CodeLine& head) {
    if (run.StopFlag) return;
    run.IfBreakFlag = false;
    run.CurLine = head.last;
    run.JumpFlag = true;
}

// The told rule has run a line and left a flag behind, or none: finds out where to go on. Level by level the
// walk over lines goes on, until a block is behind us as the machine would have left it.
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

[[gnu::noinline]] const Op* RunByRule(const CodeLine& line, Frame& frame) {
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

[[gnu::noinline]] const Op* Decline(const Op& op, Frame& frame) {
    return RunByRule(LineAt(frame, op.line), frame);
}

template <OperandMode mode>
inline bool Get(const Op& op, int index, const Frame& frame, double& number) {
    if constexpr (mode == OperandMode::kSlot) {
        return frame.slots[static_cast<std::size_t>(index)]->IsPlainNumber(number);
    } else if constexpr (mode == OperandMode::kRegister) {
        number = frame.registers[static_cast<std::size_t>(index)];
    } else {
        number = op.number;
    }
    return true;
}

inline Value* SlotOf(const Frame& frame, int index) {
    return frame.slots[static_cast<std::size_t>(index)];
}

template <Operator o, OperandMode a, OperandMode b>
const Op* ArithmeticOp(const Op& op, Frame& frame) {
    double left = 0;
    double right = 0;
    if (!Get<a>(op, op.a, frame, left) || !Get<b>(op, op.b, frame, right)) return Decline(op, frame);
    frame.registers[static_cast<std::size_t>(op.c)] = Apply(o, left, right);
    return &op + 1;
}

template <Operator o, OperandMode a, OperandMode b>
const Op* ArithmeticToSlotOp(const Op& op, Frame& frame) {
    double left = 0;
    double right = 0;
    Value* place = SlotOf(frame, op.c);
    if (!Get<a>(op, op.a, frame, left) || !Get<b>(op, op.b, frame, right)) return Decline(op, frame);
    if (place == &Frame::noVariable) return Decline(op, frame);
    place->SetHeldNumber(RoundResult(Apply(o, left, right)));
    return &op + 1;
}

template <OperandMode a>
const Op* StoreOp(const Op& op, Frame& frame) {
    double number = 0;
    Value* place = SlotOf(frame, op.c);
    if (!Get<a>(op, op.a, frame, number) || place == &Frame::noVariable) return Decline(op, frame);
    place->SetHeldNumber(RoundResult(number));
    return &op + 1;
}

template <OperandMode a>
const Op* LoadOp(const Op& op, Frame& frame) {
    double& number = frame.registers[static_cast<std::size_t>(op.c)];
    return Get<a>(op, op.a, frame, number) ? &op + 1 : Decline(op, frame);
}

const Op* CopyConstantOp(const Op& op, Frame& frame) {
    Value* place = SlotOf(frame, op.c);
    if (place == &Frame::noVariable) return Decline(op, frame);
    *place = *op.constant;
    return &op + 1;
}

const Op* CopySlotOp(const Op& op, Frame& frame) {
    Value* place = SlotOf(frame, op.c);
    const Value* value = SlotOf(frame, op.a);
    if (place == &Frame::noVariable || value == &Frame::noVariable) return Decline(op, frame);
    *place = *value;
    return &op + 1;
}

const Op* RoundOp(const Op& op, Frame& frame) {
    frame.registers[static_cast<std::size_t>(op.c)] =
        RoundResult(frame.registers[static_cast<std::size_t>(op.a)]);
    return &op + 1;
}

[[gnu::noinline]] const Op* TestByRule(const Op& op, Frame& frame) {
    const CodeLine& line = LineAt(frame, op.line);
    const IfPlan& plan = *op.data->condition;
    run.CurLine = op.data->lineNumber;
    const bool result = EvalConditionList(plan.condition);
    if (IsQuiet()) {
        frame.Refresh();
        return OpAt(frame, result ? op.data->onTrue : op.data->onFalse);
    }
    // A word has set a flag.
    if (!Attempt([&] { ChooseBranch(plan, result); })) {
        pendingFailure.Clear();
    } else if (op.data->lineNumber != line.number) {
        FinishBlock(line);
    }
    return GoOnBehind(frame, &line);
}

const Op* TestOp(const Op& op, Frame& frame) {
    bool result = false;
    if (op.data->comparison == nullptr || !op.data->comparison->Try(result)) {
        return TestByRule(op, frame);
    }
    return OpAt(frame, result ? op.data->onTrue : op.data->onFalse);
}

template <int code>
inline bool Holds(double left, double right) {
    return velm::CompareNumbers(code, left, right);
}

template <int code, OperandMode a, OperandMode b>
const Op* CompareOp(const Op& op, Frame& frame) {
    double left = 0;
    double right = 0;
    if (!Get<a>(op, op.a, frame, left) || !Get<b>(op, op.b, frame, right)) return TestOp(op, frame);
    return Holds<code>(left, right) ? &op + 1 : OpAt(frame, op.c);
}

// Where an index points to, from 0; false for all that is no whole number from 1 on.
inline bool ToPosition(double number, std::size_t& position) {
    constexpr double kLimit = 2147483647;
    if (!(number >= 1 && number <= kLimit)) return false;
    const auto whole = static_cast<std::int32_t>(number);
    position = static_cast<std::size_t>(whole) - 1;
    return whole == number;
}

template <OperandMode mode>
inline bool GetPosition(const Op& op, int index, const Frame& frame, std::size_t& position) {
    double number = 0;
    return Get<mode>(op, index, frame, number) && ToPosition(number, position);
}

// The cells' operations: the table is slot b; the index is a, of a row it is data->onTrue.

template <OperandMode index>
const Op* ReadCellOp(const Op& op, Frame& frame) {
    double& number = frame.registers[static_cast<std::size_t>(op.c)];
    const Value& table = *SlotOf(frame, op.b);
    std::size_t position = 0;
    if (GetPosition<index>(op, op.a, frame, position)) {
        return table.TryCellNumber(position, number) ? &op + 1 : Decline(op, frame);
    }
    if constexpr (index == OperandMode::kSlot) {
        if (table.TryEntryNumber(*SlotOf(frame, op.a), number)) return &op + 1;
    }
    return Decline(op, frame);
}

template <OperandMode row, OperandMode column>
const Op* ReadRowCellOp(const Op& op, Frame& frame) {
    std::size_t first = 0;
    std::size_t second = 0;
    double& number = frame.registers[static_cast<std::size_t>(op.c)];
    const bool found = GetPosition<row>(op, op.data->onTrue, frame, first) &&
                       GetPosition<column>(op, op.a, frame, second) &&
                       SlotOf(frame, op.b)->TryRowCellNumber(first, second, number);
    return found ? &op + 1 : Decline(op, frame);
}

template <OperandMode index, OperandMode value>
const Op* StoreCellOp(const Op& op, Frame& frame) {
    double number = 0;
    std::size_t position = 0;
    Value& table = *SlotOf(frame, op.b);
    if (!Get<value>(op, op.c, frame, number)) return Decline(op, frame);
    if (GetPosition<index>(op, op.a, frame, position)) {
        return table.TrySetCellNumber(position, number) ? &op + 1 : Decline(op, frame);
    }
    if constexpr (index == OperandMode::kSlot) {
        if (table.TrySetEntryNumber(*SlotOf(frame, op.a), number)) return &op + 1;
    }
    return Decline(op, frame);
}

template <OperandMode row, OperandMode column>
const Op* StoreRowCellOp(const Op& op, Frame& frame) {
    std::size_t first = 0;
    std::size_t second = 0;
    const double number = frame.registers[static_cast<std::size_t>(op.c)];
    const bool stored = GetPosition<row>(op, op.data->onTrue, frame, first) &&
                        GetPosition<column>(op, op.a, frame, second) &&
                        SlotOf(frame, op.b)->TrySetRowCellNumber(first, second, number);
    return stored ? &op + 1 : Decline(op, frame);
}

// What a word throws ends the line; a flag that it sets is for those to see who come to the end of the line.
template <class Step>
inline const Op* RunWord(const Op& op, Frame& frame, Step step) {
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
    double& result = frame.registers[static_cast<std::size_t>(op.c)];
    if (op.b >= 0 && SlotOf(frame, op.b)->IsPlainNumber(result)) return &op + 1;
    return RunWord(op, frame, [&] { result = EvalCall(op.data->word).NumberOrZero(); });
}

const Op* CallWordOp(const Op& op, Frame& frame) {
    const OpData& data = *op.data;
    double& result = frame.registers[static_cast<std::size_t>(op.c)];
    return RunWord(op, frame, [&] {
        const bool called = SlotOf(frame, op.b) == &Frame::noVariable && data.call->Run();
        result = called ? run.Response.NumberOrZero() : EvalWord(data.word).NumberOrZero();
    });
}

// The end of a line in which words may have run anything.
inline const Op* EndLine(const Op& op, Frame& frame) {
    if (pendingFailure.IsSet()) pendingFailure.Clear();
    if (!IsQuiet()) [[unlikely]] return GoOnBehind(frame, &LineAt(frame, op.line));
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
    const double number = RoundResult(frame.registers[static_cast<std::size_t>(op.a)]);
    Value* place = SlotOf(frame, op.c);
    if (place != &Frame::noVariable) [[likely]] {
        place->SetHeldNumber(number);
    } else {
        StoreNumber(*op.data->target, number);
    }
    return EndLine(op, frame);
}

const Op* JumpOp(const Op& op, Frame& frame) { return OpAt(frame, op.a); }

const Op* RunLineOp(const Op& op, Frame& frame) {
    return RunByRule(LineAt(frame, op.line), frame);
}

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
    if (IsQuiet()) [[likely]] return OpAt(frame, level.behind);
    if (!run.StopFlag) run.JumpFlag = true;
    return GoOnBehind(frame, &LineAt(frame, level.head));
}

// Makes all passes that are left of a loop by the walk over lines.
const Op* WalkPasses(const CodeLevel& level, Frame& frame) {
    const LoopState& state = frame.loops[static_cast<std::size_t>(level.state)];
    const bool done = Attempt(
        [&] { WalkLoop(*level.loop, state, frame.program, level.first, level.first); });
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
    if (!IsQuiet() || op.b == ops::kCounterByRule) [[unlikely]] return EndPassByRule(op, frame);
    if (op.b != ops::kNoCounter) {
        double before = 0;
        Value* counter = SlotOf(frame, op.b);
        if (!counter->IsPlainNumber(before)) [[unlikely]] return EndPassByRule(op, frame);
        counter->SetHeldNumber(RoundToText(before + 1));
        if (state.forever && before == state.limit) return BehindLoop(LevelOf(op, frame), frame);
    }
    ++state.pass;
    if (state.forever || state.pass < state.count) [[likely]] return &op - op.d;
    return BehindLoop(LevelOf(op, frame), frame);
}

const Op* LeaveLoopOp(const Op& op, Frame& frame) {
    run.CurrentStatement = op.data->statement;
    run.LoopBreakFlag = true;
    return OpAt(frame, LevelOf(op, frame).passEnd);
}

// Response is set: leaves the procedure. A flag that a word has set is for the walks around it to see.
const Op* LeaveProcedure(const Op& op, Frame& frame) {
    if (IsQuiet()) [[likely]] return Stop(frame, CodeResult::End::kReturned, 0);
    run.ReturnFlag = true;
    return GoOnBehind(frame, &LineAt(frame, op.line));
}

const Op* Return(const Op& op, Frame& frame) {
    if (op.data != nullptr) run.CurrentStatement = op.data->statement;
    return LeaveProcedure(op, frame);
}

const Op* ReturnRegisterOp(const Op& op, Frame& frame) {
    run.Response.SetHeldNumber(
        RoundResult(frame.registers[static_cast<std::size_t>(op.a)]));
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
        const bool called =
            data.call && FindVariable(data.symbol) == nullptr && data.call->Run();
        if (!called) run.Response = EvalWord(data.word);
    });
    if (done) return LeaveProcedure(op, frame);
    pendingFailure.Clear();
    return GoOnBehind(frame, &LineAt(frame, op.line));
}

const Op* EndOp(const Op& op, Frame& frame) {
    return Stop(frame, CodeResult::End::kWalkOn, op.a);
}

// Calls choose with a mode as a constant.
template <class Choose>
OpHandler WithMode(OperandMode mode, Choose choose) {
    switch (mode) {
        case OperandMode::kSlot:
            return choose(std::integral_constant<OperandMode, OperandMode::kSlot>());
        case OperandMode::kRegister:
            return choose(std::integral_constant<OperandMode, OperandMode::kRegister>());
        default: return choose(std::integral_constant<OperandMode, OperandMode::kConstant>());
    }
}

template <class Choose>
OpHandler WithModes(OperandMode a, OperandMode b, Choose choose) {
    return WithMode(a, [&](auto first) {
        return WithMode(b, [&](auto second) { return choose(first, second); });
    });
}

template <Operator o>
using OperatorConstant = std::integral_constant<Operator, o>;

template <class Choose>
OpHandler WithOperator(Operator op, Choose choose) {
    switch (op) {
        case Operator::kAdd: return choose(OperatorConstant<Operator::kAdd>());
        case Operator::kSubtract: return choose(OperatorConstant<Operator::kSubtract>());
        case Operator::kMultiply: return choose(OperatorConstant<Operator::kMultiply>());
        case Operator::kDivide: return choose(OperatorConstant<Operator::kDivide>());
        case Operator::kPower: return choose(OperatorConstant<Operator::kPower>());
        case Operator::kRemainder: return choose(OperatorConstant<Operator::kRemainder>());
        default: return choose(OperatorConstant<Operator::kQuotient>());
    }
}

template <int code>
using CodeConstant = std::integral_constant<int, code>;

template <class Choose>
OpHandler WithComparison(int code, Choose choose) {
    switch (code) {
        case comparison::kEqual: return choose(CodeConstant<comparison::kEqual>());
        case comparison::kNotEqual: return choose(CodeConstant<comparison::kNotEqual>());
        case comparison::kGreater: return choose(CodeConstant<comparison::kGreater>());
        case comparison::kLess: return choose(CodeConstant<comparison::kLess>());
        case comparison::kGreaterOrEqual:
            return choose(CodeConstant<comparison::kGreaterOrEqual>());
        default: return choose(CodeConstant<comparison::kLessOrEqual>());
    }
}

inline void Execute(const Bytecode& code, Frame& frame) {
    frame.FillSlotsInline();
    const Op* op = code.ops.data();
    while (op != nullptr) op = op->run(*op, frame);
}

}  // namespace

namespace ops {

OpHandler Arithmetic(Operator op, OperandMode a, OperandMode b) {
    return WithOperator(op, [&](auto o) {
        return WithModes(a, b, [&](auto first, auto second) -> OpHandler {
            return ArithmeticOp<decltype(o)::value, decltype(first)::value,
                                decltype(second)::value>;
        });
    });
}

OpHandler ArithmeticToSlot(Operator op, OperandMode a, OperandMode b) {
    return WithOperator(op, [&](auto o) {
        return WithModes(a, b, [&](auto first, auto second) -> OpHandler {
            return ArithmeticToSlotOp<decltype(o)::value, decltype(first)::value,
                                      decltype(second)::value>;
        });
    });
}

OpHandler CompareNumbers(int code, OperandMode a, OperandMode b) {
    return WithComparison(code, [&](auto c) {
        return WithModes(a, b, [&](auto first, auto second) -> OpHandler {
            return CompareOp<decltype(c)::value, decltype(first)::value, decltype(second)::value>;
        });
    });
}

OpHandler Store(OperandMode a) {
    return WithMode(a, [](auto m) -> OpHandler { return StoreOp<decltype(m)::value>; });
}

OpHandler Load(OperandMode a) {
    return WithMode(a, [](auto m) -> OpHandler { return LoadOp<decltype(m)::value>; });
}

OpHandler ReadCell(OperandMode index) {
    return WithMode(index, [](auto m) -> OpHandler { return ReadCellOp<decltype(m)::value>; });
}

OpHandler ReadRowCell(OperandMode row, OperandMode column) {
    return WithModes(row, column, [](auto first, auto second) -> OpHandler {
        return ReadRowCellOp<decltype(first)::value, decltype(second)::value>;
    });
}

OpHandler StoreCell(OperandMode index, OperandMode value) {
    return WithModes(index, value, [](auto first, auto second) -> OpHandler {
        return StoreCellOp<decltype(first)::value, decltype(second)::value>;
    });
}

OpHandler StoreRowCell(OperandMode row, OperandMode column) {
    return WithModes(row, column, [](auto first, auto second) -> OpHandler {
        return StoreRowCellOp<decltype(first)::value, decltype(second)::value>;
    });
}

OpHandler CopyConstant() { return CopyConstantOp; }
OpHandler CopySlot() { return CopySlotOp; }
OpHandler Round() { return RoundOp; }
OpHandler TestConditions() { return TestOp; }
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
OpHandler ReturnSlot() { return ReturnSlotOp; }
OpHandler ReturnConstant() { return ReturnConstantOp; }
OpHandler ReturnWord() { return ReturnWordOp; }
OpHandler ReturnNothing() { return ReturnNothingOp; }
OpHandler End() { return EndOp; }

}  // namespace ops

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
