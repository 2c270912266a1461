// Rows and items by their places.
#include "data/table_form.h"

#include <algorithm>

#include "data/numbers.h"
#include "data/text.h"
#include "data/value.h"

namespace velm {

namespace {

// Longer items are kept aside as values: reading them again then copies nothing.
constexpr std::size_t kLongestInText = 32;

// The text is put in order when more than its length, and this, was put behind it.
constexpr std::size_t kLeastAppended = 4096;

constexpr std::u16string_view kComma = u",";

// Where a row begins that isn't in the text, because it was skipped when a later one was stored.
constexpr std::uint32_t kNowhere = UINT32_MAX;

bool MayStandInText(std::u16string_view piece) {
    return piece.size() <= kLongestInText && FindAnyComma(piece) == piece.size() &&
           !Contains(piece, kCrLf);
}

}  // namespace

TableForm::TableForm(Kind kind, std::u16string_view text) : kind_(kind), length_(text.size()) {
    rows_.resize(kind == Kind::kList ? 1 : CountOf(text, kCrLf) + 1);
    std::size_t start = 0;
    for (std::size_t row = 1; row < rows_.size(); ++row) {
        start = FindText(text, kCrLf, start) + kCrLf.size();
        rows_[row].start = static_cast<std::uint32_t>(start);
    }
}

bool TableForm::EndsPiece(std::u16string_view text, std::size_t place) const {
    if (place >= text.size() || IsAnyComma(text[place])) return true;
    return kind_ == Kind::kLines && text[place] == u'\r' && place + 1 < text.size() &&
           text[place + 1] == u'\n';
}

// A row that wasn't changed, as it stands in the text.
std::u16string_view TableForm::PieceOfRow(std::u16string_view text, const RowSlots& row) const {
    if (kind_ == Kind::kList) return text;
    if (row.start == kNowhere) return {};
    return text.substr(row.start, FindText(text, kCrLf, row.start) - row.start);
}

std::u16string_view TableForm::PieceOfCell(std::u16string_view text, CellSlot slot) const {
    std::size_t end = slot.Index();
    while (!EndsPiece(text, end)) ++end;
    return text.substr(slot.Index(), end - slot.Index());
}

// The slots of a row, cut now if they weren't yet.
std::vector<CellSlot>& TableForm::CellsOf(std::u16string_view text, RowSlots& row) {
    if (!row.cells.empty()) return row.cells;
    if (row.start == kNowhere) {
        row.cells.push_back(CellSlot::Empty());
        return row.cells;
    }
    const std::u16string_view piece = PieceOfRow(text, row);
    row.cells.reserve(
        static_cast<std::size_t>(std::count_if(piece.begin(), piece.end(), IsAnyComma)) + 1);
    for (std::size_t from = 0; from <= piece.size(); from = FindAnyComma(piece, from) + 1) {
        row.cells.push_back(CellSlot::OfPlace(row.start + from));
    }
    return row.cells;
}

std::size_t TableForm::CellCount(const std::u16string& text, std::size_t row) {
    return CellsOf(text, rows_[row]).size();
}

Value TableForm::Cell(const std::u16string& text, std::size_t row, std::size_t column) {
    if (row >= rows_.size()) return Value();
    std::vector<CellSlot>& cells = CellsOf(text, rows_[row]);
    if (column >= cells.size() || cells[column].IsEmpty()) return Value();
    CellSlot& slot = cells[column];
    if (slot.IsPlace()) TakeNumber(text, slot);
    if (slot.IsNumber()) return Value::OfNumber(slot.Number());
    return slot.IsKept() ? kept_[slot.Index()] : Value(PieceOfCell(text, slot));
}

// A text that is the very one of a number is held as the number from now on.
void TableForm::TakeNumber(std::u16string_view text, CellSlot& slot) {
    double number = 0;
    if (IsCanonicalNumber(PieceOfCell(text, slot), number)) slot = CellSlot::OfNumber(number);
}

Value TableForm::Row(const std::u16string& text, std::size_t row) const {
    if (row >= rows_.size()) return Value();
    if (!rows_[row].changed) return Value(PieceOfRow(text, rows_[row]));
    std::u16string line;
    AppendRow(text, rows_[row], line);
    return Value(std::move(line));
}

// Puts a piece behind the end of the text. The last piece before it gets an end if it has none yet.
CellSlot TableForm::StoreBehind(std::u16string& text, std::u16string_view piece,
                                std::u16string_view terminator) {
    if (appended_ > length_ + kLeastAppended) Join(text);
    if (!open_) text.append(kind_ == Kind::kList ? kComma : kCrLf);
    open_ = true;
    const CellSlot slot = CellSlot::OfPlace(text.size());
    text.append(piece).append(terminator);
    appended_ += piece.size() + terminator.size();
    return slot;
}

// Puts the piece where the old item stands, if there is room.
bool TableForm::StoreOver(std::u16string& text, CellSlot slot, std::u16string_view piece) const {
    const std::size_t place = slot.Index();
    for (std::size_t i = 0; i < piece.size(); ++i) {
        if (EndsPiece(text, place + i)) return false;
    }
    std::copy(piece.begin(), piece.end(), text.begin() + static_cast<std::ptrdiff_t>(place));
    if (!EndsPiece(text, place + piece.size())) text[place + piece.size()] = u',';
    return true;
}

CellSlot TableForm::Keep(const Value& item) {
    if (spare_.empty()) {
        kept_.push_back(item);
        return CellSlot::OfKept(kept_.size() - 1);
    }
    const std::size_t index = spare_.back();
    spare_.pop_back();
    kept_[index] = item;
    return CellSlot::OfKept(index);
}

void TableForm::GiveUp(CellSlot slot) {
    kept_[slot.Index()] = Value();
    spare_.push_back(static_cast<std::uint32_t>(slot.Index()));
}

void TableForm::Store(std::u16string& text, CellSlot& slot, const Value& item) {
    Release(slot);
    double number = 0;
    if (item.IsPlainNumber(number) || IsCanonicalNumber(item.Text(), number)) {
        slot = CellSlot::OfNumber(number);
    } else if (item.IsEmpty()) {
        slot = CellSlot::Empty();
    } else if (!MayStandInText(item.Text())) {
        slot = Keep(item);
    } else if (!slot.IsPlace() || !StoreOver(text, slot, item.Text())) {
        slot = CellSlot::Empty();
        slot = StoreBehind(text, item.Text(), kComma);
    }
}

TableForm::RowSlots& TableForm::RowForStore(std::size_t row) {
    if (row >= rows_.size()) rows_.resize(row + 1, RowSlots{{}, kNowhere, false});
    return rows_[row];
}

void TableForm::SetCell(std::u16string& text, std::size_t row, std::size_t column,
                        const Value& item) {
    RowSlots& slots = RowForStore(row);
    std::vector<CellSlot>& cells = CellsOf(text, slots);
    if (column >= cells.size()) cells.resize(column + 1, CellSlot::Empty());
    slots.changed = true;
    Store(text, cells[column], item);
}

void TableForm::SetLine(std::u16string& text, std::size_t row, std::u16string_view line) {
    for (const CellSlot cell : rows_[row].cells) Release(cell);
    rows_[row] = RowSlots{{}, kNowhere, false};
    if (line.empty()) return;
    const CellSlot slot = StoreBehind(text, line, kCrLf);
    rows_[row].start = static_cast<std::uint32_t>(slot.Index());
}

void TableForm::SetRow(std::u16string& text, std::size_t row, std::u16string_view lines) {
    RowForStore(row);
    std::size_t end = FindText(lines, kCrLf);
    SetLine(text, row, lines.substr(0, end));
    if (end == kNotFound) return;
    const std::size_t more = CountOf(lines, kCrLf);
    rows_.insert(rows_.begin() + static_cast<std::ptrdiff_t>(row) + 1, more,
                 RowSlots{{}, kNowhere, false});
    for (std::size_t i = 1; i <= more; ++i) {
        const std::size_t from = end + kCrLf.size();
        end = FindText(lines, kCrLf, from);
        SetLine(text, row + i, lines.substr(from, end - from));
    }
}

void TableForm::AppendCell(std::u16string_view text, CellSlot slot, std::u16string& out) const {
    if (slot.IsNumber()) {
        AppendNumber(out, slot.Number());
    } else if (slot.IsKept()) {
        kept_[slot.Index()].AppendTo(out);
    } else if (slot.IsPlace()) {
        out.append(PieceOfCell(text, slot));
    }
}

void TableForm::AppendRow(std::u16string_view text, const RowSlots& row,
                          std::u16string& out) const {
    if (!row.changed) {
        out.append(PieceOfRow(text, row));
        return;
    }
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
        if (i != 0) out += u',';
        AppendCell(text, row.cells[i], out);
    }
}

