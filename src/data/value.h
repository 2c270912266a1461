// The value of the language. What a script sees is always text. Behind the text a value may also
// hold its number and its list or dictionary form; these are caches that no script can detect:
//
//   number   A computed number is kept as a double, and gets its text only when somebody asks for
//            it. The double is then exactly the one that the text reads back as (15 digits).
//   cells    The text cut at its commas, for access to an item by number.
//   rows     The text cut at its CR LF, and each row at its commas.
//   entries  The lines of key=value with an index of the keys.
//   fields   Where the fields of 情報 begin.
//
// A form is made on the first access by index, and kept when a cell is stored: the text is then out
// of date until it is asked for. So access by index costs the same however large the table is. All
// of it lies in a shared record with a count of its owners: copying a value is copying a pointer,
// and a store into a record with several owners copies the record first. A record that nobody holds any
// more waits to be used again, with the memory of a short text: a short text costs no memory anew.
//
// One thread only. With VELM_NO_CACHES every form is dropped after its use.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "data/numbers.h"
#include "data/value_record.h"

namespace velm {

class Value {
  public:
    // The empty text.
    Value() noexcept = default;
    explicit Value(std::u16string text);
    explicit Value(std::u16string_view text);
    explicit Value(const char16_t* text) : Value(std::u16string_view(text)) {}
    // A number; its text is the number with at most 15 significant digits.
    static Value OfNumber(double number) {
        const double rounded = RoundToText(number);
        if (!kCaches) return OfNumberWithText(rounded);
        Value value;
        value.record_ = NumberMark();
        value.number_ = rounded;
        return value;
    }
    static Value OfInteger(std::int64_t number) { return OfNumber(static_cast<double>(number)); }
    // A piece of a text; as a number where it is the very text of one, so that nothing needs to be kept.
    static Value OfPiece(std::u16string_view piece) {
        double number = 0;
        return IsCanonicalNumber(piece, number) ? OfNumber(number) : Value(piece);
    }
    static Value OfBool(bool flag) { return OfNumber(flag ? 1 : 0); }

    Value(const Value& other) noexcept : record_(other.record_), number_(other.number_) {
        Retain();
    }
    Value(Value&& other) noexcept : record_(other.record_), number_(other.number_) {
        other.record_ = nullptr;
    }
    // The other may be this one, or lie in what is given up.
    Value& operator=(const Value& other) noexcept {  // NOLINT(bugprone-unhandled-self-assignment)
        ValueRecord* const record = other.record_;
        const double number = other.number_;
        other.Retain();
        Release();
        record_ = record;
        number_ = number;
        return *this;
    }
    Value& operator=(Value&& other) noexcept {
        if (this != &other) {
            Release();
            record_ = std::exchange(other.record_, nullptr);
            number_ = other.number_;
        }
        return *this;
    }
    ~Value() { Release(); }
    void Swap(Value& other) noexcept {
        std::swap(record_, other.record_);
        std::swap(number_, other.number_);
    }

    // The text. The reference holds until this value changes or dies.
    const std::u16string& Text() const {
        return HasRecord() && record_->textValid ? record_->text : TextOfOther();
    }
    // Makes this the empty text, with room for so many units, and hands the text out to be written before
    // anything else is done with this value. Throws std::bad_alloc with the empty text kept.
    std::u16string& NewText(std::size_t units);
    bool IsEmpty() const {
        if (!HasRecord()) return record_ == nullptr;
        return record_->textValid ? record_->text.empty() : FormIsEmpty();
    }
    // The number that the text is, by the numeric test; nothing when it is no number.
    std::optional<double> Number() const {
        double number = number_;
        if (IsNumberOnly() || ReadNumber(number)) return number;
        return std::nullopt;
    }
    bool IsNumeric() const { return Number().has_value(); }
    // The plain conversion: 0 for a text that is no number.
    double NumberOrZero() const { return IsNumberOnly() ? number_ : Number().value_or(0); }
    // True, with the number, when this value is held as a number and nobody asked for text yet.
    bool IsPlainNumber(double& number) const {
        number = number_;
        return IsNumberOnly();
    }
    // Takes another number in place of the one that is held without a text. False, with nothing changed,
    // when this is no such value.
    bool SetNumber(double number) {
        if (!IsNumberOnly()) return false;
        number_ = RoundToText(number);
        return true;
    }
    // Takes a number that some value held, and which is therefore rounded.
    void SetHeldNumber(double number) {
        if (!kCaches) {
            *this = OfNumber(number);
            return;
        }
        if (HasRecord()) Release();
        record_ = NumberMark();
        number_ = number;
    }
    bool SameText(const Value& other) const;
    // Whether this is known to be a text with something in it that is no number, so that comparing it
    // with anything is comparing texts.
    bool IsKnownWord() const {
        return HasRecord() && record_->numberState == NumberState::kNone && record_->textValid &&
               !record_->text.empty();
    }
    // SameText for a value that IsKnownWord: a number that is held without a text is never the same.
    bool SameWord(const Value& other) const {
        if (!other.HasRecord()) return false;
        return record_ == other.record_ || EqualTexts(record_->text, other.Text());
    }
    // Adds the text to out, without keeping a text for a number that has none yet.
    void AppendTo(std::u16string& out) const;

