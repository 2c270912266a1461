// Arithmetic: from text to postfix tokens, and their evaluation.
#include "core/expression.h"

#include <cstddef>
#include <optional>
#include <string>
#include <utility>

#include "core/eval.h"
#include "core/short_roads.h"
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

double NumberOfStep(const ExpressionStep& step) {
    if (step.kind == ExpressionStep::Kind::kNumber) return step.number;
    return EvalWord(step.word).NumberOrZero();
}

// The rule itself. An operator without an operand fails, and takes one value from the stack all the same.
double EvaluateSteps(const Expression& expression) {
    std::vector<double> places(expression.steps.size() + 1);
    double* stack = places.data();
    std::ptrdiff_t top = 0;
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

// Notes whether an operator ever lacks an operand. What a wrong text leaves on the stack lies above its
// first place, which is the result.
bool IsSound(const std::vector<ExpressionStep>& steps) {
    std::size_t depth = 0;
    for (const ExpressionStep& step : steps) {
        if (step.kind != ExpressionStep::Kind::kOperator) {
            ++depth;
        } else if (depth-- < 2) {
            return false;
        }
    }
    return depth == 1;
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
    step.kind = ExpressionStep::Kind::kWord;
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
    expression->sound = IsSound(expression->steps);
    return expression;
}

void Expression::Compile() const {
    compiled_ = true;
    if (kShortRoads) tree_ = CompileExpression(*this);
}

double Evaluate(const Expression& expression) {
    const NumberNode* tree = expression.Tree();
    return RoundPlaces15(tree != nullptr ? tree->Number() : EvaluateSteps(expression));
}

double Calculate(std::u16string_view text) { return Evaluate(*PlanExpression(text)); }

}  // namespace velm
