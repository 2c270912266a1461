// Numbers to and from text: the only place where either turns into the other, and free of any
// locale. It knows nothing of words, lists or pictures of 書式; everything that reads or shows a
// number calls it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace velm {

/// Whether the number is an integer that its text holds in full (below 1E15): the common case, for which nothing is
/// to be rounded.
inline bool IsShortInteger(double number) {
    constexpr double kLimit = 1e15;
    return number < kLimit && number > -kLimit &&
           static_cast<double>(static_cast<std::int64_t>(number)) == number;
}

/// The parts of RoundToText and RoundPlaces15 for all other numbers.
double RoundFraction(double number);
double RoundPlacesOfFraction(double number);

/// The numeric test and the plain conversion in one: the number that the whole text stands for,
/// correctly rounded.
///
/// Accepted: blanks around (U+0020, U+3000), a sign in front, decimals (".5", "5."), an exponent
/// (E or D, any case), commas that group the integer part by three, and the accountant's "(5)"
/// for -5. Digits, signs, point, brackets and exponent letter may be full-width. A sign behind
/// the digits is refused (5+ is a word, not a number), and so is a sign within the brackets. A
/// text beyond the range of a double is not numeric; one that underflows is 0. "-0" gives +0.
std::optional<double> ParseNumber(std::u16string_view text);

/// Whether the text is known to be no number by the unit that it begins with: a Latin letter, kana or kanji.
inline bool BeginsAsWord(std::u16string_view text) {
    if (text.empty()) return false;
    const char16_t unit = text.front();
    return (unit >= u'ぁ' && unit < u'豈') || (unit >= u'A' && unit <= u'z');
}

/// Whether ParseNumber accepts the text.
bool IsNumeric(std::u16string_view text);

/// The number of a text with or without a unit: what ParseNumber accepts, else NumericPrefix, so
/// that ３０度 is 30. Throws Failure(6) where the leading number is beyond a double.
double TextToNumber(std::u16string_view text);

/// The number that a text begins with, 0 where it begins with none. Blanks in front are passed
/// over; the first character that cannot belong to the number ends it, a blank or a comma too
/// ("12 3" is 12). Full-width forms count. Throws Failure(6) where the number is beyond a double.
double NumericPrefix(std::u16string_view text);

/// The text of a number: at most 15 significant digits (a tie goes to the even digit), no
/// trailing zeros, integers without a point, "0." in front of a fraction, and the forms 1E+15 and
/// 1E-05 outside 1E-04 ... 1E+15. -0 is "0".
std::u16string FormatNumber(double number);

/// The same for a single: at most 7 significant digits, and the exponent form from 1E+07 on.
std::u16string FormatSingle(float number);

/// Writes FormatNumber(number) to a place with room for the longest, -1.23456789012345E-308; returns
/// its end.
inline constexpr std::size_t kLongestNumber = 22;
char16_t* WriteNumber(char16_t* at, double number);

/// Appends FormatNumber(number).
void AppendNumber(std::u16string& text, double number);

/// The number that FormatNumber(number) reads back as. A number beyond the range of its text (its
/// 15 digits round up past the largest double) comes back as it is.
inline double RoundToText(double number) {
    return IsShortInteger(number) ? number + 0.0 : RoundFraction(number);
}

/// True where the text is exactly what FormatNumber gives for some number, which is then stored;
/// else `number` is left as it is.
bool IsCanonicalNumber(std::u16string_view text, double& number);

/// Rounds to 15 decimal places, ties to the even one: the last step of an arithmetic word. From 8
/// on a double has no 15th place, and comes back unchanged.
inline double RoundPlaces15(double number) {
    return IsShortInteger(number) ? number + 0.0 : RoundPlacesOfFraction(number);
}

/// Both roundings, one after the other: the number of a value that takes the result of an arithmetic word.
inline double RoundResult(double number) {
    return IsShortInteger(number) ? number + 0.0 : RoundToText(RoundPlacesOfFraction(number));
}

/// The nearest integer, ties to the even one. Throws Failure(6) where it does not fit (or is not
/// a number at all).
std::int32_t ToInt32(double number);
std::int16_t ToInt16(double number);

/// ToInt32 for callers that expect misfits.
std::optional<std::int32_t> TryInt32(double number);

/// A value of the resource tables: a numeric text, rounded, or "&h" (any case) with up to eight
/// hexadecimal digits, of which eight may stand for a negative number. "&h" alone is 0.
std::optional<std::int32_t> ParseInt32(std::u16string_view text);

}  // namespace velm