    // Appends in place when this value is the only owner of its text.
    void Append(const Value& tail);
    // The short road of Append for several tails: false, with nothing changed, unless this is a text with
    // no other owner, and neither it nor a tail is very long. No tail may be this value itself.
    bool TryAppend(std::span<const Value* const> tails);
    // The short road to the join of several values, in place of what this value holds and in its memory
    // where that can be: false, with nothing changed, when one of them is very long. No part may be this
    // value itself.
    bool TryJoin(std::span<const Value* const> parts);
    // Whether both are the same record, so that giving up the one makes the other sole owner.
    bool SharesRecordWith(const Value& other) const {
        return HasRecord() && record_ == other.record_;
    }

    // Items by number, from 0, of the text cut at "," "、" "，"; the raw item, still escaped. An item
    // past the end is the empty text.
    Value Cell(std::size_t column) const;
    // Replaces an item, which must hold no comma; the row is extended when it is too short. The other
    // commas of the text become ",".
    void SetCell(std::size_t column, Value item);
    std::size_t CellCount() const;

    // The short road of Cell and RowCell to a plain number: false unless the cells are at hand.
    bool TryCellNumber(std::size_t column, double& number) const;
    bool TryRowCellNumber(std::size_t row, std::size_t column, double& number) const;
    // The short road of SetCell and SetRowCell: false, with nothing changed, unless the cell is there, the
    // form with it is the truth and the only one, and nobody else holds it.
    bool TrySetCellNumber(std::size_t column, double number);
    bool TrySetRowCellNumber(std::size_t row, std::size_t column, double number);

    // Rows by number, from 0, of the text cut at CR LF. A row past the end is the empty text.
    Value Row(std::size_t row) const;
    Value RowCell(std::size_t row, std::size_t column) const;
    // Replaces a row by a text with no CR LF, or an item of a row; missing rows are added.
    void SetRow(std::size_t row, Value line);
    void SetRowCell(std::size_t row, std::size_t column, Value item);
    std::size_t RowCount() const;

    // The n-th field, from 1, as data/fields.h cuts them.
    Value Field(std::size_t n) const;

    // The value of a key in lines of key=value, empty if absent, and storing one, as GetKey and SetKey
    // of data/lists.h do it.
    Value Entry(std::u16string_view key) const;
    void SetEntry(std::u16string_view key, const Value& value);
    // The short roads of Entry and SetEntry for a key that is no number and a value that is held as one:
    // false, with nothing changed, unless the entries are at hand, and for storing the only truth.
    bool TryEntryNumber(const Value& key, double& number) const;
    bool TrySetEntryNumber(const Value& key, double number);

  private:
    // False with VELM_NO_CACHES, which only value.cpp asks for: so all else needs to be compiled only once.
    static const bool kCaches;

    static bool EqualTexts(const std::u16string& a, const std::u16string& b) {
        return a.size() == b.size() &&
               std::memcmp(a.data(), b.data(), a.size() * sizeof(char16_t)) == 0;
    }
    // In place of a record: a number whose text nobody asked for. Nothing lies there.
    static ValueRecord* NumberMark() { return reinterpret_cast<ValueRecord*>(1); }
    bool IsNumberOnly() const { return record_ == NumberMark(); }
    bool HasRecord() const { return reinterpret_cast<std::uintptr_t>(record_) > 1; }
    static Value OfNumberWithText(double number);

    void Retain() const noexcept {
        if (HasRecord()) ++record_->owners;
    }
    void Release() noexcept {
        if (HasRecord() && --record_->owners == 0) Destroy(record_);
        record_ = nullptr;
    }
    static ValueRecord* NewRecord();
    static void Destroy(ValueRecord* record) noexcept;
    const std::u16string& TextOfOther() const;
    const std::u16string& MakeText() const;
    bool FormIsEmpty() const;
    static std::optional<std::size_t> UsualSize(std::span<const Value* const> values);
    bool ReadNumber(double& number) const;
    ValueRecord& Record() const;
    ValueRecord& OwnRecord();
    bool IsSoleTruth(TruthForm truth) const;
    bool HasEntriesFor(const Value& key) const;
    TableForm& Cells() const;
    TableForm& Rows() const;
    EntriesForm& Entries() const;
    void Changed(TruthForm truth);
    void DropForms() const;

    mutable ValueRecord* record_ = nullptr;
    double number_ = 0;
};

}  // namespace velm
