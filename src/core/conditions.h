// Conditions: what stands between もし and なら. Callers: the block handlers, 判別 and 配列判別.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/word.h"

namespace velm {

// Comparison codes. Words in double quotes give those from 10 on.
namespace comparison {
constexpr int kEqual = 0;
constexpr int kNotEqual = 1;
constexpr int kGreater = 2;
constexpr int kLess = 3;
constexpr int kGreaterOrEqual = 4;
constexpr int kLessOrEqual = 5;
constexpr int kRange = 6;
constexpr int kEither = 7;
constexpr int kExists = 10;
constexpr int kUpperCase = 11;
constexpr int kLowerCase = 12;
constexpr int kHiragana = 13;
constexpr int kKatakana = 14;
constexpr int kHalfWidth = 15;
constexpr int kFullWidth = 16;
constexpr int kNumber = 17;
constexpr int kText = 18;
constexpr int kPattern = 19;
constexpr int kObject = 20;
constexpr int kEmpty = 21;
constexpr int kFile = 101;
constexpr int kFolder = 102;
}  // namespace comparison

class CompiledComparison;

// A condition cut into its parts, which its text alone decides.
struct Comparison {
    bool valid = false;  // an operator or particle was found
    int code = comparison::kEqual;
    Word left;
    Word right;  // for a range or a choice its first word
    Word second;
    std::u16string inner;                                // the word in double quotes
    std::shared_ptr<const CompiledComparison> compiled;  // none: it is no comparison by a sign
};

Comparison PlanComparison(int code, std::u16string_view text);
// Reports error 3 for a condition that isn't valid, which is false.
bool EvalComparison(const Comparison& comparison);

// Evaluates one condition with a code given before it, or 0.
bool EvalCondition(int code, std::u16string_view text);

// ［…］［…］: all must hold, or with anyMode one of them.
struct ConditionList {
    bool anyMode = false;
    std::vector<Comparison> conditions;
};

ConditionList PlanConditionList(std::u16string_view text, int code, bool anyMode);
bool EvalConditionList(const ConditionList& list);
// The short road (core/short_roads.h) of EvalConditionList: false, with nothing done, unless all its
// words are numbers, or constants and variables that are compared as equal or not.
bool TryConditionList(const ConditionList& list, bool& result);

}  // namespace velm
