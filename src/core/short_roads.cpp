// The short roads of words and assignments.
#include "core/short_roads.h"

#include <cstdint>
#include <vector>

#include "core/expression.h"

namespace velm {

namespace {

// A word as a step of an expression would be: no cell, so that roads don't nest.
inline bool TryFlatNumber(const Word& word, double& number) {
    if (word.IsEmpty()) return false;
    const WordPlan& plan = word.Plan();
    if (const Value* value = TryValue(plan)) return value->IsPlainNumber(number);
    return plan.kind == PlanKind::kArithmetic && plan.expression->flat &&
           TryEvaluate(*plan.expression, number);
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

// A word as a key of a dictionary; whether it is no number is for the table to ask.
inline const Value* TryKey(const std::vector<Word>& subscript) {
    return subscript.empty() ? nullptr : TryValue(subscript[0]);
}

inline bool ReadCell(const Value& table, const std::vector<Word>& subscript, double& number) {
    std::size_t first = 0;
    std::size_t second = 0;
    if (subscript.empty() || !TryPosition(subscript[0], first)) {
        const Value* key = TryKey(subscript);
        return key != nullptr && table.TryEntryNumber(*key, number);
    }
    if (subscript.size() == 1) return table.TryCellNumber(first, number);
    return TryPosition(subscript[1], second) && table.TryRowCellNumber(first, second, number);
}

[[gnu::noinline]] bool StoreCell(Value& table, const std::vector<Word>& subscript, double number) {
    std::size_t first = 0;
    std::size_t second = 0;
    if (subscript.empty() || !TryPosition(subscript[0], first)) {
        const Value* key = TryKey(subscript);
        return key != nullptr && table.TrySetEntryNumber(*key, number);
    }
    if (subscript.size() == 1) return table.TrySetCellNumber(first, number);
    return TryPosition(subscript[1], second) && table.TrySetRowCellNumber(first, second, number);
}

// X＝X＆…: the variable grows by constants and other variables.
[[gnu::noinline]] bool GrowVariable(Value& place, const WordPlan& plan) {
    constexpr std::size_t kMostTails = 8;
    const Value* tails[kMostTails];
    const std::size_t count = plan.parts.size() - 1;
    if (count > kMostTails || TryValue(plan.parts[0]) != &place) return false;
    for (std::size_t i = 0; i < count; ++i) {
        tails[i] = TryValue(plan.parts[i + 1]);
        if (tails[i] == nullptr || tails[i] == &place) return false;
    }
    return place.TryAppend({tails, count});
}

// X＝A＆B…: the parts are constants, variables, and what is computed.
[[gnu::noinline]] bool JoinParts(Value& place, const WordPlan& plan) {
    constexpr std::size_t kMostParts = 4;
    const std::size_t count = plan.parts.size();
    if (count > kMostParts) return false;
    const Value* parts[kMostParts];
    Value numbers[kMostParts];
    for (std::size_t i = 0; i < count; ++i) {
        double number = 0;
        parts[i] = TryValue(plan.parts[i]);
        if (parts[i] == &place) return false;
        if (parts[i] != nullptr) continue;
        if (!TryNumber(plan.parts[i], number)) return false;
        numbers[i].SetHeldNumber(number);
        parts[i] = &numbers[i];
    }
    return place.TryJoin({parts, count});
}

inline bool AssignNumber(Value& place, double number) {
    place.SetHeldNumber(number);
    return true;
}

bool AssignToVariable(Value& place, const WordPlan& plan) {
    double number = 0;
    switch (plan.kind) {
        case PlanKind::kArithmetic:
            return TryEvaluate(*plan.expression, number) && AssignNumber(place, number);
        case PlanKind::kCall: return TryCell(plan, number) && AssignNumber(place, number);
        case PlanKind::kJoin: return GrowVariable(place, plan) || JoinParts(place, plan);
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
}

}  // namespace

bool TryCell(const WordPlan& plan, double& number) {
    if (!kShortRoads || plan.kind != PlanKind::kCall || plan.arguments.IsEmpty()) return false;
    const Value* table = FindVariable(plan.symbol);
    return table != nullptr && ReadCell(*table, plan.arguments.Pieces(), number);
}

bool TryComputed(const WordPlan& plan, double& number) {
    if (plan.kind == PlanKind::kCall) return TryCell(plan, number);
    return plan.kind == PlanKind::kArithmetic && TryEvaluate(*plan.expression, number);
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
