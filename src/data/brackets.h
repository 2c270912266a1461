// Searches in source text that know about brackets. The language has no nesting rule: a pair of
// bracket kinds is told apart by counting alone, and a pair that is unbalanced in the whole text
// counts as no brackets. Every search here is one pass over the text, so that a line of a million
// characters costs no more than its length.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "data/text.h"

namespace velm {

// The bracket sets in use: openers and closers of the same length, unit by unit.
struct BracketSet {
    std::u16string_view openers;
    std::u16string_view closers;
};

inline constexpr BracketSet kQuotesAndWide = {u"（「", u"）」"};
inline constexpr BracketSet kAllBrackets = {u"（(「［", u"）)」］"};
inline constexpr BracketSet kQuotesAndRound = {u"「（(", u"」）)"};
inline constexpr BracketSet kQuotes = {u"「", u"」"};
inline constexpr BracketSet kRound = {u"（(", u"）)"};

// Whether the 1-based position is inside one of the pairs: the pair is balanced in the whole text,
// and the text up to and with that position has a different count of openers and closers.
// Position 0 is outside.
bool IsInsideBrackets(std::u16string_view text, std::size_t position, BracketSet set);

// 1-based position of the first needle at or behind the 1-based start that is outside the pairs of
// the set; 0 when there is none.
std::size_t FindOutsideBrackets(std::u16string_view text, std::u16string_view needle,
                                std::size_t start = 1, BracketSet set = kQuotesAndWide);

// The same searching backward: the last needle that begins at or before the 1-based start (-1: the
// end of the text).
std::size_t FindLastOutsideBrackets(std::u16string_view text, std::u16string_view needle,
                                    std::ptrdiff_t start = -1, BracketSet set = kAllBrackets);

// 1-based position of the next "," outside （ ） and 「 」 behind the 1-based start (the start itself
// is not looked at: a comma at the very first position is no separator when start is 1); with
// normalise "、" and "，" count too. 0 when there is none.
std::size_t NextComma(std::u16string_view text, std::size_t start, bool normalise);

// "、" and "，" turned to ",", wherever they stand, also inside 「」.
std::u16string NormaliseCommas(std::u16string_view text);

// The pieces between the top-level commas of a text whose commas have been normalised. Kept: a
// comma at the very first position separates nothing.
std::vector<std::u16string_view> CutAtCommas(std::u16string_view normalised);

// The sentences of a line that stands for several, cut at "。" outside brackets from the end: the
// brackets are counted anew in what is left of each cut. One element when there is no such "。".
std::vector<std::u16string_view> CutSentences(std::u16string_view line);

// The pieces between the marks outside the pairs of the set, cut from the start: the brackets are
// counted anew in what is left of each cut. One element when there is no such mark.
std::vector<std::u16string_view> CutAtMark(std::u16string_view text, char16_t mark, BracketSet set);

// Text between from and to, neither inside brackets, searched from the 1-based start; empty if
// from is absent, all after it if to is absent.
std::u16string_view BetweenOutsideBrackets(std::u16string_view text, std::u16string_view from,
                                           std::u16string_view to, std::size_t start = 1);

// Answers whether positions of one text are inside brackets, in order from the left, in one pass.
class BracketScanner {
  public:
    BracketScanner(std::u16string_view text, BracketSet set);

    // Whether the unit at the offset (from 0) is inside. Offsets must not fall from call to call.
    bool IsInside(std::size_t offset);

  private:
    static constexpr std::size_t kMaxPairs = 4;

    std::u16string_view text_;
    BracketSet set_;
    std::size_t next_ = 0;
    std::ptrdiff_t difference_[kMaxPairs] = {};
    bool counted_ = false;
    bool balanced_[kMaxPairs] = {};

    bool IsBalanced(std::size_t pair);
};

}  // namespace velm
