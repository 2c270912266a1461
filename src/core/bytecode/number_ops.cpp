// Operations on numbers: arithmetic, stores, comparisons, cells.
#include <type_traits>

#include "core/bytecode/machine.h"
#include "core/bytecode/ops.h"
#include "core/cell_index.h"
#include "core/compiled_comparison.h"
#include "core/conditions.h"
#include "core/if_blocks.h"
#include "core/operators.h"
#include "data/failure.h"
#include "data/numbers.h"

namespace velm {

namespace {

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

template <Operator o, OperandMode a, OperandMode b>
const Op* ArithmeticOp(const Op& op, Frame& frame) {
    double left = 0;
    double right = 0;
    if (!Get<a>(op, op.a, frame, left) || !Get<b>(op, op.b, frame, right))
        return Decline(op, frame);
    RegisterOf(frame, op.c) = Apply(o, left, right);
    return &op + 1;
}

template <Operator o, OperandMode a, OperandMode b>
const Op* ArithmeticToSlotOp(const Op& op, Frame& frame) {
    double left = 0;
    double right = 0;
    Value* place = SlotOf(frame, op.c);
    if (!Get<a>(op, op.a, frame, left) || !Get<b>(op, op.b, frame, right))
        return Decline(op, frame);
    if (place == &Frame::noVariable) return Decline(op, frame);
    place->SetHeldNumber(RoundResult(Apply(o, left, right)));
    return &op + 1;
}

template <OperandMode a>
const Op* StoreOp(const Op& op, Frame& frame) {
    double number = 0;
    Value* place = SlotOf(frame, op.c);
    if (!Get<a>(op, op.a, frame, number) || place == &Frame::noVariable) return Decline(op, frame);
    place->SetHeldNumber(number);
    return &op + 1;
}

template <OperandMode a>
const Op* LoadOp(const Op& op, Frame& frame) {
    double& number = RegisterOf(frame, op.c);
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
    RegisterOf(frame, op.c) = RoundResult(RegisterOf(frame, op.a));
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

template <OperandMode mode>
inline bool GetPosition(const Op& op, int index, const Frame& frame, std::size_t& position) {
    double number = 0;
    return Get<mode>(op, index, frame, number) && ToPosition(number, position);
}

// The cells' operations: the table is slot b; the index is a, of a row it is data->onTrue.

template <OperandMode index>
const Op* ReadCellOp(const Op& op, Frame& frame) {
    double& number = RegisterOf(frame, op.c);
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
    double& number = RegisterOf(frame, op.c);
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
    const double number = RegisterOf(frame, op.c);
    const bool stored = GetPosition<row>(op, op.data->onTrue, frame, first) &&
                        GetPosition<column>(op, op.a, frame, second) &&
                        SlotOf(frame, op.b)->TrySetRowCellNumber(first, second, number);
    return stored ? &op + 1 : Decline(op, frame);
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

}  // namespace ops

}  // namespace velm
