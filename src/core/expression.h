// Arithmetic words in postfix form. The form is made once from the text and kept with it; the words
// in it are evaluated at each use.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "core/number_node.h"
#include "core/operators.h"
#include "core/word.h"

namespace velm {

// One position of a postfix form: a number, a word, or an operator.
struct ExpressionStep {
    enum class Kind : std::uint8_t { kNumber, kWord, kOperator };

    Kind kind = Kind::kNumber;
    Operator op = Operator::kNone;
    double number = 0;
    Word word;
};

struct Expression {
    std::vector<ExpressionStep> steps;
    bool sound = false;  // no operator lacks an operand

    // The form as a tree, made at the first asking; nullptr where there is none (core/number_node.h).
    const NumberNode* Tree() const {
        if (!compiled_) Compile();
        return tree_.get();
    }

  private:
    mutable bool compiled_ = false;
    mutable NumberNodePtr tree_;

    void Compile() const;
};

// The postfix form of an arithmetic text.
std::shared_ptr<const Expression> PlanExpression(std::u16string_view text);

// The value of a postfix form, rounded to 15 decimal places. A step that fails (a division by zero, an
// overflow, a missing operand) leaves its left operand in place and takes one value from the stack.
double Evaluate(const Expression& expression);

// The value of an arithmetic text.
double Calculate(std::u16string_view text);

}  // namespace velm
