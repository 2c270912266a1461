// Lists of words as handlers get them: cut at commas outside brackets, evaluated or not.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "core/word.h"

namespace velm {

// The parts between the needles outside brackets, evaluated if asked for. Kept: the parts are joined and
// cut with a tab, so that a tab in a part cuts it further.
std::vector<std::u16string> SplitOutsideBrackets(std::u16string_view text,
                                                 std::u16string_view needle, bool evaluate);

// The parts between the commas outside brackets, each escaped as an item; a single part is unescaped
// again.
std::vector<std::u16string> SplitList(std::u16string_view text, bool evaluate);

// A colour word as a number 0xBBGGRR, or a system colour (negative): a name with or without 色 or いろ, a
// number of the palette, "&hRRGGBB", "&h" and eight digits, "#" and a number.
std::int32_t ParseColor(const Word& word);

// "&h" and red, green, blue in two digits each; a system colour as its eight digits.
std::u16string ColorToText(std::int32_t color);

}  // namespace velm