// Adds a row to the text that is being put in order, and tells its slots where they are there.
void TableForm::MoveRow(std::u16string_view text, RowSlots& row, std::u16string& out) const {
    const std::size_t start = out.size();
    if (row.changed) {
        for (std::size_t i = 0; i < row.cells.size(); ++i) {
            if (i != 0) out += u',';
            const std::size_t place = out.size();
            AppendCell(text, row.cells[i], out);
            if (row.cells[i].IsPlace()) row.cells[i] = CellSlot::OfPlace(place);
        }
    } else {
        for (CellSlot& cell : row.cells) {
            if (cell.IsPlace()) cell = CellSlot::OfPlace(cell.Index() - row.start + start);
        }
        out.append(PieceOfRow(text, row));
    }
    row.start = static_cast<std::uint32_t>(start);
    row.changed = false;
}

void TableForm::Join(std::u16string& text) {
    std::u16string joined;
    joined.reserve(length_);
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        if (i != 0) joined.append(kCrLf);
        MoveRow(text, rows_[i], joined);
    }
    text = std::move(joined);
    open_ = false;
    appended_ = 0;
    length_ = text.size();
}

bool TableForm::JoinsToNothing(std::u16string_view text) const {
    if (rows_.size() != 1) return false;
    const RowSlots& row = rows_.front();
    if (!row.changed) return PieceOfRow(text, row).empty();
    if (row.cells.size() != 1 || row.cells.front().IsNumber()) return false;
    return !row.cells.front().IsKept() &&
           (row.cells.front().IsEmpty() || PieceOfCell(text, row.cells.front()).empty());
}

}  // namespace velm
