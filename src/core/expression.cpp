// Arithmetic: from text to postfix tokens, and their evaluation.
#include "core/expression.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <utility>

#include "core/eval.h"
#include "core/procedures.h"
#include "core/run_state.h"
#include "core/short_roads.h"
#include "core/variables.h"
#include "core/word_plan.h"
#include "data/numbers.h"
#include "data/text.h"
#include "data/value.h"

namespace velm {

namespace {

constexpr std::u16string_view kTokenMarks = u"+-*/^%()\\";
// Forms that need less than this of a stack have it in place.
constexpr std::size_t kUsualDepth = 16;

bool IsWord(const ExpressionStep& step) { return step.kind == ExpressionStep::Kind::kWord; }

char16_t NarrowOperator(char16_t unit) {
    switch (unit) {
        case u'＋': return u'+';
        case u'－': return u'-';
        case u'＊': return u'*';
        case u'／': return u'/';
        case u'×': return u'*';
        case u'÷': return u'/';
        case u'＾': return u'^';
        case u'（': return u'(';
        case u'）': return u')';
        case u'￥': return u'\\';
        case u'％': return u'%';
        default: return unit;
    }
}

// The text with a blank round every token. The brackets of a call are written full-width, so that
// the call stays one token.
std::u16string SpaceTokens(std::u16string_view text) {
    std::u16string out;
    out.reserve(text.size() * 2);
    std::size_t depth = 0;
    for (const char16_t raw : text) {
        const char16_t unit = NarrowOperator(raw);
        if (kTokenMarks.find(unit) == kNotFound) {
            out += unit;
            continue;
        }
        if (unit == u'-' && (out.empty() || out.ends_with(u"( "))) {
            out.append(u"-1 * ");
            continue;
        }
        const bool attached = !out.empty() && out.back() != u' ';
        if (unit == u'(' && attached) {
            ++depth;
            out += u'（';
        } else if (unit == u')' && depth > 0) {
            --depth;
            out += u'）';
        } else if (depth == 0) {
            if (attached) out += u' ';
            out += unit;
            out += u' ';
        } else {
            out += unit;
        }
    }
    return out;
}

Operator OperatorOf(std::u16string_view token) {
    if (token.size() != 1) return Operator::kNone;
    switch (token[0]) {
        case u'+': return Operator::kAdd;
        case u'-': return Operator::kSubtract;
        case u'*': return Operator::kMultiply;
        case u'/': return Operator::kDivide;
        case u'^': return Operator::kPower;
        case u'%': return Operator::kRemainder;
        case u'\\': return Operator::kQuotient;
        default: return Operator::kNone;
    }
}

int PriorityOf(std::u16string_view token) {
    switch (OperatorOf(token)) {
        case Operator::kAdd:
        case Operator::kSubtract: return 1;
        case Operator::kMultiply:
        case Operator::kDivide:
        case Operator::kRemainder:
        case Operator::kQuotient: return 2;
        case Operator::kPower: return 3;
        default: return 4;
    }
}

using Tokens = std::vector<std::u16string_view>;

// A closing bracket moves the waiting tokens back to its opening bracket, which is dropped. One
// without an opening bracket moves them all.
void CloseBracket(Tokens& waiting, Tokens& postfix) {
    while (!waiting.empty()) {
        const std::u16string_view token = waiting.back();
        waiting.pop_back();
        if (token == u"(") return;
        postfix.push_back(token);
    }
}

// Any other token moves those waiting, back to an opening bracket, that bind as strongly. Kept: the
// walk does not end at one that binds less.
void MoveStronger(Tokens& waiting, Tokens& postfix, int priority) {
    std::size_t place = waiting.size();
    while (place > 0 && waiting[place - 1] != u"(") {
        --place;
        if (PriorityOf(waiting[place]) < priority) continue;
        postfix.push_back(waiting[place]);
        waiting.erase(waiting.begin() + static_cast<std::ptrdiff_t>(place));
    }
}

Tokens PostfixOf(const Tokens& tokens) {
    Tokens postfix;
    Tokens waiting;
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        // Kept: the first token is never looked at, even if it is a closing bracket.
        if (i > 0 && tokens[i] == u")") {
            CloseBracket(waiting, postfix);
            continue;
        }
        if (i > 0) MoveStronger(waiting, postfix, PriorityOf(tokens[i]));
        waiting.push_back(tokens[i]);
    }
    postfix.insert(postfix.end(), waiting.rbegin(), waiting.rend());
    return postfix;
}

Tokens SplitAtBlanks(std::u16string_view text) {
    Tokens tokens;
    for (const std::u16string_view token : Split(Trim(text), u" ")) {
        if (!token.empty()) tokens.push_back(token);
    }
    return tokens;
}

[[gnu::noinline]] double ApplyRounded(Operator op, double left, double right) {
    const std::optional<std::int32_t> a = TryInt32(left);
    const std::optional<std::int32_t> b = TryInt32(right);
    if (!a || !b || *b == 0) return left;
    const std::int64_t wideLeft = *a;
    return static_cast<double>(op == Operator::kRemainder ? wideLeft % *b : wideLeft / *b);
}

// % and \ work on both sides rounded to 32-bit integers. In the common case they are such integers.
inline double ApplyIntegers(Operator op, double left, double right) {
    constexpr double kLimit = 2147483647;
    if (!(std::abs(left) <= kLimit && std::abs(right) <= kLimit)) {
        return ApplyRounded(op, left, right);
    }
    const auto a = static_cast<std::int32_t>(left);
    const auto b = static_cast<std::int32_t>(right);
    if (a != left || b != right || b == 0) return ApplyRounded(op, left, right);
    return op == Operator::kRemainder ? a % b : a / b;
}

// The result of an operator; one that fails leaves its left operand as it is.
inline double Apply(Operator op, double left, double right) {
    double result = 0;
    switch (op) {
        case Operator::kAdd: result = left + right; break;
        case Operator::kSubtract: result = left - right; break;
        case Operator::kMultiply: result = left * right; break;
        case Operator::kDivide: result = left / right; break;  // by zero: not finite
        case Operator::kPower: result = std::pow(left, right); break;
        default: return ApplyIntegers(op, left, right);
    }
    return std::isfinite(result) ? result : left;
}

inline double NumberOfStep(const ExpressionStep& step) {
    if (step.kind == ExpressionStep::Kind::kNumber) return step.number;
    if (step.kind == ExpressionStep::Kind::kVariable) {
        if (const Value* variable = FindVariable(step.symbol)) return variable->NumberOrZero();
    } else if (TryProcedure(step.word.Plan())) {
        return run.Response.NumberOrZero();
    }
    return EvalWord(step.word).NumberOrZero();
}

// The common case: every operator has its operands. The top of the stack is kept beside it, so that
// the stack needs one place more. read(step, number) gives an operand, or ends the walk with false.
template <class Read>
inline bool RunSound(const Expression& expression, double* stack, double& result, Read read) {
    double top = 0;
    for (const ExpressionStep& step : expression.steps) {
        double right = top;
        if (step.kind == ExpressionStep::Kind::kOperator) {
            top = *--stack;
        } else if (!read(step, right)) {
            return false;
        }
        if (step.op == Operator::kNone) {
            *stack++ = top;
            top = right;
        } else {
            top = Apply(step.op, top, right);
        }
    }
    result = top;
    return true;
}

inline double EvaluateSound(const Expression& expression, double* stack) {
    double result = 0;
    RunSound(expression, stack, result, [](const ExpressionStep& step, double& number) {
        number = NumberOfStep(step);
        return true;
    });
    return result;
}

// What runs nothing: a number, or a name that is a variable now and holds a number.
inline bool ReadFlatStep(const ExpressionStep& step, double& number) {
    if (step.kind == ExpressionStep::Kind::kNumber) {
        number = step.number;
        return true;
    }
    const Value* variable = FindVariable(step.symbol);
    return variable != nullptr && variable->IsPlainNumber(number);
}

// An operator without an operand fails, and takes one value from the stack all the same.
double EvaluateUnsound(const Expression& expression, double* stack) {
    std::ptrdiff_t top = 0;
    stack[0] = 0;
    for (const ExpressionStep& step : expression.steps) {
        if (step.kind == ExpressionStep::Kind::kOperator) {
            if (top >= 2) stack[top - 2] = Apply(step.op, stack[top - 2], stack[top - 1]);
            --top;
        } else {
            const double number = NumberOfStep(step);
            if (top >= 0) stack[top] = number;
            ++top;
        }
    }
    return stack[0];
}

// Notes how deep the stack gets, and whether it ever lacks an operand.
void MeasureStack(Expression& expression) {
    std::size_t depth = 0;
    expression.sound = !expression.steps.empty();
    for (const ExpressionStep& step : expression.steps) {
        if (step.kind == ExpressionStep::Kind::kOperator) {
            if (depth < 2) expression.sound = false;
            if (depth > 0) --depth;
        } else {
            ++depth;
        }
        expression.depth = std::max(expression.depth, depth);
    }
    // What a wrong text leaves on the stack lies above its first place, which is the result.
    if (depth != 1) expression.sound = false;
}

// Lets operands take the operators behind them along.
void FuseSteps(Expression& expression) {
    std::vector<ExpressionStep> fused;
    for (ExpressionStep& step : expression.steps) {
        const bool taken = step.kind == ExpressionStep::Kind::kOperator &&
                           fused.back().kind != ExpressionStep::Kind::kOperator &&
                           fused.back().op == Operator::kNone;
        if (taken) {
            fused.back().op = step.op;
        } else {
            fused.push_back(std::move(step));
        }
    }
    expression.steps = std::move(fused);
}

ExpressionStep PlanStep(std::u16string_view token) {
    ExpressionStep step;
    step.op = OperatorOf(token);
    if (step.op != Operator::kNone) {
        step.kind = ExpressionStep::Kind::kOperator;
        return step;
    }
    if (const std::optional<double> number = ParseNumber(token)) {
        step.number = *number;
        return step;
    }
    step.word = Word(token);
    const WordPlan& plan = step.word.Plan();
    const bool bare = plan.kind == PlanKind::kName && plan.symbol != nullptr;
    step.kind = bare ? ExpressionStep::Kind::kVariable : ExpressionStep::Kind::kWord;
    step.symbol = bare ? plan.symbol : nullptr;
    return step;
}

}  // namespace

