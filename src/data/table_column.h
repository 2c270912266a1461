// One column of a table text, or the items of a list, as views into one copy of the text. The functions
// on tables read their items through this; nothing here unescapes.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace velm {

class TableColumn {
  public:
    // With column 0 or below the whole text is one list: CR LF stays inside the items. Else the items
    // at that place (from 1) of each row; a row too short for it gives an empty item. "、" and "，"
    // count as commas. The empty text has no items.
    TableColumn(std::u16string_view text, int column);
    TableColumn(const TableColumn&) = delete;
    TableColumn& operator=(const TableColumn&) = delete;

    const std::vector<std::u16string_view>& Items() const { return items_; }
    std::size_t Count() const { return items_.size(); }
    std::u16string_view operator[](std::size_t index) const { return items_[index]; }

  private:
    std::u16string text_;
    std::vector<std::u16string_view> items_;
};

// The piece between two commas of a row whose commas have been normalised, index from 0. found tells
// whether the row is that long.
std::u16string_view CellOfRow(std::u16string_view row, std::size_t index, bool& found);

// The parts between the separators; no part for the empty text.
std::vector<std::u16string_view> SplitParts(std::u16string_view text,
                                            std::u16string_view separator);

}  // namespace velm
