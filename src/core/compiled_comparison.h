// Compiled comparisons: a condition that compares two words by a sign, with its sides as compiled numbers.
#pragma once

#include <memory>
#include <optional>

#include "core/conditions.h"
#include "core/word.h"
#include "data/value.h"

namespace velm {

class CompiledComparison {
  public:
    CompiledComparison() = default;
    CompiledComparison(const CompiledComparison&) = delete;
    CompiledComparison& operator=(const CompiledComparison&) = delete;
    virtual ~CompiledComparison() = default;

    // Compares; false, with nothing done, unless both sides are held as numbers and need nothing run, or are
    // constants and variables that are compared as equal or not.
    virtual bool Try(bool& result) const = 0;
};

// code: one of comparison::kEqual to kLessOrEqual. Neither word may be empty.
std::shared_ptr<const CompiledComparison> CompileComparison(int code, const Word& left,
                                                            const Word& right);

// The comparison of two numbers by such a code.
inline bool CompareNumbers(int code, double left, double right) {
    switch (code) {
        case comparison::kEqual: return left == right;
        case comparison::kNotEqual: return left != right;
        case comparison::kGreater: return left > right;
        case comparison::kLess: return left < right;
        case comparison::kGreaterOrEqual: return left >= right;
        default: return left <= right;
    }
}

// Equality after the numbers were normalised: 1.0 and 1 are equal, an empty word is 0 against a number,
// two words compare as text.
bool AreEqual(const Value& left, const Value& right);

// The number that a side counts as when the other one is a number too: an empty word is 0.
std::optional<double> NumberOfSide(const Value& value);

}  // namespace velm
