// The constant tables of code page 932, written at build time by tools/code_page_932 from the
// published mapping. Only code_page_932.cpp looks here; everybody else calls code_page_932.h.
#pragma once

#include <cstddef>
#include <cstdint>

namespace velm::code_page_932 {

constexpr std::size_t kLeadCount = 50;    // lead bytes with assigned rows: 81-9F, E0-EF, FA-FC
constexpr std::size_t kTrailCount = 188;  // trail bytes 40-7E, 80-FC
constexpr unsigned kBlockBits = 5;        // UTF-16 units a block of kEncoded: 32

// For each byte the number of its row in kDecoded, or 255.
extern const std::uint8_t kLeadRows[256];
// UTF-16 unit of each double-byte code, 0 where none is assigned.
extern const char16_t kDecoded[kLeadCount * kTrailCount];
// For each block of UTF-16 units the number of its block in kEncoded.
extern const std::uint16_t kEncodeBlocks[0x10000 >> kBlockBits];
// Code of each UTF-16 unit, 0 where the table has none (the rules in the code come first).
extern const std::uint16_t kEncoded[];

}  // namespace velm::code_page_932
