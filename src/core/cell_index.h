// The compiled index of a cell: what stands in the brackets behind the name of a table.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "core/number_node.h"
#include "core/word.h"
#include "data/value.h"

namespace velm {

// Where an index points to, from 0; false for all that is no whole number from 1 on.
inline bool ToPosition(double number, std::size_t& position) {
    constexpr double kLimit = 2147483647;
    if (!(number >= 1 && number <= kLimit)) return false;
    const auto whole = static_cast<std::int32_t>(number);
    position = static_cast<std::size_t>(whole) - 1;
    return whole == number;
}

class CellIndex {
  public:
    // depth: how many compiled words this one lies within.
    CellIndex(const std::vector<Word>& subscript, int depth);

    // What ReadIndexed and a store of a number (core/variables.h) do, where the index needs nothing run, the
    // table's form is at hand, and the cell is there; else false, with nothing done.
    bool Read(const Value& table, double& number) const;
    bool Store(Value& table, double number) const;

  private:
    NumberNodePtr first_;   // none: there is no index
    NumberNodePtr second_;  // none: one position only
    Word key_;              // the first word, which may be a key

    const Value* Key() const;
};

}  // namespace velm
