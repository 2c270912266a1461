// Rows and items by their places.
#include "data/table_form.h"

#include <algorithm>

#include "data/failure.h"
#include "data/numbers.h"
#include "data/text.h"
#include "data/unit_scan.h"
#include "data/value.h"

namespace velm {

namespace {

// Longer items that are stored are kept aside as values: reading them again then copies nothing.
constexpr std::size_t kLongestInText = 32;

// The text is put in order when more than its length, and this, was put behind it.
constexpr std::size_t kLeastAppended = 4096;

// The pool is put in order when half of it, and this, is wasted.
constexpr std::size_t kLeastWasted = 1024;

std::uint32_t Offset(std::size_t place) {
    if (place > UINT32_MAX) throw Failure(failure::kOutOfMemory);
    return static_cast<std::uint32_t>(place);
}

}  // namespace

TableForm::TableForm(Kind kind, std::u16string_view text) : length_(text.size()) {
    RowSlots row;
    const auto end = [&](std::size_t place) {
        row.length = Offset(place - row.start);
        rows_.push_back(row);
        row.start = Offset(place + kCrLf.size());
    };
    if (kind == Kind::kLines) {
        rows_.reserve(CountUnitsOf<u'\r'>(text) + 1);
        VisitLineEnds(text, end);
    }
    end(text.size());
}

// Before the first row is cut: room for all rows if they are like it.
void TableForm::PlanRoom(std::u16string_view text, std::u16string_view piece) {
    const std::size_t items = CountUnitsOf<u',', u'、', u'，'>(piece) + 1;
    slots_.reserve(std::min(items * rows_.size(), text.size() + rows_.size()));
}

void TableForm::AddSlot(std::u16string_view text, std::size_t place, std::size_t length) {
    if (length == 0) {
        slots_.push_back(CellSlot::Empty());
    } else if (length <= CellSlot::kLongestPiece) {
        slots_.push_back(CellSlot::OfPiece(place, length));
    } else {
        slots_.push_back(Keep(Value(text.substr(place, length))));
    }
}

void TableForm::CutRow(std::u16string_view text, RowSlots& row) {
    CompactIfWasteful();
    const std::u16string_view piece = PieceOfRow(text, row);
    if (slots_.empty()) PlanRoom(text, piece);
    const std::size_t first = slots_.size();
    std::size_t from = 0;
    VisitUnits<u',', u'、', u'，'>(piece, 0, [&](std::size_t comma) {
        AddSlot(text, row.start + from, comma - from);
        from = comma + 1;
    });
    AddSlot(text, row.start + from, piece.size() - from);
    row.count = Offset(slots_.size() - first);
    if (row.count > row.room) {
        wasted_ += row.room;
        row.first = Offset(first);
        row.room = row.count;
    } else {
        // It was cut before, and its slots still have their room.
        std::copy(slots_.begin() + static_cast<std::ptrdiff_t>(first), slots_.end(), SlotsOf(row));
        slots_.resize(first, CellSlot::Empty());
    }
}

// Adds empty items to a row that was cut.
void TableForm::LengthenRow(RowSlots& row, std::size_t count) {
    if (count > row.room && row.first + std::size_t{row.room} != slots_.size()) {
        CompactIfWasteful();
        const std::size_t first = slots_.size();
        slots_.resize(Offset(first + count + count / 2), CellSlot::Empty());
        std::copy_n(SlotsOf(row), row.count, slots_.begin() + static_cast<std::ptrdiff_t>(first));
        wasted_ += row.room;
        row.first = Offset(first);
        row.room = Offset(slots_.size() - first);
    } else if (count > row.room) {
        slots_.resize(Offset(row.first + count), CellSlot::Empty());
        row.room = Offset(count);
    }
    std::fill(SlotsOf(row) + row.count, SlotsOf(row) + count, CellSlot::Empty());
    row.count = Offset(count);
}

void TableForm::CompactIfWasteful() {
    if (wasted_ <= kLeastWasted || wasted_ <= slots_.size() / 2) return;
    std::vector<CellSlot> packed;
    packed.reserve(slots_.size());
    for (RowSlots& row : rows_) {
        const CellSlot* slots = SlotsOf(row);
        row.first = Offset(packed.size());
        row.room = row.count;
        packed.insert(packed.end(), slots, slots + row.count);
    }
    slots_ = std::move(packed);
    wasted_ = 0;
}

std::size_t TableForm::CellCount(const std::u16string& text, std::size_t row) {
    if (rows_[row].count == 0) CutRow(text, rows_[row]);
    return rows_[row].count;
}

Value TableForm::Cell(const std::u16string& text, std::size_t row, std::size_t column) {
    if (row >= rows_.size()) return Value();
    if (rows_[row].count == 0) CutRow(text, rows_[row]);
    if (column >= rows_[row].count) return Value();
    CellSlot& slot = SlotsOf(rows_[row])[column];
    if (slot.IsPlace()) TakeNumber(text, slot);
    if (slot.IsNumber()) return Value::OfNumber(slot.Number());
    if (slot.IsEmpty()) return Value();
    return slot.IsKept() ? kept_[slot.Index()] : Value(PieceOfCell(text, slot));
}

// A text that is the very one of a number is held as the number from now on.
void TableForm::TakeNumber(std::u16string_view text, CellSlot& slot) {
    double number = 0;
    if (IsCanonicalNumber(PieceOfCell(text, slot), number)) slot = CellSlot::OfNumber(number);
}

Value TableForm::Row(const std::u16string& text, std::size_t row) const {
    if (row >= rows_.size()) return Value();
    if (!rows_[row].changed) return Value::OfPiece(PieceOfRow(text, rows_[row]));
    std::u16string line;
    AppendRow(text, rows_[row], line);
    return Value(std::move(line));
}

// Puts a piece behind the end of the text; gives its place.
std::uint32_t TableForm::PutBehind(std::u16string& text, std::u16string_view piece) {
    const std::uint32_t place = Offset(text.size());
    text.append(piece);
    appended_ += piece.size();
    return place;
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
    if (item.IsPlainNumber(number)) {
        slot = CellSlot::OfNumber(number);
        return;
    }
    const std::u16string_view piece = item.Text();
    if (IsCanonicalNumber(piece, number)) {
        slot = CellSlot::OfNumber(number);
    } else if (piece.empty()) {
        slot = CellSlot::Empty();
    } else if (piece.size() > kLongestInText) {
        slot = CellSlot::Empty();
        slot = Keep(item);
    } else if (slot.IsPlace() && piece.size() <= slot.Length()) {
        std::copy(piece.begin(), piece.end(),
                  text.begin() + static_cast<std::ptrdiff_t>(slot.Index()));
        slot = CellSlot::OfPiece(slot.Index(), piece.size());
    } else {
        slot = CellSlot::Empty();
        slot = CellSlot::OfPiece(PutBehind(text, piece), piece.size());
    }
}

// The row, made if it isn't there yet, for something that may go behind the text.
TableForm::RowSlots& TableForm::RowForStore(std::u16string& text, std::size_t row) {
    if (appended_ > length_ + kLeastAppended) Join(text);
    if (row >= rows_.size()) rows_.resize(row + 1);
    return rows_[row];
}

void TableForm::SetCell(std::u16string& text, std::size_t row, std::size_t column,
                        const Value& item) {
    RowSlots& slots = RowForStore(text, row);
    if (slots.count == 0) CutRow(text, slots);
    if (column >= slots.count) LengthenRow(slots, column + 1);
    slots.changed = true;
    Store(text, SlotsOf(slots)[column], item);
}

void TableForm::SetLine(std::u16string& text, std::size_t row, std::u16string_view line) {
    RowSlots& slots = RowForStore(text, row);
    for (std::size_t i = 0; i < slots.count; ++i) Release(SlotsOf(slots)[i]);
    slots.count = 0;
    slots.changed = false;
    slots.length = 0;
    slots.start = PutBehind(text, line);
    slots.length = Offset(line.size());
}

void TableForm::SetRow(std::u16string& text, std::size_t row, std::u16string_view lines) {
    std::size_t end = FindText(lines, kCrLf);
    SetLine(text, row, lines.substr(0, end));
    if (end == kNotFound) return;
    const std::size_t more = CountOf(lines, kCrLf);
    rows_.insert(rows_.begin() + static_cast<std::ptrdiff_t>(row) + 1, more, RowSlots());
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
    const CellSlot* slots = SlotsOf(row);
    for (std::size_t i = 0; i < row.count; ++i) {
        if (i != 0) out += u',';
        AppendCell(text, slots[i], out);
    }
}

// Adds a row to the text that is being put in order, and tells its slots where they are there.
void TableForm::MoveRow(std::u16string_view text, RowSlots& row, std::u16string& out) {
    const std::size_t start = out.size();
    CellSlot* const slots = SlotsOf(row);
    if (!row.changed) out.append(PieceOfRow(text, row));
    for (std::size_t i = 0; i < row.count; ++i) {
        if (row.changed && i != 0) out += u',';
        const std::size_t place = row.changed ? out.size() : slots[i].Index() - row.start + start;
        if (row.changed) AppendCell(text, slots[i], out);
        if (slots[i].IsPlace()) slots[i] = CellSlot::OfPiece(place, slots[i].Length());
    }
    row.start = Offset(start);
    row.length = Offset(out.size() - start);
    row.changed = false;
}

void TableForm::Join(std::u16string& text) {
    std::u16string joined;
    joined.reserve(text.size());
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        if (i != 0) joined.append(kCrLf);
        MoveRow(text, rows_[i], joined);
    }
    text = std::move(joined);
    appended_ = 0;
    length_ = text.size();
}

bool TableForm::JoinsToNothing() const {
    if (rows_.size() != 1) return false;
    const RowSlots& row = rows_.front();
    if (!row.changed) return row.length == 0;
    return row.count == 1 && SlotsOf(row)->IsEmpty();
}

}  // namespace velm
