// Short roads. Most words and statements of a loop are numbers, variables, cells of tables and
// arithmetic with these: they run nothing but themselves. Each function here does what the rule that it
// names tells, in fewer steps; or it answers false with nothing done, and the rule itself is followed.
//
// Nothing is kept between two calls: a word's plan follows from its text alone, and whether a name is a
// variable, and where it lies, is looked up each time. With VELM_NO_CACHES no short road is taken, so
// that the two can be compared.
#pragma once

#include "core/variables.h"
#include "core/word.h"
#include "core/word_plan.h"
#include "data/value.h"

namespace velm {

#ifdef VELM_NO_CACHES
inline constexpr bool kShortRoads = false;
#else
inline constexpr bool kShortRoads = true;
#endif

// EvalWord of a constant or a variable: the value, which holds until the next store, or nullptr.
inline const Value* TryValue(const WordPlan& plan) {
    if (!kShortRoads) return nullptr;
    if (plan.kind == PlanKind::kName) return FindVariable(plan.symbol);
    const bool constant = plan.kind == PlanKind::kNumber || plan.kind == PlanKind::kText;
    return constant ? &plan.constant : nullptr;
}
inline const Value* TryValue(const Word& word) {
    return word.IsEmpty() ? nullptr : TryValue(word.Plan());
}

// EvalWord of a name with an index that reaches a number in a table whose cells are at hand.
bool TryCell(const WordPlan& plan, double& number);

// The rest of TryNumber: a cell or arithmetic.
bool TryComputed(const WordPlan& plan, double& number);

// EvalWord of a word whose value is held as a number: a number, a variable, a cell or arithmetic. The
// number is rounded as values hold it.
inline bool TryNumber(const Word& word, double& number) {
    if (!kShortRoads || word.IsEmpty()) return false;
    const WordPlan& plan = word.Plan();
    if (plan.kind == PlanKind::kNumber) return plan.constant.IsPlainNumber(number);
    if (plan.kind != PlanKind::kName) return TryComputed(plan, number);
    const Value* variable = FindVariable(plan.symbol);
    return variable != nullptr && variable->IsPlainNumber(number);
}

// AssignWord to a variable that exists, or to a cell that a number can be put in place of.
bool TryAssign(const AssignmentTarget& target, const Word& word);

}  // namespace velm