std::shared_ptr<const Expression> PlanExpression(std::u16string_view text) {
    const std::u16string spaced = SpaceTokens(text);
    auto expression = std::make_shared<Expression>();
    const Tokens postfix = PostfixOf(SplitAtBlanks(spaced));
    if (postfix.size() == 1 && postfix[0] == text) {
        // Its own only token, as with a bracket that is never closed: planning it would never end.
        expression->steps.emplace_back().word = Word(text);
        expression->steps.back().kind = ExpressionStep::Kind::kWord;
    } else {
        for (const std::u16string_view token : postfix)
            expression->steps.push_back(PlanStep(token));
    }
    MeasureStack(*expression);
    if (expression->sound) FuseSteps(*expression);
    expression->flat = expression->sound && expression->depth < kUsualDepth &&
                       std::none_of(expression->steps.begin(), expression->steps.end(), IsWord);
    return expression;
}

namespace {

// The rounding of Evaluate and then of a value that takes the number.
inline double RoundTwice(double number) {
    return IsShortInteger(number) ? number + 0.0 : RoundToText(RoundPlacesOfFraction(number));
}

[[gnu::noinline]] bool TryFlat(const Expression& expression, double& result) {
    double stack[kUsualDepth];
    double number = 0;
    if (!RunSound(expression, stack, number, ReadFlatStep)) return false;
    result = RoundTwice(number);
    return true;
}

[[gnu::noinline]] bool TryWithCells(const Expression& expression, double& result) {
    if (!expression.sound || expression.depth >= kUsualDepth) return false;
    double stack[kUsualDepth];
    double number = 0;
    const auto read = [](const ExpressionStep& step, double& operand) {
        return IsWord(step) ? TryCell(step.word.Plan(), operand) : ReadFlatStep(step, operand);
    };
    if (!RunSound(expression, stack, number, read)) return false;
    result = RoundTwice(number);
    return true;
}

}  // namespace

