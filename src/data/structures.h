// Structure dictionaries: dictionary texts that stand for C structures when a library is called. Four
// reserved keys hold the layout: __Keys, __Size and __Type list the fields, __Total is the size. Fields
// follow each other with no padding.
//
// How a field lies in memory is told by the first character of its key: "@" a nested structure, "$" a
// fixed text in the system code page, "#" a list of bytes, "!" a single, "%" a double, anything else an
// integer, low byte first. Here are only texts and bytes; the calls are in commands/library_commands.cpp.
#pragma once

#include <string>
#include <string_view>

namespace velm {

// The largest structure, in bytes.
inline constexpr std::int64_t kLargestStructure = std::int64_t{64} << 20;

// The dictionary text with the fields of the definitions, a list of key=type, set to empty, and the
// reserved keys. An item with no "=" is no field, and leaves an empty slot in the lists. Types: long,
// string, dword, lparam (4 bytes), integer, int (2), double (8), float, single (4), or a number of bytes;
// an unknown word is 0 bytes.
std::u16string DefineStructure(std::u16string_view dictionary, std::u16string_view definitions);

// Whether a dictionary text is a structure: its __Total is above 0.
bool IsStructure(std::u16string_view dictionary);

// The memory of a structure: as many bytes as __Total, or as the fields when those are more. Throws
// Failure: 13 for a value that doesn't fit its field's kind, 6 for a number out of range or a structure
// that is too large.
std::string BuildBlock(std::u16string_view dictionary);

// The dictionary with the values of the fields as a block of memory holds them. Fields beyond the
// block's end are left as they are.
std::u16string ReadBlock(std::u16string_view dictionary, std::string_view block);

}  // namespace velm
