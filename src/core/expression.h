// Arithmetic words in postfix form. The form is made once from the text and kept with it; the words
// in it are evaluated at each use.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "core/word.h"

namespace velm {

enum class Operator : std::uint8_t {
    kNone,
    kAdd,
    kSubtract,
    kMultiply,
    kDivide,
    kPower,
    kRemainder,
    kQuotient,
};

// One position of a postfix form: a number, a word, or an operator. In a sound form an operand that an
// operator follows at once has taken that operator along, and the two are one step.
struct ExpressionStep {
    enum class Kind : std::uint8_t { kNumber, kVariable, kWord, kOperator };

    Kind kind = Kind::kNumber;
    Operator op = Operator::kNone;  // kNone: the operand goes on the stack
    double number = 0;
    Symbol* symbol = nullptr;  // of a word that is a bare name, which most often is a variable
    Word word;
};

struct Expression {
    std::vector<ExpressionStep> steps;
    std::size_t depth = 0;  // the places of the stack that the steps need
    bool sound = false;     // no operator lacks an operand
    bool flat = false;      // sound, not deep, and nothing but numbers and bare names in it
};

// The postfix form of an arithmetic text.
std::shared_ptr<const Expression> PlanExpression(std::u16string_view text);

// The value of a postfix form, rounded to 15 decimal places. A step that fails (a division by zero, an
// overflow, a missing operand) leaves its left operand in place and takes one value from the stack.
double Evaluate(const Expression& expression);

// The short road to the number that a value made of it holds (RoundToText): false, with nothing done and run, unless the form is sound and all
// its words are numbers, variables that hold a number, or cells that TryCell reaches.
bool TryEvaluate(const Expression& expression, double& result);

// The value of an arithmetic text.
double Calculate(std::u16string_view text);

}  // namespace velm
