// The kana readings of Japanese text, from a dictionary of the system. Callers: ふりがな and the
// sorting by reading.
#pragma once

#include <string>
#include <string_view>

namespace velm {

// The reading of a text in hiragana. Kanji and katakana are read; digits, Latin letters, signs,
// blanks and line ends stay as they are, and so does a word that the dictionary doesn't know. Throws
// Failure, with a description in Japanese, where there is nothing to read with. The dictionary is
// loaded by the first call and kept; a missing one is looked for again by each call.
std::u16string KanaReading(std::u16string_view text);

}  // namespace velm
