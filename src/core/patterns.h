// Regular expressions as scripts get them: every match of a text, with the report of what is wrong with
// a pattern. Called by the pattern functions and commands; conditions ask platform/regex.h themselves.
#pragma once

#include <string_view>
#include <vector>

namespace velm {

// Every match, from the left, none overlapping, letter case ignored; views into text. Reports error 38
// for a wrong pattern, or one that was cut off; there are then no matches.
std::vector<std::u16string_view> RegexMatches(std::u16string_view pattern,
                                              std::u16string_view text);

// Error 38 with the number of the pending failure, and behind a colon its description if that is
// wanted. The failure is then cleared.
enum class PatternReport { kNumber, kNumberAndDescription };
void ReportPattern(PatternReport form);

}  // namespace velm
