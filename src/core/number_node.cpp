// The nodes of compiled numbers, and their making.
#include "core/number_node.h"

#include <utility>
#include <variant>
#include <vector>

#include "core/cell_index.h"
#include "core/eval.h"
#include "core/expression.h"
#include "core/operators.h"
#include "core/procedures.h"
#include "core/run_state.h"
#include "core/short_roads.h"
#include "core/variables.h"
#include "core/word_plan.h"
#include "data/numbers.h"

namespace velm {

namespace {

constexpr std::size_t kMostSteps = 200;
constexpr int kDeepest = 8;

struct ConstantOperand {
    double number;

    double Number() const { return number; }
    bool Try(double& result) const {
        result = number;
        return true;
    }
};

// A bare name, which most often is a variable.
struct NameOperand {
    Symbol* symbol;
    Word word;

    double Number() const {
        const Value* variable = FindVariable(symbol);
        double number = 0;
        if (variable != nullptr && variable->IsPlainNumber(number)) return number;
        return Unusual(variable);
    }
    bool Try(double& result) const {
        const Value* variable = FindVariable(symbol);
        return variable != nullptr && variable->IsPlainNumber(result);
    }

  private:
    [[gnu::noinline]] double Unusual(const Value* variable) const {
        return variable != nullptr ? variable->NumberOrZero() : EvalWord(word).NumberOrZero();
    }
};

struct NodeOperand {
    NumberNodePtr node;

    double Number() const { return node->Number(); }
    bool Try(double& result) const { return node->Try(result); }
};

using Operand = std::variant<ConstantOperand, NameOperand, NodeOperand>;

template <class Single>
class SingleNode : public NumberNode {
  public:
    explicit SingleNode(Single operand) : operand_(std::move(operand)) {}
    double Number() const override { return operand_.Number(); }
    bool Try(double& number) const override { return operand_.Try(number); }

  private:
    Single operand_;
};

template <Operator op, class Left, class Right>
class OperatorNode : public NumberNode {
  public:
    OperatorNode(Left left, Right right) : left_(std::move(left)), right_(std::move(right)) {}
    double Number() const override {
        const double left = left_.Number();
        return Apply(op, left, right_.Number());
    }
    bool Try(double& number) const override {
        double left = 0;
        double right = 0;
        if (!left_.Try(left) || !right_.Try(right)) return false;
        number = Apply(op, left, right);
        return true;
    }

  private:
    Left left_;
    Right right_;
};

// A name, an operator and a number: the most frequent sum, as a whole word and so rounded.
template <Operator op>
class StepNode : public NumberNode {
  public:
    StepNode(NameOperand name, double number) : name_(std::move(name)), number_(number) {}
    double Number() const override { return RoundResult(Apply(op, name_.Number(), number_)); }
    bool Try(double& number) const override {
        if (!name_.Try(number)) return false;
        number = RoundResult(Apply(op, number, number_));
        return true;
    }

  private:
    NameOperand name_;
    double number_;
};

// An arithmetic word as a whole: its result is rounded.
class RoundedNode : public NumberNode {
  public:
    explicit RoundedNode(NumberNodePtr sum) : sum_(std::move(sum)) {}
    double Number() const override { return RoundResult(sum_->Number()); }
    bool Try(double& number) const override {
        if (!sum_->Try(number)) return false;
        number = RoundResult(number);
        return true;
    }

  private:
    NumberNodePtr sum_;
};

// Any word that the others don't stand for.
class WordNode : public NumberNode {
  public:
    explicit WordNode(Word word) : word_(std::move(word)) {}
    double Number() const override { return EvalWord(word_).NumberOrZero(); }
    bool Try(double& /*number*/) const override { return false; }

  private:
    Word word_;
};

// A name with something in brackets behind it: a cell of a table, a call of a procedure or function.
class CallNode : public NumberNode {
  public:
    CallNode(const Word& word, const WordPlan& plan, int depth)
        : word_(word),
          symbol_(plan.symbol),
          index_(plan.arguments.Pieces(), depth),
          depth_(depth),
          isCall_(plan.IsLeftToProcedures()) {}

    double Number() const override {
        double number = 0;
        const Value* table = FindVariable(symbol_);
        if (table != nullptr && index_.Read(*table, number)) return number;
        if (table == nullptr && isCall_ && Call().Run()) return run.Response.NumberOrZero();
        return EvalCall(word_).NumberOrZero();
    }
    bool Try(double& number) const override {
        const Value* table = FindVariable(symbol_);
        return table != nullptr && index_.Read(*table, number);
    }

  private:
    Word word_;
    Symbol* symbol_;
    CellIndex index_;
    int depth_;
    bool isCall_;  // a procedure's, unless a variable has the name
    mutable std::unique_ptr<const WordCall> call_;

