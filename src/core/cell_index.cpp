// Reading and storing cells by a compiled index.
#include "core/cell_index.h"

#include "core/short_roads.h"

namespace velm {

namespace {

inline bool TryPosition(const NumberNode& node, std::size_t& position) {
    double number = 0;
    return node.Try(number) && ToPosition(number, position);
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
