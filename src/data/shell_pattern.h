// Patterns of file names: "*" stands for any run of characters, "?" for one, "#" for a digit, "[abc]",
// "[a-z]" and "[!a-z]" for one character of a set or not of it. The whole text must match. Letter case
// counts: who wants it ignored lowers both. Not here: regular expressions.
#pragma once

#include <string_view>

namespace velm {

// Whether the pattern describes the text. A "[" without "]" stands for itself, "[]" for nothing at
// all, and "[!]" for "!". The work is at most the product of the lengths.
bool MatchesShellPattern(std::u16string_view text, std::u16string_view pattern);

}  // namespace velm
