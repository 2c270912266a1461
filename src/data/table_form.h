// The hidden form of a text that is a list or a table: where its rows and items are. Only data/value.cpp
// uses it.
//
// Rows are found at once, items of a row when one of them is first asked for: a slot of eight bytes for
// each, which is a place in the text, a number, or the index of a value that is kept aside. A short text
// that is stored goes into the text of the value, over the item that it replaces or behind the end; so
// the text holds the pieces, but is no longer the told text until Join puts it in order again. A table
// of a million cells so costs its text and eight bytes for each cell.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "data/numbers.h"
#include "data/value.h"

namespace velm {

// One item: a number is held as its bits, everything else as one of the NaNs that no number is.
class CellSlot {
  public:
    static CellSlot OfPlace(std::size_t place) { return CellSlot(kPlaceTag | place); }
    static CellSlot OfKept(std::size_t index) { return CellSlot(kKeptTag | index); }
    static CellSlot OfNumber(double number) {
        return CellSlot(std::bit_cast<std::uint64_t>(number));
    }
    static CellSlot Empty() { return CellSlot(kEmptyTag); }

    bool IsNumber() const { return bits_ < kEmptyTag; }
    bool IsPlace() const { return Tag() == kPlaceTag; }
    bool IsKept() const { return Tag() == kKeptTag; }
    bool IsEmpty() const { return Tag() == kEmptyTag; }
    // The place in the text or the index of the kept value.
    std::size_t Index() const { return bits_ & ~kTagBits; }
    double Number() const { return std::bit_cast<double>(bits_); }

  private:
    static constexpr std::uint64_t kTagBits = 0xFFFF000000000000U;
    static constexpr std::uint64_t kPlaceTag = 0xFFFF000000000000U;
    static constexpr std::uint64_t kKeptTag = 0xFFFE000000000000U;
    static constexpr std::uint64_t kEmptyTag = 0xFFFD000000000000U;

    std::uint64_t bits_;

    explicit CellSlot(std::uint64_t bits) : bits_(bits) {}
    std::uint64_t Tag() const { return bits_ & kTagBits; }
};

class TableForm {
  public:
    enum class Kind : std::uint8_t {
        kList,   // one row: the whole text, cut at its commas only
        kLines,  // rows between the CR LF
    };

    TableForm(Kind kind, std::u16string_view text);

    // Rows and columns count from 0. What lies beyond the end is the empty text. The text is always
    // that of the record that the form belongs to.
    std::size_t RowCount() const { return rows_.size(); }
    std::size_t CellCount(const std::u16string& text, std::size_t row);
    Value Cell(const std::u16string& text, std::size_t row, std::size_t column);
    Value Row(const std::u16string& text, std::size_t row) const;

    // The short roads to a number that is there, in a row that was cut: false when it isn't.
    bool TryNumber(const std::u16string& text, std::size_t row, std::size_t column,
                   double& number) {
        if (row >= rows_.size()) return false;
        std::vector<CellSlot>& cells = rows_[row].cells;
        if (column >= cells.size()) return false;
        CellSlot& slot = cells[column];
        if (slot.IsPlace()) TakeNumber(text, slot);
        number = slot.Number();
        return slot.IsNumber();
    }
    bool TrySetNumber(std::size_t row, std::size_t column, double number) {
        if (row >= rows_.size()) return false;
        RowSlots& slots = rows_[row];
        if (column >= slots.cells.size()) return false;
        CellSlot& slot = slots.cells[column];
        Release(slot);
        slot = CellSlot::OfNumber(number);
        slots.changed = true;
        return true;
    }

    // Stores an item, with no comma in it, or a row, which becomes several where it holds a CR LF. The
    // text is out of order afterwards.
    void SetCell(std::u16string& text, std::size_t row, std::size_t column, const Value& item);
    void SetRow(std::u16string& text, std::size_t row, std::u16string_view lines);

    // Puts the text in order; the form stays.
    void Join(std::u16string& text);
    // Whether that would be the empty text.
    bool JoinsToNothing(std::u16string_view text) const;

  private:
    struct RowSlots {
        std::vector<CellSlot> cells;  // none until one of them is asked for
        std::uint32_t start = 0;      // where the row begins in the text, unless it was changed
        bool changed = false;         // the cells are the truth
    };

    Kind kind_;
    bool open_ = false;         // something was put behind the end of the text
    std::size_t appended_ = 0;  // units put there since the text was in order
    std::size_t length_;        // of the text when it was last in order
    std::vector<RowSlots> rows_;
    std::vector<Value> kept_;           // items that are too long for the text
    std::vector<std::uint32_t> spare_;  // free places among them

    std::u16string_view PieceOfRow(std::u16string_view text, const RowSlots& row) const;
    std::u16string_view PieceOfCell(std::u16string_view text, CellSlot slot) const;
    bool EndsPiece(std::u16string_view text, std::size_t place) const;
    std::vector<CellSlot>& CellsOf(std::u16string_view text, RowSlots& row);
    void AppendCell(std::u16string_view text, CellSlot slot, std::u16string& out) const;
    void AppendRow(std::u16string_view text, const RowSlots& row, std::u16string& out) const;
    void MoveRow(std::u16string_view text, RowSlots& row, std::u16string& out) const;

    void Store(std::u16string& text, CellSlot& slot, const Value& item);
    bool StoreOver(std::u16string& text, CellSlot slot, std::u16string_view piece) const;
    CellSlot StoreBehind(std::u16string& text, std::u16string_view piece,
                         std::u16string_view terminator);
    CellSlot Keep(const Value& item);
    void TakeNumber(std::u16string_view text, CellSlot& slot);
    void Release(CellSlot slot) {
        if (slot.IsKept()) GiveUp(slot);
    }
    void GiveUp(CellSlot slot);
    void SetLine(std::u16string& text, std::size_t row, std::u16string_view line);
    RowSlots& RowForStore(std::size_t row);
};

}  // namespace velm
