// Arithmetic: from text to postfix tokens, and their evaluation.
#include "core/expression.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <string>
#include <utility>

#include "core/eval.h"
#include "core/variables.h"
#include "core/word_plan.h"
#include "data/numbers.h"
#include "data/text.h"
#include "data/value.h"

namespace velm {

namespace {

constexpr std::u16string_view kTokenMarks = u"+-*/^%()\\";

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

std::optional<double> ApplyIntegers(Operator op, double left, double right) {
    const std::optional<std::int32_t> a = TryInt32(left);
    const std::optional<std::int32_t> b = TryInt32(right);
    if (!a || !b || *b == 0) return std::nullopt;
    const std::int64_t wideLeft = *a;
    const std::int64_t result = op == Operator::kRemainder ? wideLeft % *b : wideLeft / *b;
    return static_cast<double>(result);
}

std::optional<double> Apply(Operator op, double left, double right) {
    double result = 0;
    switch (op) {
        case Operator::kAdd: result = left + right; break;
        case Operator::kSubtract: result = left - right; break;
        case Operator::kMultiply: result = left * right; break;
        case Operator::kDivide:
            if (right == 0) return std::nullopt;
            result = left / right;
            break;
        case Operator::kPower: result = std::pow(left, right); break;
        default: return ApplyIntegers(op, left, right);
    }
    if (!std::isfinite(result)) return std::nullopt;
    return result;
}

// The stack of one evaluation. Most expressions need a few places only.
class NumberStack {
  public:
    explicit NumberStack(std::size_t size) {
        numbers_[0] = 0;
        if (size > fixed_.size()) {
            large_.resize(size);
            numbers_ = large_.data();
        }
    }

    void Push(double number) {
        if (top_ >= 0) numbers_[top_] = number;
        ++top_;
    }
    void Operate(Operator op) {
        if (top_ >= 2) {
            const std::optional<double> result = Apply(op, numbers_[top_ - 2], numbers_[top_ - 1]);
            if (result) numbers_[top_ - 2] = *result;
        }
        --top_;
    }
    double Bottom() const { return numbers_[0]; }

  private:
    std::array<double, 16> fixed_;
    std::vector<double> large_;
    double* numbers_ = fixed_.data();
    std::ptrdiff_t top_ = 0;
};

// The plain number of a word; most words here are variables, which need no value of their own.
double NumberOfWord(const Word& word) {
    const WordPlan& plan = word.Plan();
    if (plan.kind == PlanKind::kName) {
        if (const Value* variable = FindVariable(plan.symbol)) return variable->NumberOrZero();
    }
    return EvalWord(word).NumberOrZero();
}

}  // namespace

std::shared_ptr<const Expression> PlanExpression(std::u16string_view text) {
    const std::u16string spaced = SpaceTokens(text);
    auto expression = std::make_shared<Expression>();
    for (const std::u16string_view token : PostfixOf(SplitAtBlanks(spaced))) {
        ExpressionStep step;
        step.op = OperatorOf(token);
        if (step.op == Operator::kNone) {
            const std::optional<double> number = ParseNumber(token);
            if (number) {
                step.number = *number;
            } else {
                step.word = Word(token);
            }
        }
        expression->steps.push_back(std::move(step));
    }
    return expression;
}

double Evaluate(const Expression& expression) {
    NumberStack stack(expression.steps.size() + 1);
    for (const ExpressionStep& step : expression.steps) {
        if (step.op != Operator::kNone) {
            stack.Operate(step.op);
        } else if (step.word.IsEmpty()) {
            stack.Push(step.number);
        } else {
            stack.Push(NumberOfWord(step.word));
        }
    }
    return RoundPlaces15(stack.Bottom());
}

double Calculate(std::u16string_view text) { return Evaluate(*PlanExpression(text)); }

}  // namespace velm
