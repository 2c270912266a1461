// Compiling words: sums, cells, and what runs something.
#include <algorithm>
#include <utility>

#include "core/bytecode/compiler.h"
#include "core/procedures.h"
#include "core/variables.h"

namespace velm {

bool Compiler::IsPure(const Word& word, int depth) {
    constexpr int kDeepestWord = 8;
    if (word.IsEmpty() || depth > kDeepestWord) return false;
    const WordPlan& plan = word.Plan();
    double number = 0;
    switch (plan.kind) {
        case PlanKind::kNumber: return plan.constant.IsPlainNumber(number);
        case PlanKind::kArithmetic: return IsPureSum(*plan.expression, depth + 1);
        case PlanKind::kName:
            return plan.symbol != nullptr &&
                   (FindVariable(plan.symbol) != nullptr ||
                    (plan.Function().function == nullptr && plan.AnswerWord() == nullptr));
        case PlanKind::kCall: {
            const std::vector<Word>& index = plan.arguments.Pieces();
            return FindVariable(plan.symbol) != nullptr && !index.empty() && index.size() <= 2 &&
                   std::all_of(index.begin(), index.end(),
                               [&](const Word& each) { return IsPure(each, depth + 1); });
        }
        default: return false;
    }
}

bool Compiler::IsPureSum(const Expression& expression, int depth) {
    return std::all_of(expression.steps.begin(), expression.steps.end(), [&](const auto& step) {
        return step.kind != ExpressionStep::Kind::kWord || IsPure(step.word, depth);
    });
}

template <class Operands>
CodeOperand Compiler::Sum(const Expression& expression, int line, std::optional<int> slot,
                          Operands operandOf) {
    constexpr std::size_t kMostSteps = 200;
    if (!expression.sound || expression.steps.size() > kMostSteps) throw NotCompiled();
    std::vector<CodeOperand> operands;
    for (std::size_t i = 0; i < expression.steps.size(); ++i) {
        const ExpressionStep& step = expression.steps[i];
        if (step.kind == ExpressionStep::Kind::kNumber) {
            operands.push_back({OperandMode::kConstant, 0, step.number});
            continue;
        }
        if (step.kind == ExpressionStep::Kind::kWord) {
            operands.push_back(operandOf(step.word));
            continue;
        }
        CodeOperand right = operands.back();
        operands.pop_back();
        CodeOperand& left = operands.back();
        if (left.mode == OperandMode::kConstant && right.mode == OperandMode::kConstant) {
            left = InRegister(left, line);
        }
        const bool last = slot && i + 1 == expression.steps.size();
        int to = last ? *slot : 0;
        if (!last) to = left.mode == OperandMode::kRegister ? left.index : Register();
        Op& op = Emit(last ? ops::ArithmeticToSlot(step.op, left.mode, right.mode)
                           : ops::Arithmetic(step.op, left.mode, right.mode),
                      line);
        op.a = left.index;
        op.b = right.index;
        op.c = to;
        op.number = left.mode == OperandMode::kConstant ? left.number : right.number;
        left = {OperandMode::kRegister, to, 0};
        if (last) return left;
    }
    if (slot) {
        const CodeOperand sum = Rounded(InRegister(operands.back(), line), line);
        Op& op = Emit(ops::Store(sum.mode), line);
        op.a = sum.index;
        op.c = *slot;
    }
    return operands.back();
}

CodeOperand Compiler::InRegister(CodeOperand operand, int line) {
    if (operand.mode == OperandMode::kRegister) return operand;
    Op& op = Emit(ops::Load(operand.mode), line);
    op.a = operand.index;
    op.c = Register();
    op.number = operand.number;
    return {OperandMode::kRegister, op.c, 0};
}

CodeOperand Compiler::Rounded(CodeOperand operand, int line) {
    if (operand.mode != OperandMode::kRegister) return operand;
    Op& op = Emit(ops::Round(), line);
    op.a = op.c = operand.index;
    return operand;
}

CodeOperand Compiler::PureSum(const Expression& expression, int line, std::optional<int> slot) {
    return Sum(expression, line, slot, [&](const Word& word) { return Pure(word, line); });
}

CodeOperand Compiler::Pure(const Word& word, int line) {
    if (!IsPure(word, 0)) throw NotCompiled();
    const WordPlan& plan = word.Plan();
    double number = 0;
    switch (plan.kind) {
        case PlanKind::kNumber:
            plan.constant.IsPlainNumber(number);
            return {OperandMode::kConstant, 0, number};
        case PlanKind::kName: return {OperandMode::kSlot, Slot(plan.symbol), 0};
        case PlanKind::kCall: return Cell(plan, line);
        default: return Rounded(PureSum(*plan.expression, line), line);
    }
}

CodeOperand Compiler::Cell(const WordPlan& plan, int line) {
    const std::vector<Word>& index = plan.arguments.Pieces();
    CodeOperand first = Pure(index[0], line);
    const bool isRow = index.size() == 2;
    CodeOperand second;
    if (isRow) {
        if (first.mode == OperandMode::kConstant) first = InRegister(first, line);
        second = Pure(index[1], line);
        if (second.mode == OperandMode::kConstant) second = InRegister(second, line);
    }
    const int to = Register();
    const int table = Slot(plan.symbol);
    Op& op =
        Emit(isRow ? ops::ReadRowCell(first.mode, second.mode) : ops::ReadCell(first.mode), line);
    op.a = isRow ? second.index : first.index;
    op.b = table;
    op.c = to;
    op.number = first.number;
    if (isRow) AddData(op).onTrue = first.index;
    return {OperandMode::kRegister, to, 0};
}

CodeOperand Compiler::Load(const Word& word, int line, const StatementPtr& statement) {
    const WordPlan& plan = word.Plan();
    const bool calls = plan.kind == PlanKind::kCall && plan.IsLeftToProcedures();
    const bool isName = plan.kind == PlanKind::kName && plan.symbol != nullptr && !statement;
    const int slot = isName ? Slot(plan.symbol) : -1;
    const int to = Register();
    Op& op = Emit(calls ? ops::CallWord() : ops::LoadWord(), line);
    op.b = slot;
    op.c = to;
    OpData& data = AddData(op);
    data.word = word;
    data.symbol = plan.symbol;
    data.statement = statement;
    if (calls) data.call = std::make_shared<const WordCall>(plan);
    return {OperandMode::kRegister, to, 0};
}

CodeOperand Compiler::AnySum(const Expression& expression, int line, StatementPtr statement) {
    return Sum(expression, line, {}, [&](const Word& word) {
        return Load(word, line, std::exchange(statement, StatementPtr()));
    });
}

}  // namespace velm