    const WordCall& Call() const {
        if (!call_) call_ = std::make_unique<const WordCall>(word_.Plan(), depth_);
        return *call_;
    }
};

template <Operator op>
NumberNodePtr MakeOperator(Operand left, Operand right) {
    return std::visit(
        [](auto&& a, auto&& b) -> NumberNodePtr {
            using Left = std::decay_t<decltype(a)>;
            using Right = std::decay_t<decltype(b)>;
            return std::make_unique<OperatorNode<op, Left, Right>>(std::move(a), std::move(b));
        },
        std::move(left), std::move(right));
}

NumberNodePtr MakeOperator(Operator op, Operand left, Operand right) {
    switch (op) {
        case Operator::kAdd: return MakeOperator<Operator::kAdd>(std::move(left), std::move(right));
        case Operator::kSubtract:
            return MakeOperator<Operator::kSubtract>(std::move(left), std::move(right));
        case Operator::kMultiply:
            return MakeOperator<Operator::kMultiply>(std::move(left), std::move(right));
        case Operator::kDivide:
            return MakeOperator<Operator::kDivide>(std::move(left), std::move(right));
        case Operator::kPower:
            return MakeOperator<Operator::kPower>(std::move(left), std::move(right));
        case Operator::kRemainder:
            return MakeOperator<Operator::kRemainder>(std::move(left), std::move(right));
        default: return MakeOperator<Operator::kQuotient>(std::move(left), std::move(right));
    }
}

NumberNodePtr NodeOf(Operand operand) {
    if (auto* node = std::get_if<NodeOperand>(&operand)) return std::move(node->node);
    return std::visit(
        [](auto&& single) -> NumberNodePtr {
            using Single = std::decay_t<decltype(single)>;
            return std::make_unique<SingleNode<Single>>(std::move(single));
        },
        std::move(operand));
}

NumberNodePtr CompileSteps(const Expression& expression, int depth);

// name＋number and name－number; nullptr for any other word.
NumberNodePtr CompileStep(const Expression& expression) {
    const std::vector<ExpressionStep>& steps = expression.steps;
    const bool shape = expression.sound && steps.size() == 3 &&
                       steps[0].kind == ExpressionStep::Kind::kWord &&
                       steps[1].kind == ExpressionStep::Kind::kNumber;
    if (!shape) return nullptr;
    const WordPlan& plan = steps[0].word.Plan();
    if (plan.kind != PlanKind::kName || plan.symbol == nullptr) return nullptr;
    NameOperand name{plan.symbol, steps[0].word};
    if (steps[2].op == Operator::kAdd) {
        return std::make_unique<StepNode<Operator::kAdd>>(std::move(name), steps[1].number);
    }
    if (steps[2].op != Operator::kSubtract) return nullptr;
    return std::make_unique<StepNode<Operator::kSubtract>>(std::move(name), steps[1].number);
}

Operand CompileOperand(const Word& word, int depth) {
    if (word.IsEmpty() || depth > kDeepest) return NodeOperand{std::make_unique<WordNode>(word)};
    const WordPlan& plan = word.Plan();
    double number = 0;
    switch (plan.kind) {
        case PlanKind::kNumber:
            if (plan.constant.IsPlainNumber(number)) return ConstantOperand{number};
            break;
        case PlanKind::kName:
            if (plan.symbol != nullptr) return NameOperand{plan.symbol, word};
            break;
        case PlanKind::kCall:
            if (plan.symbol == nullptr || plan.arguments.IsEmpty()) break;
            return NodeOperand{std::make_unique<CallNode>(word, plan, depth + 1)};
        case PlanKind::kArithmetic:
            if (NumberNodePtr step = CompileStep(*plan.expression)) {
                return NodeOperand{std::move(step)};
            }
            if (NumberNodePtr sum = CompileSteps(*plan.expression, depth + 1)) {
                return NodeOperand{std::make_unique<RoundedNode>(std::move(sum))};
            }
            break;
        default: break;
    }
    return NodeOperand{std::make_unique<WordNode>(word)};
}

Operand TakeLast(std::vector<Operand>& operands) {
    Operand last = std::move(operands.back());
    operands.pop_back();
    return last;
}

NumberNodePtr CompileSteps(const Expression& expression, int depth) {
    if (!expression.sound || expression.steps.size() > kMostSteps) return nullptr;
    std::vector<Operand> operands;
    for (const ExpressionStep& step : expression.steps) {
        if (step.kind == ExpressionStep::Kind::kNumber) {
            operands.emplace_back(ConstantOperand{step.number});
        } else if (step.kind == ExpressionStep::Kind::kWord) {
            operands.push_back(CompileOperand(step.word, depth));
        } else {
            Operand right = TakeLast(operands);
            Operand left = TakeLast(operands);
            operands.emplace_back(
                NodeOperand{MakeOperator(step.op, std::move(left), std::move(right))});
        }
    }
    return NodeOf(TakeLast(operands));
}

}  // namespace

NumberNodePtr CompileNumber(const Word& word, int depth) {
    return NodeOf(CompileOperand(word, depth));
}

NumberNodePtr CompileExpression(const Expression& expression) {
    return CompileSteps(expression, 0);
}

}  // namespace velm
