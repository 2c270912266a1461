// Values: text with hidden caches of number, cells, rows and entries.
#include "data/value.h"

#include <algorithm>
#include <array>

#include "data/entries_form.h"
#include "data/failure.h"
#include "data/fields.h"
#include "data/lists.h"
#include "data/numbers.h"
#include "data/table_form.h"
#include "data/text.h"
#include "data/value_forms.h"

namespace velm {

#ifdef VELM_NO_CACHES
const bool Value::kCaches = false;
#else
const bool Value::kCaches = true;
#endif

namespace {

const std::u16string kEmptyText;

// Texts longer than this grow no more: one that doubles in a loop would take the whole machine's
// memory before a request for more is refused.
constexpr std::size_t kLongestGrowing = std::size_t{1} << 29;

// The records that wait to be used again, and the longest text whose memory waits with them. Where a
// sanitizer looks for the use of what was given back, none waits.
#ifdef __SANITIZE_ADDRESS__
constexpr bool kRecordsWait = false;
#else
constexpr bool kRecordsWait = true;
#endif
constexpr std::size_t kMostSpares = 64;
constexpr std::size_t kMostSpareUnits = 255;
std::array<ValueRecord*, kMostSpares> spares;
std::size_t spareCount = 0;

ValueForms& FormsOf(ValueRecord& record) {
    if (!record.forms) record.forms = std::make_unique<ValueForms>();
    return *record.forms;
}

void UpdateText(ValueRecord& record) {
    if (record.textValid) return;
    JoinTruth(record);
    record.textValid = true;
}

bool ReadNumberOfRecord(ValueRecord& record) {
    if (record.numberState == NumberState::kUnknown) {
        UpdateText(record);
        const std::optional<double> number = ParseNumber(record.text);
        record.numberState = number ? NumberState::kNumber : NumberState::kNone;
        record.number = number.value_or(0);
    }
    return record.numberState == NumberState::kNumber;
}

// The texts of a few values, put together aside where they are short: one copy of all is cheaper than one
// of each.
class ShortPieces {
  public:
    // Whether all of them had room.
    bool Gather(std::span<const Value* const> values) {
        for (const Value* value : values) {
            if (!Add(*value)) return false;
        }
        return true;
    }
    std::u16string_view Text() const { return {units_, static_cast<std::size_t>(end_ - units_)}; }

  private:
    static constexpr std::size_t kMost = 96;
    static constexpr std::size_t kFewUnits = 8;  // fewer than are worth a call

    char16_t units_[kMost];
    char16_t* end_ = units_;

    std::size_t Room() const { return static_cast<std::size_t>(units_ + kMost - end_); }

