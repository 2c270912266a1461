// Width, kana and letter case of text, and the key form of names. The maps are those of the home
// platform's Japanese locale, by our own table (data/width_table.h); no library is asked. Not
// here: encodings, collation, readings.
#pragma once

#include <string>
#include <string_view>

namespace velm {

/// Widens ASCII, the blank, half-width katakana (a voiced pair becomes one letter: ｶﾞ to ガ) and
/// half-width symbols. Four characters take their Japanese partner instead of the form of the
/// same name: " ” , ' ’ , ` ‘ and \ ￥. Everything else stays.
std::u16string ToFullWidth(std::u16string_view text);

/// The reverse; also “ becomes ", and ＂ ＇ ｀ ＼ become their ASCII forms. Letters without a
/// half-width form stay: hiragana, kanji, ヮ ヰ ヱ ヵ ヶ, and arrows. So do ヷ and ヺ, which code
/// page 932 does not have.
std::u16string ToHalfWidth(std::u16string_view text);

/// Full-width katakana to hiragana, ヽ ヾ included. ー stays, and so do ヴ ヵ ヶ, whose hiragana
/// are not in code page 932; half-width katakana stay too.
std::u16string ToHiragana(std::u16string_view text);

/// Hiragana to full-width katakana, ゝ ゞ included. ゔ ゕ ゖ become ヴ ヵ ヶ.
std::u16string ToKatakana(std::u16string_view text);

/// Letter case, one unit to one unit: ASCII, full-width Latin, Latin-1, Greek and Cyrillic.
/// Letters whose partner is more than one letter or another alphabet's (ß, µ) stay.
std::u16string ToUpper(std::u16string_view text);
std::u16string ToLower(std::u16string_view text);
void MakeUpper(std::u16string& text);
void MakeLower(std::u16string& text);

/// The key form of a name, equal for two names exactly when they are the same name: letter case
/// and width are ignored, a voiced half-width pair meets its full-width letter, hiragana and
/// katakana stay different. Folding a folded name changes nothing. The form itself is for
/// comparing only, never shown.
std::u16string FoldName(std::u16string_view name);

/// Whether two names fold to the same key.
bool SameName(std::u16string_view left, std::u16string_view right);

}  // namespace velm
