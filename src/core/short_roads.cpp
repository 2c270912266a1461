// The short roads of words and assignments.
#include "core/short_roads.h"

#include <cstdint>
#include <vector>

#include "core/expression.h"
#include "data/numbers.h"

namespace velm {

namespace {

// A word as a step of an expression would be: no cell, so that roads don't nest.
inline bool TryFlatNumber(const Word& word, double& number) {
    if (word.IsEmpty()) return false;
    const WordPlan& plan = word.Plan();
    const bool flat = plan.kind == PlanKind::kNumber || plan.kind == PlanKind::kName ||
                      (plan.kind == PlanKind::kArithmetic && plan.expression->flat);
    return flat && TryNumber(word, number);
}

// Where an index points to, from 0. Kept to the told rule: 0 and all that is no whole number from 1 on.
inline bool TryPosition(const Word& word, std::size_t& position) {
    constexpr double kLimit = 2147483647;
    double number = 0;
    if (!TryFlatNumber(word, number) || !(number >= 1 && number <= kLimit)) return false;
    const auto whole = static_cast<std::int32_t>(number);
    position = static_cast<std::size_t>(whole) - 1;
    return whole == number;
}

bool ReadCell(const Value& table, const std::vector<Word>& subscript, double& number) {
    std::size_t first = 0;
    std::size_t second = 0;
    if (subscript.empty() || !TryPosition(subscript[0], first)) return false;
    if (subscript.size() == 1) return table.TryCellNumber(first, number);
    return TryPosition(subscript[1], second) && table.TryRowCellNumber(first, second, number);
}

bool StoreCell(Value& table, const std::vector<Word>& subscript, double number) {
    std::size_t first = 0;
    std::size_t second = 0;
    if (subscript.empty() || !TryPosition(subscript[0], first)) return false;
    if (subscript.size() == 1) return table.TrySetCellNumber(first, number);
    return TryPosition(subscript[1], second) && table.TrySetRowCellNumber(first, second, number);
}

bool AssignToVariable(Value& place, const WordPlan& plan) {
    double number = 0;
    switch (plan.kind) {
        case PlanKind::kArithmetic:
            if (!TryEvaluate(*plan.expression, number)) return false;
            break;
        case PlanKind::kCall:
            if (!TryCell(plan, number)) return false;
            break;
        case PlanKind::kNumber:
        case PlanKind::kText: place = plan.constant; return true;
        case PlanKind::kName:
            if (const Value* variable = FindVariable(plan.symbol)) {
                place = *variable;
                return true;
            }
            return false;
        default: return false;
    }
    if (!place.SetNumber(number)) place = Value::OfNumber(number);
    return true;
}

}  // namespace

bool TryCell(const WordPlan& plan, double& number) {
    if (!kShortRoads || plan.kind != PlanKind::kCall || plan.arguments.IsEmpty()) return false;
    const Value* table = FindVariable(plan.symbol);
    return table != nullptr && ReadCell(*table, plan.arguments.Pieces(), number);
}

bool TryComputed(const WordPlan& plan, double& number) {
    if (plan.kind == PlanKind::kCall) return TryCell(plan, number);
    if (plan.kind != PlanKind::kArithmetic) return false;
    if (!TryEvaluate(*plan.expression, number)) return false;
    number = RoundToText(number);
    return true;
}

bool TryAssign(const AssignmentTarget& target, const Word& word) {
    if (!kShortRoads || target.symbol == nullptr || target.unclosed || word.IsEmpty()) return false;
    const WordPlan& plan = word.Plan();
    if (!plan.rewritten.empty()) return false;
    Value* place = FindForChange(target.symbol);
    if (place == nullptr) return false;
    if (!target.indexed) return AssignToVariable(*place, plan);
    double number = 0;
    return TryNumber(word, number) && StoreCell(*place, target.subscript, number);
}

}  // namespace velm
