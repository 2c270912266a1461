// The shared record behind a value and its hidden forms. Only data/value.cpp looks here.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace velm {

class EntriesForm;
class TableForm;

enum class NumberState : std::uint8_t { kUnknown, kNumber, kNone };

// Which form is the truth when the text is out of date. That of cells or rows then still holds the pieces.
enum class TruthForm : std::uint8_t { kText, kCells, kRows, kEntries };

struct ValueForms {
    std::unique_ptr<TableForm> cells;
    std::unique_ptr<TableForm> rows;
    std::unique_ptr<EntriesForm> entries;
    std::vector<std::uint32_t> fields;  // where the fields begin; none when they weren't asked for

    ValueForms();
    ~ValueForms();
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
