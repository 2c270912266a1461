// Columns of table text.
#include "data/table_column.h"

#include <algorithm>

#include "data/brackets.h"
#include "data/text.h"

namespace velm {

std::vector<std::u16string_view> SplitParts(std::u16string_view text,
                                            std::u16string_view separator) {
    if (text.empty()) return {};
    return Split(text, separator);
}

std::u16string_view CellOfRow(std::u16string_view row, std::size_t index, bool& found) {
    found = false;
    std::size_t from = 0;
    for (; index > 0; --index) {
        const std::size_t comma = row.find(u',', from);
        if (comma == kNotFound) return {};
        from = comma + 1;
    }
    found = !row.empty();
    return row.substr(from, std::min(row.find(u',', from), row.size()) - from);
}

TableColumn::TableColumn(std::u16string_view text, int column) : text_(NormaliseCommas(text)) {
    if (column <= 0) {
        items_ = SplitParts(text_, u",");
        return;
    }
    const auto index = static_cast<std::size_t>(column - 1);
    items_ = SplitParts(text_, kCrLf);
    for (std::u16string_view& item : items_) {
        bool found = false;
        item = CellOfRow(item, index, found);
    }
}

}  // namespace velm
