// Storing and reading variables.
#include "core/variables.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "core/diagnostics.h"
#include "core/eval.h"
#include "core/expression.h"
#include "core/short_roads.h"
#include "core/word_plan.h"
#include "data/brackets.h"
#include "data/failure.h"
#include "data/lists.h"
#include "data/numbers.h"
#include "data/text.h"

namespace velm {

ScopePtr Locals;

namespace {

constexpr int kUnclosedBracket = 23;
constexpr int kIndexBelowZero = 37;
constexpr int kNumberTooLarge = 11;
// A table isn't stretched by more than this at once: an index of a billion is a mistake, and would
// take the machine's memory with it.
constexpr std::int64_t kLargestIndex = 20'000'000;

// The place that an index means, from 0; -1 stands for the whole.
struct Index {
    bool isKey = false;
    Value key;
    bool hasRow = false;
    std::int64_t row = -1;
    std::int64_t column = -1;
};

std::int64_t PositionOf(const Value& value) {
    const std::optional<double> number = value.Number();
    return number ? std::int64_t{ToInt32(*number)} - 1 : 0;
}

Index EvalIndex(const std::vector<Word>& subscript) {
    Index index;
    Value first = subscript.empty() ? Value() : EvalWord(subscript[0]);
    if (!first.IsNumeric()) {
        index.isKey = true;
        index.key = std::move(first);
        return index;
    }
    if (subscript.size() < 2) {
        index.column = PositionOf(first);
        return index;
    }
    const Value second = EvalWord(subscript[1]);
    index.row = PositionOf(first);
    index.hasRow = index.row != -1;
    index.column = PositionOf(second);
    return index;
}

bool CheckIndex(const Index& index, std::u16string_view name, bool forStore) {
    if (index.isKey) return true;
    if (index.row < -1 || index.column < -1) {
        RaiseError(kIndexBelowZero, 48, name, u"", -1);
        return false;
    }
    if (forStore && std::max(index.row, index.column) > kLargestIndex) {
        RaiseError(kNumberTooLarge, 48, name, u"", -1);
        return false;
    }
    return true;
}

Value Escaped(const Value& value) {
    double number = 0;
    if (value.IsPlainNumber(number)) return value;
    std::u16string text = EscapeItem(value.Text());
    return text.size() == value.Text().size() ? value : Value(std::move(text));
}

Value Unescaped(const Value& cell) {
    double number = 0;
    if (cell.IsPlainNumber(number) || cell.IsEmpty()) return cell;
    if (!Contains(cell.Text(), u"{") || cell.IsNumeric()) return cell;
    return Value(UnescapeItem(cell.Text()));
}

void StoreAt(Value& table, const Index& index, const Value& value) {
    const auto row = static_cast<std::size_t>(index.row);
    const auto column = static_cast<std::size_t>(index.column);
    if (index.isKey) {
        table.SetEntry(index.key.Text(), value);
    } else if (index.hasRow && index.column < 0) {
        table.SetRow(row, value);
    } else if (index.hasRow) {
        table.SetRowCell(row, column, Escaped(value));
    } else if (index.column >= 0) {
        table.SetCell(column, Escaped(value));
    } else {
        table = value;
    }
}

void Store(const AssignmentTarget& target, Value value) {
    if (target.symbol == nullptr) return;
    if (Value* place = FindForChange(target.symbol)) {
        *place = std::move(value);
        return;
    }
    xxCmdData entry;
    entry.Name = target.name.Text();
    entry.Value = std::move(value);
    Globals.Add(target.symbol, std::move(entry));
}

void StoreIndexed(const AssignmentTarget& target, Value value) {
    if (target.symbol == nullptr) return;
    const Value* variable = FindVariable(target.symbol);
    // The text that is changed is that of before the index was evaluated.
    Value table = variable == nullptr ? Value() : *variable;
    const Index index = EvalIndex(target.subscript);
    if (!CheckIndex(index, target.name, true)) return;
    Value* place = FindForChange(target.symbol);
    if (place != nullptr && place->SharesRecordWith(table)) *place = Value();
    const bool done = Attempt([&] { StoreAt(table, index, value); });
    // Kept: a table that was emptied to nothing stores the plain value.
    if (table.IsEmpty()) table = std::move(value);
    Store(target, std::move(table));  // as it was, when there was no memory for more
    if (!done) throw Failure(pendingFailure.number);
}

}  // namespace

void Scope::GiveUp(Scope* scope) noexcept {
    constexpr std::size_t kMostSpares = kShortRoads ? 256 : 0;
    if (spareCount == kMostSpares) {
        delete scope;
        return;
    }
    scope->Clear();
    scope->nextSpare_ = std::exchange(firstSpare, scope);
    ++spareCount;
}

Scope& LocalsForChange() {
    if (!Locals) {
        Locals = Scope::Make();
    } else if (Locals.IsShared()) {
        auto* own = new Scope(*Locals);
        own->owners = 0;
        Locals = ScopePtr(own);
    }
    return *Locals;
}

std::shared_ptr<const AssignmentTarget> PlanTarget(std::u16string_view name) {
    auto target = std::make_shared<AssignmentTarget>();
    std::size_t open = name.find(u'（');
    if (open == kNotFound) open = name.find(u'(');
    std::u16string_view bare = name;
    if (open != kNotFound) {
        std::size_t close = name.rfind(u'）');
        if (close == kNotFound) close = name.rfind(u')');
        if (close == kNotFound || close < open) {
            target->unclosed = true;
        } else {
            target->indexed = true;
            target->subscript = CutWords(name.substr(open + 1, close - open - 1));
            bare = name.substr(0, open);
        }
    }
    target->name = Word(bare);
    if (!bare.empty()) target->symbol = target->name.AsName();
    return target;
}

void SetVariable(const AssignmentTarget& target, Value value) {
    if (target.unclosed) {
        RaiseError(kUnclosedBracket, 48, target.name, u"", -1);
    } else if (target.indexed) {
        StoreIndexed(target, std::move(value));
    } else {
        Store(target, std::move(value));
    }
}

void SetVariable(std::u16string_view name, Value value) {
    SetVariable(*PlanTarget(name), std::move(value));
}

Value ReadIndexed(const Value& variable, std::u16string_view name,
                  const std::vector<Word>& subscript) {
    const Value table = variable;  // evaluating the index may change the variable
    const Index index = EvalIndex(subscript);
    if (!CheckIndex(index, name, false)) return Value();
    if (index.isKey) return table.Entry(index.key.Text());
    const auto row = static_cast<std::size_t>(index.row);
    const auto column = static_cast<std::size_t>(index.column);
    if (index.column >= 0) {
        return Unescaped(index.hasRow ? table.RowCell(row, column) : table.Cell(column));
    }
    Value whole = index.hasRow ? table.Row(row) : table;
    double number = 0;
    if (whole.IsPlainNumber(number)) return whole;
    return Unescaped(Value(NormaliseCommas(whole.Text())));
}

Value GetVariable(std::u16string_view name, bool& found, std::u16string_view subscript) {
    const Value* variable = name.empty() ? nullptr : FindVariable(FindSymbol(name));
    found = variable != nullptr;
    if (!found) return Value();
    return subscript.empty() ? *variable : ReadIndexed(*variable, name, CutWords(subscript));
}

void StoreNumber(const AssignmentTarget& target, double number) {
    Value* place = target.symbol == nullptr ? nullptr : FindForChange(target.symbol);
    if (place == nullptr || !place->SetNumber(number)) Store(target, Value::OfNumber(number));
}

namespace {

// X＝X＆…: the text grows in place when nobody else holds it.
bool GrowsItself(const AssignmentTarget& target, const WordPlan& plan) {
    if (plan.kind != PlanKind::kJoin || plan.parts[0].IsEmpty()) return false;
    const WordPlan& left = plan.parts[0].Plan();
    return left.kind == PlanKind::kName && left.symbol == target.symbol;
}

void Grow(const AssignmentTarget& target, const WordPlan& plan) {
    Value text = EvalWord(plan.parts[0]);
    const Value tail = EvalJoin(plan, 1);
    Value* place = FindForChange(target.symbol);
    if (place != nullptr && place->SharesRecordWith(text)) *place = Value();
    const bool done = Attempt([&] { text.Append(tail); });
    Store(target, std::move(text));  // as it was, when there was no memory for more
    if (!done) throw Failure(pendingFailure.number);
}

}  // namespace

void AssignWord(const AssignmentTarget& target, Word& word) {
    if (target.indexed || target.unclosed || target.symbol == nullptr || word.IsEmpty()) {
        SetVariable(target, EvalWord(word));
        return;
    }
    const WordPlan& plan = word.Plan();
    if (plan.kind == PlanKind::kArithmetic && plan.rewritten.empty()) {
        StoreNumber(target, Evaluate(*plan.expression));
    } else if (GrowsItself(target, plan)) {
        const Word held = word;
        Grow(target, held.Plan());
    } else {
        SetVariable(target, EvalWord(word));
    }
}

}  // namespace velm
