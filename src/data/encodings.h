// Text and bytes in the forms that scripts name: Base64, EUC, JIS (ISO-2022-JP), UTF-8, the URL form
// and the simple scrambling. The Japanese forms are arithmetic on Shift JIS codes, so code page 932
// stands between them and the text. Files and the functions of the language build on these; text
// inside the runtime (terminal, paths) goes through data/utf.h. Nothing here fails on bad input:
// decoders skip or replace.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace velm {

// Base64 text of `bytes`, in lines of 72 characters joined by CR LF, none behind the last. The
// padding has a rule of its own: "=" or "==" as the number of characters leaves 2 or 1 by three.
std::u16string EncodeBase64(std::string_view bytes);

// Bytes of a Base64 text up to its first "=". Characters outside the alphabet are skipped.
// `onHundred`, when given, is called after every 100 characters, so that windows stay alive.
std::string DecodeBase64(std::u16string_view text, const std::function<void()>& onHundred = {});

// Text of EUC bytes up to the first NUL. LF becomes CR LF, also behind a CR. A pair with no place
// in the code page is "・", a half pair at the end is dropped.
std::u16string EucToText(std::string_view bytes);

// Text of JIS bytes up to the first NUL, with the same treatment of LF and of bad pairs. Begins in
// single-byte mode.
std::u16string JisToText(std::string_view bytes);

// Text of UTF-8 bytes. Each byte that belongs to no sequence of one to three bytes is written as
// `replacement`, which may be empty. Sequences of four bytes are no sequences.
std::u16string Utf8ToText(std::string_view bytes, std::u16string_view replacement = {});

// EUC bytes of a text that is given as its bytes in code page 932. A pair without a place in EUC
// (leads F0 and up) is "?".
std::string TextToEuc(std::string_view codePageBytes);

// JIS bytes of a text up to its first NUL. A character outside the code page is "?".
std::string TextToJis(std::u16string_view text);

// UTF-8 bytes of a text, each UTF-16 unit by itself: a surrogate pair gives six bytes.
std::string TextToUtf8(std::u16string_view text);

// The form in which `bytes` stand in a URL: blanks as "+", others as "%XX" where needed.
std::u16string UrlEncode(std::string_view bytes);

// The way back: "+" is a blank, "%XX" a byte, anything else its bytes in code page 932. A "%" without
// two hexadecimal digits behind it stays.
std::string UrlDecode(std::u16string_view text);

// Hides `text` from casual reading; done twice with the same key it gives the text back.
std::u16string ScrambleText(std::u16string_view text, std::int16_t key = 0);

}  // namespace velm
