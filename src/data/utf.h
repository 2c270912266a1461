// UTF-8 to UTF-16 and back, by the Unicode standard: for the terminal, sources, resources and the
// file system. Scripts that name UTF-8 for their data get Utf8ToText and TextToUtf8 of
// data/encodings.h instead, which have rules of their own.
#pragma once

#include <string>
#include <string_view>

namespace velm {

// Text of `bytes`. Four-byte sequences become surrogate pairs. Each longest part of an ill-formed
// sequence gives one U+FFFD. A byte-order mark is kept as U+FEFF.
std::u16string Utf8ToUtf16(std::string_view bytes);

// Bytes of `text`. Surrogate pairs are joined; a lone surrogate gives U+FFFD.
std::string Utf16ToUtf8(std::u16string_view text);

// Whether `bytes` are well-formed UTF-8: no overlong forms, surrogates or values above U+10FFFF.
bool IsValidUtf8(std::string_view bytes);

}  // namespace velm
