// What the short roads share. Most words and statements of a loop are numbers, variables, cells of tables and
// arithmetic with these: they run nothing but themselves. Beside the told rule for such words and statements
// lies a road with fewer steps: compiled numbers (core/number_node.h), conditions and statements
// (core/action.h). It gives what the rule gives, or answers "no" with nothing done, and the rule is followed.
//
// With VELM_NO_CACHES no short road is taken, so that the two can be compared.
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

}  // namespace velm
