// The syntax of regular expressions and of their replacement texts: from text to text. A pattern is
// checked and rewritten, so that the matching library behind platform/regex.h means by it what the
// script's author means. Not here: the matching.
#pragma once

#include <string>
#include <string_view>

#include "data/failure.h"
#include "platform/regex.h"

namespace velm {

// The home platform's numbers for what can be wrong with a pattern.
namespace pattern_error {
constexpr int kSyntax = 5017;
constexpr int kQuantifier = 5018;  // a quantifier with nothing before it, or an unknown "(?"
constexpr int kOpenClass = 5019;   // "]" is missing
constexpr int kOpenGroup = 5020;   // ")" is missing
constexpr int kRange = 5021;       // a range that runs backward
}  // namespace pattern_error

// The failure of a wrong pattern, described in Japanese.
Failure PatternFailure(int number);

// The pattern as the library reads it, in its dialect without any option bits of syntax. Throws Failure
// with one of the numbers above.
std::u16string RewritePattern(std::u16string_view pattern);

// Adds a replacement text to out: $$ is a dollar sign, $& the match, $` and $' what stands before and
// behind it, $1 to $99 a group. Anything else behind a dollar sign stays as it is, and so does a number
// that the pattern has no group for. Throws Failure(7) when the text would grow beyond all use.
void AppendReplacement(std::u16string& out, std::u16string_view replacement,
                       std::u16string_view text, const RegexMatch& match);

}  // namespace velm