    bool Add(const Value& value) {
        double number = 0;
        if (value.IsPlainNumber(number)) {
            if (Room() < kLongestNumber) return false;
            end_ = WriteNumber(end_, number);
            return true;
        }
        const std::u16string& text = value.Text();
        if (text.size() > Room()) return false;
        if (text.size() > kFewUnits) {
            end_ = std::copy_n(text.data(), text.size(), end_);
        } else {
            for (const char16_t unit : text) *end_++ = unit;
        }
        return true;
    }
};

}  // namespace

Value::Value(std::u16string text) {
    if (text.empty()) return;
    record_ = NewRecord();
    record_->text = std::move(text);
}

Value::Value(std::u16string_view text) {
    if (text.empty()) return;
    NewText(text.size()).append(text);
}

Value Value::OfNumberWithText(double number) {
    Value value;
    value.number_ = number;
    value.MakeText();
    value.record_->numberState = NumberState::kUnknown;
    return value;
}

// A record with an empty text.
ValueRecord* Value::NewRecord() {
    if (spareCount == 0) return new ValueRecord;
    ValueRecord* record = spares[--spareCount];
    record->owners = 1;
    record->numberState = NumberState::kUnknown;
    record->truth = TruthForm::kText;
    record->textValid = true;
    record->text.clear();
    return record;
}

void Value::Destroy(ValueRecord* record) noexcept {
    if (record->forms) record->forms.reset();
    const bool waits = kRecordsWait && kCaches && spareCount < kMostSpares;
    if (waits && record->text.capacity() <= kMostSpareUnits) {
        spares[spareCount++] = record;
    } else {
        delete record;
    }
}

std::u16string& Value::NewText(std::size_t units) {
    if (!HasRecord() || record_->owners != 1 || record_->forms) {
        Release();
        record_ = NewRecord();
    }
    record_->numberState = NumberState::kUnknown;
    record_->text.clear();
    if (record_->text.capacity() < units) record_->text.reserve(units);
    return record_->text;
}

const std::u16string& Value::MakeText() const {
    ValueRecord* record = NewRecord();
    AppendNumber(record->text, number_);
    record->number = number_;
    record->numberState = NumberState::kNumber;
    record_ = record;
    return record->text;
}

const std::u16string& Value::TextOfOther() const {
    if (record_ == nullptr) return kEmptyText;
    if (IsNumberOnly()) return MakeText();
    UpdateText(*record_);
    return record_->text;
}

bool Value::FormIsEmpty() const { return JoinsToNothing(*record_); }

// Number for a value that is held as text.
bool Value::ReadNumber(double& number) const {
    if (record_ == nullptr) return false;
    const bool found = ReadNumberOfRecord(*record_);
    number = record_->number;
    if (!kCaches) record_->numberState = NumberState::kUnknown;
    return found;
}

bool Value::SameText(const Value& other) const {
    if (IsNumberOnly() && other.IsNumberOnly()) {
        return number_ == other.number_;
    }
    return EqualTexts(Text(), other.Text());
}

void Value::AppendTo(std::u16string& out) const {
    if (IsNumberOnly()) {
        AppendNumber(out, number_);
    } else if (record_ != nullptr) {
        out.append(Text());
    }
}

// The record, made where there is none yet.
ValueRecord& Value::Record() const {
    if (record_ == nullptr) {
        record_ = NewRecord();
    } else if (IsNumberOnly()) {
        MakeText();
    }
    return *record_;
}

// The record, with no other owner: for a change.
ValueRecord& Value::OwnRecord() {
    ValueRecord& shared = Record();
    if (shared.owners == 1) return shared;
    ValueRecord* own = NewRecord();
    if (shared.textValid) {
        own->text = shared.text;
    } else {
        CopyTruth(shared, *own);
    }
    --shared.owners;
    record_ = own;
    return *own;
}

void Value::Append(const Value& tail) {
    if (tail.IsEmpty()) return;
    if (IsEmpty()) {
        *this = tail;
        Text();
        return;
    }
    const Value held = tail;  // the tail may be this value itself
    ValueRecord& record = OwnRecord();
    UpdateText(record);
    if (record.text.size() > kLongestGrowing) throw Failure(failure::kOutOfMemory);
    held.AppendTo(record.text);
    Changed(TruthForm::kText);
}

bool Value::TryAppend(std::span<const Value* const> tails) {
    if (!HasRecord() || record_->owners != 1 || record_->truth != TruthForm::kText) return false;
    std::u16string& text = record_->text;
    const std::size_t size = text.size();
    if (size == 0 || size > kLongestGrowing / 2) return false;
    bool fits = false;
    const bool done = Attempt([&] {
        ShortPieces pieces;
        fits = pieces.Gather(tails);
        if (fits) {
            text.append(pieces.Text());
        } else if (UsualSize(tails)) {
            for (const Value* tail : tails) tail->AppendTo(text);
            fits = true;
        }
    });
    if (!done) {
        pendingFailure.Clear();
        text.resize(size);
        return false;
    }
    if (fits) Changed(TruthForm::kText);
    return fits;
}

// The most units that the values take together; nothing when one has no text at hand or a very long one.
std::optional<std::size_t> Value::UsualSize(std::span<const Value* const> values) {
    constexpr std::size_t kLongest = 4096;
    std::size_t size = 0;
    for (const Value* value : values) {
        if (value->IsNumberOnly()) size += kLongestNumber;
        if (!value->HasRecord()) continue;
        const ValueRecord& record = *value->record_;
        if (!record.textValid || record.text.size() > kLongest) return std::nullopt;
        size += record.text.size();
    }
    return size;
}

bool Value::TryJoin(std::span<const Value* const> parts) {
    const bool inPlace = HasRecord() && record_->owners == 1 && !record_->forms;
    Value joined;
    Value& place = inPlace ? *this : joined;
    bool fits = false;
    const bool done = Attempt([&] {
        ShortPieces pieces;
        fits = pieces.Gather(parts);
        if (fits) {
            place.Record().text.assign(pieces.Text());
        } else if (const std::optional<std::size_t> size = UsualSize(parts)) {
            std::u16string& text = place.Record().text;
            if (text.capacity() < *size) text.reserve(*size);
            text.clear();
            for (const Value* part : parts) part->AppendTo(text);
            fits = true;
        }
    });
    if (!done) pendingFailure.Clear();
    if (!done || !fits) return false;
    if (!inPlace) Swap(joined);
    record_->numberState = NumberState::kUnknown;
    return true;
}

// Told after a change: the form that was changed is the truth, the others are dropped.
void Value::Changed(TruthForm truth) {
    ValueRecord& record = *record_;
    record.numberState = NumberState::kUnknown;
    record.truth = truth;
    record.textValid = truth == TruthForm::kText;
    if (!record.forms) return;
    if (truth != TruthForm::kCells) record.forms->cells.reset();
    if (truth != TruthForm::kRows) record.forms->rows.reset();
    if (truth != TruthForm::kEntries) record.forms->entries.reset();
    record.forms->fields.clear();
    if (!kCaches) DropForms();
}

void Value::DropForms() const {
    if (!HasRecord()) return;
    UpdateText(*record_);
    record_->truth = TruthForm::kText;
    record_->forms.reset();
}

TableForm& Value::Cells() const {
    ValueRecord& record = Record();
    ValueForms& forms = FormsOf(record);
    if (!forms.cells) {
        UpdateText(record);
        forms.cells = std::make_unique<TableForm>(TableForm::Kind::kList, record.text);
    }
    return *forms.cells;
}

TableForm& Value::Rows() const {
    ValueRecord& record = Record();
    ValueForms& forms = FormsOf(record);
    if (!forms.rows) {
        UpdateText(record);
        forms.rows = std::make_unique<TableForm>(TableForm::Kind::kLines, record.text);
    }
    return *forms.rows;
}

EntriesForm& Value::Entries() const {
    ValueRecord& record = Record();
    ValueForms& forms = FormsOf(record);
    if (!forms.entries) {
        UpdateText(record);
        forms.entries = std::make_unique<EntriesForm>(record.text);
    }
    return *forms.entries;
}

Value Value::Cell(std::size_t column) const {
    TableForm& form = Cells();
    Value cell = form.Cell(record_->text, 0, column);
    if (!kCaches) DropForms();
    return cell;
}

void Value::SetCell(std::size_t column, Value item) {
    const bool sole = IsSoleTruth(TruthForm::kCells);
    if (!sole) OwnRecord();
    Cells().SetCell(record_->text, 0, column, item);
    if (!sole) return Changed(TruthForm::kCells);
    record_->numberState = NumberState::kUnknown;
}

bool Value::TryCellNumber(std::size_t column, double& number) const {
    if (!HasRecord() || !record_->forms || !record_->forms->cells) return false;
    return record_->forms->cells->TryNumber(record_->text, 0, column, number);
}

bool Value::TryRowCellNumber(std::size_t row, std::size_t column, double& number) const {
    if (!HasRecord() || !record_->forms || !record_->forms->rows) return false;
    return record_->forms->rows->TryNumber(record_->text, row, column, number);
}

// Whether a change within the form of this kind leaves nothing to be told (see Changed).
bool Value::IsSoleTruth(TruthForm truth) const {
    if (!HasRecord() || record_->owners != 1 || record_->truth != truth) return false;
    return !record_->textValid;
}

bool Value::TrySetCellNumber(std::size_t column, double number) {
    if (!IsSoleTruth(TruthForm::kCells)) return false;
    if (!record_->forms->cells->TrySetNumber(0, column, number)) return false;
    record_->numberState = NumberState::kUnknown;
    return true;
}

bool Value::TrySetRowCellNumber(std::size_t row, std::size_t column, double number) {
    if (!IsSoleTruth(TruthForm::kRows)) return false;
    if (!record_->forms->rows->TrySetNumber(row, column, number)) return false;
    record_->numberState = NumberState::kUnknown;
    return true;
}

std::size_t Value::CellCount() const {
    const std::size_t count = Cells().CellCount(record_->text, 0);
    if (!kCaches) DropForms();
    return count;
}

Value Value::Row(std::size_t row) const {
    const TableForm& form = Rows();
    Value line = form.Row(record_->text, row);
    if (!kCaches) DropForms();
    return line;
}

Value Value::RowCell(std::size_t row, std::size_t column) const {
    TableForm& form = Rows();
    Value cell = form.Cell(record_->text, row, column);
    if (!kCaches) DropForms();
    return cell;
}

void Value::SetRow(std::size_t row, Value line) {
    OwnRecord();
    TableForm& form = Rows();
    form.SetRow(record_->text, row, line.Text());
    Changed(TruthForm::kRows);
}

void Value::SetRowCell(std::size_t row, std::size_t column, Value item) {
    const bool sole = IsSoleTruth(TruthForm::kRows);
    if (!sole) OwnRecord();
    Rows().SetCell(record_->text, row, column, item);
    if (!sole) return Changed(TruthForm::kRows);
    record_->numberState = NumberState::kUnknown;
}

std::size_t Value::RowCount() const {
    const std::size_t count = Rows().RowCount();
    if (!kCaches) DropForms();
    return count;
}

// A short text is walked sooner than its fields are noted.
Value Value::Field(std::size_t n) const {
    constexpr std::size_t kWorthNoting = 64;
    const std::u16string& text = Text();
    if (n > kLastField) return Value();
    if (!kCaches || text.size() < kWorthNoting) return OfPiece(FieldOf(text, n));
    std::vector<std::uint32_t>& starts = FormsOf(*record_).fields;
    if (starts.empty()) starts = FindFields(text);
    return OfPiece(FieldAt(text, starts, n));
}

Value Value::Entry(std::u16string_view key) const {
    if (EntriesForm::IsPlainKey(key)) {
        const EntriesForm& form = Entries();
        if (form.IsUsable()) {
            Value entry = form.At(key);
            if (!kCaches) DropForms();
            return entry;
        }
    }
    return Value(GetKey(Text(), key));
}

void Value::SetEntry(std::u16string_view key, const Value& value) {
    OwnRecord();
    if (EntriesForm::IsPlainKey(key) && !key.empty()) {
        EntriesForm& form = Entries();
        if (form.IsUsable()) {
            form.Store(key, value);
            Changed(TruthForm::kEntries);
            return;
        }
    }
    *this = Value(SetKey(Text(), key, value.Text()));
}

// Whether the entries are at hand for a key that is no number.
bool Value::HasEntriesFor(const Value& key) const {
    if (!HasRecord() || !record_->forms || !record_->forms->entries) return false;
    if (!key.HasRecord() || !key.record_->textValid || key.record_->text.empty()) return false;
    return record_->forms->entries->IsUsable() &&
           (BeginsAsWord(key.record_->text) || !key.IsNumeric());
}

bool Value::TryEntryNumber(const Value& key, double& number) const {
    return HasEntriesFor(key) && record_->forms->entries->TryNumber(key.record_->text, number);
}

bool Value::TrySetEntryNumber(const Value& key, double number) {
    if (!IsSoleTruth(TruthForm::kEntries) || !HasEntriesFor(key)) return false;
    Value value;
    value.SetHeldNumber(number);
    bool done = false;
    const bool tried =
        Attempt([&] { done = record_->forms->entries->TryStore(key.record_->text, value); });
    if (!tried) pendingFailure.Clear();
    record_->numberState = NumberState::kUnknown;
    return done;
}

}  // namespace velm
