// The shared record behind a value and its hidden forms. Only data/value.cpp looks here.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace velm {

class Value;

// The items of a text. First only their places in the text; unpacked to values by the first store.
struct CellsForm {
    std::vector<std::uint32_t> starts;  // where each item begins in the text
    std::vector<Value> cells;           // the items, once unpacked
    bool unpacked = false;

    std::size_t Count() const;
};

// The lines of a text, each a value of its own.
struct RowsForm {
    std::vector<Value> rows;
};

// The lines of key=value. A line that was updated moves to the end, so the old place is left empty.
// Only texts whose keys are all different are held in this form.
struct EntriesForm {
    struct Line {
        std::u16string key;
        std::unique_ptr<Value> value;  // with its line breaks escaped; none for a line without "="
        bool gone = false;
    };
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::u16string_view key) const {
            return std::hash<std::u16string_view>()(key);
        }
    };

    std::vector<Line> lines;
    std::unordered_map<std::u16string, std::uint32_t, Hash, std::equal_to<>> places;
    std::size_t goneCount = 0;
    bool usable = true;  // false: a key stands twice, and the plain search answers
};

enum class NumberState : std::uint8_t { kUnknown, kNumber, kNone };

// Which form is the truth when the text is out of date.
enum class TruthForm : std::uint8_t { kText, kCells, kRows, kEntries };

struct ValueForms {
    std::unique_ptr<CellsForm> cells;
    std::unique_ptr<RowsForm> rows;
    std::unique_ptr<EntriesForm> entries;
};

struct ValueRecord {
    std::uint32_t owners = 1;
    NumberState numberState = NumberState::kUnknown;
    TruthForm truth = TruthForm::kText;
    bool textValid = true;
    double number = 0;
    std::u16string text;
    std::unique_ptr<ValueForms> forms;
};

}  // namespace velm
