// The hidden form of a text that is a list or a table: where its rows and items are. Only data/value.cpp
// uses it.
//
// Rows are found at once, items of a row when one of them is first asked for: a slot of eight bytes for
// each, which is a place in the text, a number, or the index of a value that is kept aside. The slots of
// all rows lie in one pool. A short text that is stored goes into the text of the value, over the item
// that it replaces or behind the end; so the text holds the pieces, but is no longer the told text until
// Join puts it in order again. A table of a million cells so costs its text and eight bytes for each cell.
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
    // A piece of the text, from the place on and of the length: at most kLongestPiece.
    static CellSlot OfPiece(std::size_t place, std::size_t length) {
        return CellSlot(kPlaceTag | length << kIndexBits | place);
    }
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
    std::size_t Index() const { return bits_ & kIndexMask; }
    std::size_t Length() const { return bits_ >> kIndexBits & kLongestPiece; }
    double Number() const { return std::bit_cast<double>(bits_); }

    static constexpr std::size_t kLongestPiece = 0xFFFF;

  private:
    static constexpr unsigned kIndexBits = 32;
    static constexpr std::uint64_t kIndexMask = 0xFFFFFFFFU;
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

    // The short roads to a number that is there: false when it isn't.
    bool TryNumber(const std::u16string& text, std::size_t row, std::size_t column,
                   double& number) {
        if (row >= rows_.size()) return false;
        if (rows_[row].count == 0) CutRow(text, rows_[row]);
        if (column >= rows_[row].count) return false;
        CellSlot& slot = slots_[rows_[row].first + column];
        if (slot.IsPlace()) TakeNumber(text, slot);
        number = slot.Number();
        return slot.IsNumber();
    }
    // Only in a row that was cut.
    bool TrySetNumber(std::size_t row, std::size_t column, double number) {
        if (row >= rows_.size() || column >= rows_[row].count) return false;
        CellSlot& slot = slots_[rows_[row].first + column];
        Release(slot);
        slot = CellSlot::OfNumber(number);
        rows_[row].changed = true;
        return true;
    }

    // Stores an item, with no comma in it, or a row, which becomes several where it holds a CR LF. The
    // text is out of order afterwards.
    void SetCell(std::u16string& text, std::size_t row, std::size_t column, const Value& item);
    void SetRow(std::u16string& text, std::size_t row, std::u16string_view lines);

    // Puts the text in order; the form stays.
    void Join(std::u16string& text);
    // Whether that would be the empty text.
    bool JoinsToNothing() const;

  private:
    struct RowSlots {
        std::uint32_t start = 0;  // where the row stands in the text, unless it was changed
        std::uint32_t length = 0;
        std::uint32_t first = 0;  // of its slots in the pool
        std::uint32_t count = 0;  // of them; none until one of the items is asked for
        std::uint32_t room = 0;   // for so many before the slots of another row come
        bool changed = false;     // the slots are the truth
    };

    std::size_t appended_ = 0;  // units put behind the text since it was in order
    std::size_t length_;        // of the text when it was last in order
    std::vector<RowSlots> rows_;
    std::vector<CellSlot> slots_;       // the pool
    std::size_t wasted_ = 0;            // slots of it that no row has any more
    std::vector<Value> kept_;           // items that are too long for the text
    std::vector<std::uint32_t> spare_;  // free places among them

    static std::u16string_view PieceOfRow(std::u16string_view text, const RowSlots& row) {
        return {text.data() + row.start, row.length};
    }
    static std::u16string_view PieceOfCell(std::u16string_view text, CellSlot slot) {
        return {text.data() + slot.Index(), slot.Length()};
    }
    CellSlot* SlotsOf(const RowSlots& row) { return slots_.data() + row.first; }
    const CellSlot* SlotsOf(const RowSlots& row) const { return slots_.data() + row.first; }

    void CutRow(std::u16string_view text, RowSlots& row);
    void AddSlot(std::u16string_view text, std::size_t place, std::size_t length);
    void PlanRoom(std::u16string_view text, std::u16string_view piece);
    void LengthenRow(RowSlots& row, std::size_t count);
    void CompactIfWasteful();

    void AppendCell(std::u16string_view text, CellSlot slot, std::u16string& out) const;
    void AppendRow(std::u16string_view text, const RowSlots& row, std::u16string& out) const;
    void MoveRow(std::u16string_view text, RowSlots& row, std::u16string& out);

    void Store(std::u16string& text, CellSlot& slot, const Value& item);
    std::uint32_t PutBehind(std::u16string& text, std::u16string_view piece);
    CellSlot Keep(const Value& item);
    void TakeNumber(std::u16string_view text, CellSlot& slot);
    void Release(CellSlot slot) {
        if (slot.IsKept()) GiveUp(slot);
    }
    void GiveUp(CellSlot slot);
    void SetLine(std::u16string& text, std::size_t row, std::u16string_view line);
    RowSlots& RowForStore(std::u16string& text, std::size_t row);
};

}  // namespace velm
