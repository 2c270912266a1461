// List and dictionary text: rows joined by CR LF, items joined by ",", lines of key=value. Items
// keep their own separators escaped. Only text goes in and out here; the hidden indexes that make
// access by number and key fast are in data/value.h.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace velm {

// Separators of an item to their escapes and back: "、" {//}, "," {**}, "，" {*/}, CR LF {*n}.
std::u16string EscapeItem(std::u16string_view text);
std::u16string UnescapeItem(std::u16string_view text);

// "、" and "，" become ","; cut at ","; each item that is not numeric is unescaped.
std::vector<std::u16string> ParseList(std::u16string_view text);

// Adds one item to a list text: escaped unless it is numeric.
void AppendItem(std::u16string& list, std::u16string_view item);

// Each item that is not numeric is escaped; joined with the separator.
std::u16string JoinList(const std::vector<std::u16string>& items, std::u16string_view separator);

// The list of names of any kind: each is escaped, also one that looks like a number ("1,000"); joined
// with ",".
std::u16string ListOfNames(const std::vector<std::u16string>& names);

// One entry of a dictionary text: lines of key=value, the first line that matches wins, letter case
// counts. SetDictValue replaces the line where it stands or adds one at the end; GetDictValue reads
// empty for an absent key. A CR LF inside a value is kept as "{/n}".
std::u16string SetDictValue(std::u16string_view text, std::u16string_view key,
                            std::u16string_view value);
std::u16string GetDictValue(std::u16string_view text, std::u16string_view key);

// The same texts as variables index them by key: an updated line moves to the end. An empty key
// stands for the whole text as key.
std::u16string SetKey(std::u16string_view text, std::u16string_view key, std::u16string_view value);
std::u16string GetKey(std::u16string_view text, std::u16string_view key);

// CR LF to "{/n}" and back.
std::u16string EscapeLineBreaks(std::u16string_view text);
std::u16string UnescapeLineBreaks(std::u16string_view text);

// EscapeItem at the end of a text that is being made.
void AppendEscaped(std::u16string& out, std::u16string_view text);

}  // namespace velm
