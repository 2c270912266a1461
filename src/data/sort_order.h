// The orders that 並び替え gives. Its rules are two plain algorithms, and neither is stable: where equal
// keys end up is part of what a script sees. The order is worked out here from the ranks of the keys, in
// n log n also where the plain algorithm is quadratic; a test compares both. Not here: what a key is.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace velm {

// Places of the keys before the sort, in the order after it.
using SortOrder = std::vector<std::uint32_t>;

// The ranks of keys: 0 for the least, the same for equal keys.
struct KeyRanks {
    std::vector<std::uint32_t> ranks;
    SortOrder sorted;  // the places by rank, equal ones as they stood
    bool distinct = true;
};

KeyRanks RankNumbers(const std::vector<double>& keys);
// Texts are compared by their UTF-16 units.
KeyRanks RankTexts(const std::vector<std::u16string_view>& keys);
// The ranks of the opposite order.
KeyRanks Reversed(const KeyRanks& keys);

SortOrder UnsortedOrder(std::size_t count);

// What a selection sort gives: for each place in turn the first least key at it or behind it is swapped
// with the key that stands there.
SortOrder SelectionOrder(const KeyRanks& keys);

// What a Shell sort gives with the gaps 1, 4, 13 and so on: insertion with the widest gap that is above
// the last place first, then a third of it each time, rounded.
SortOrder ShellOrder(const KeyRanks& keys);

}  // namespace velm
