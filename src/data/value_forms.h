// Making the hidden forms of a value from its text, and its text from a form. Only data/value.cpp
// calls these.
#pragma once

#include <string>
#include <string_view>

#include "data/value.h"
#include "data/value_record.h"

namespace velm {

void FindCells(std::u16string_view text, CellsForm& form);
// The raw item of a form that isn't unpacked; empty past the end.
std::u16string_view CellAt(std::u16string_view text, const CellsForm& form, std::size_t column);
void FindEntries(std::u16string_view text, EntriesForm& form);

void JoinCells(const CellsForm& form, std::u16string& text);
void JoinRows(const RowsForm& form, std::u16string& text);
void JoinEntries(const EntriesForm& form, std::u16string& text);

// Whether the form that is the truth of a record joins to the empty text.
bool JoinsToNothing(const ValueRecord& record);

// Whether a key can be found through the index of the keys: it holds no "=" and no line break.
bool IsPlainKey(std::u16string_view key);
Value EntryAt(const EntriesForm& form, std::u16string_view key);
void StoreEntry(EntriesForm& form, std::u16string_view key, const Value& value);

// Copies the form that is the truth of a record, for an owner that is about to change it.
void CopyTruth(const ValueRecord& from, ValueRecord& to);

}  // namespace velm