bool TryEvaluate(const Expression& expression, double& result) {
    if (!kShortRoads) return false;
    if (!expression.flat) return TryWithCells(expression, result);
    // Most forms are one operator with its operands, and need no stack.
    if (expression.steps.size() != 2) return TryFlat(expression, result);
    const ExpressionStep& first = expression.steps[0];
    const ExpressionStep& second = expression.steps[1];
    double left = 0;
    double right = 0;
    if (!ReadFlatStep(first, left) || !ReadFlatStep(second, right)) return false;
    result = RoundTwice(Apply(second.op, left, right));
    return true;
}

namespace {

// A form that needs a large stack, or in which an operator lacks an operand.
[[gnu::noinline]] double EvaluateUnusual(const Expression& expression) {
    std::vector<double> stack(expression.depth + 1);
    return expression.sound ? EvaluateSound(expression, stack.data())
                            : EvaluateUnsound(expression, stack.data());
}

}  // namespace

double Evaluate(const Expression& expression) {
    if (!expression.sound || expression.depth >= kUsualDepth) {
        return RoundPlaces15(EvaluateUnusual(expression));
    }
    double stack[kUsualDepth];
    return RoundPlaces15(EvaluateSound(expression, stack));
}

double Calculate(std::u16string_view text) { return Evaluate(*PlanExpression(text)); }

}  // namespace velm
