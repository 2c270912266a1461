// Code page 932, the home platform's form of Shift JIS, to UTF-16 and back. Script sources, plain
// text files, "bytes" and "character codes" of the language all mean this code page. It follows the
// platform's published table and its best fits, not JIS X 0208 or another vendor's Shift JIS. The
// table is constant data (code_page_932_table.h): nothing is built at start-up.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace velm {

// Whether `byte` begins a double-byte character: 81-9F and E0-FC.
bool IsLeadByte932(std::uint8_t byte);

// The character of a single byte. A lead byte alone gives U+30FB.
char16_t DecodeByte932(std::uint8_t byte);

// The character of a double-byte code; U+30FB for a pair to which none is assigned. The user-defined
// area F040-F9FC gives U+E000-U+E757.
char16_t DecodePair932(std::uint8_t lead, std::uint8_t trail);

// The code of a UTF-16 unit: 0 to 255 for a single byte, lead * 256 + trail for a pair, -1 where the
// code page has none. Some characters that it lacks have a best fit ("A" for "À").
int EncodeUnit932(char16_t unit);

// Text of `bytes`. A lead byte takes the byte behind it whatever that is, and a pair without a
// character gives U+30FB; but a NUL is never taken, so a lead byte before a NUL or at the end is
// U+30FB alone.
std::u16string DecodeCodePage932(std::string_view bytes);

// Bytes of `text`. A unit without a code gives "?": each half of a surrogate pair gives its own.
std::string EncodeCodePage932(std::u16string_view text);

// Whether `text` comes back unchanged from the code page. A best fit doesn't fit in this sense.
bool FitsCodePage932(std::u16string_view text);

}  // namespace velm
