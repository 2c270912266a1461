// The operators of arithmetic words.
#pragma once

#include <cmath>
#include <cstdint>
#include <cstdlib>

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

// kRemainder and kQuotient work on both sides rounded to 32-bit integers, ties to the even one; a side that
// doesn't fit, or a right side of 0, leaves the left one as it is.
double ApplyRounded(Operator op, double left, double right);

// The same for any numbers; most often they are such integers.
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

// The result of an operator, not rounded. One that fails (an overflow, a division by zero) leaves its left
// operand as it is.
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

}  // namespace velm
