// Reading and storing cells by a compiled index.
#include "core/cell_index.h"

#include <cstdint>

#include "core/short_roads.h"

namespace velm {

namespace {

// Where an index points to, from 0. Kept to the told rule: 0 and all that is no whole number from 1 on.
inline bool TryPosition(const NumberNode& node, std::size_t& position) {
    constexpr double kLimit = 2147483647;
    double number = 0;
    if (!node.Try(number) || !(number >= 1 && number <= kLimit)) return false;
    const auto whole = static_cast<std::int32_t>(number);
    position = static_cast<std::size_t>(whole) - 1;
    return whole == number;
}

}  // namespace

CellIndex::CellIndex(const std::vector<Word>& subscript, int depth) {
    if (subscript.empty() || subscript[0].IsEmpty()) return;
    key_ = subscript[0];
    first_ = CompileNumber(key_, depth);
    if (subscript.size() > 1 && !subscript[1].IsEmpty()) {
        second_ = CompileNumber(subscript[1], depth);
    } else if (subscript.size() > 1) {
        first_.reset();
    }
}

const Value* CellIndex::Key() const { return first_ ? TryValue(key_) : nullptr; }

bool CellIndex::Read(const Value& table, double& number) const {
    std::size_t first = 0;
    std::size_t second = 0;
    if (!first_ || !TryPosition(*first_, first)) {
        const Value* key = Key();
        return key != nullptr && table.TryEntryNumber(*key, number);
    }
    if (!second_) return table.TryCellNumber(first, number);
    return TryPosition(*second_, second) && table.TryRowCellNumber(first, second, number);
}

bool CellIndex::Store(Value& table, double number) const {
    std::size_t first = 0;
    std::size_t second = 0;
    if (!first_ || !TryPosition(*first_, first)) {
        const Value* key = Key();
        return key != nullptr && table.TrySetEntryNumber(*key, number);
    }
    if (!second_) return table.TrySetCellNumber(first, number);
    return TryPosition(*second_, second) && table.TrySetRowCellNumber(first, second, number);
}

}  // namespace velm
