// Regular expressions in the syntax of the ECMAScript family, third edition, as the home platform's
// scripts use it: \d \w \s \b mean ASCII, "." is anything but a line feed, "$" is the very end of the
// text, there is no looking behind. Texts are sequences of UTF-16 units. Callers: the pattern functions
// and commands (through core/patterns.h), and the conditions.
#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

#include "data/text.h"

namespace velm {

// Where a group matched: offsets from 0, the end behind the last unit.
struct RegexSpan {
    std::size_t from = kNotFound;
    std::size_t to = kNotFound;

    bool IsSet() const { return from != kNotFound; }
    bool IsEmpty() const { return from == to; }
    std::u16string_view Of(std::u16string_view text) const {
        return IsSet() ? text.substr(from, to - from) : std::u16string_view();
    }
};

// What one search found: the whole match, then the groups of the pattern.
using RegexMatch = std::vector<RegexSpan>;

class Regex {
  public:
    virtual ~Regex() = default;

    // Searches for the first match that begins at the offset or behind it; what stands before counts as
    // context. Throws Failure(28) when the search is cut off, because the pattern would go on for ages.
    virtual bool Search(std::u16string_view text, std::size_t from, RegexMatch& match) const = 0;
};

enum class RegexCase { kExact, kIgnore };

// The compiled pattern; the last few dozen are kept. Throws Failure with a number of data/pattern_syntax.h
// for a pattern that isn't right.
std::shared_ptr<const Regex> CompileRegex(std::u16string_view pattern, RegexCase letterCase);

// Whether the pattern matches somewhere in the text, letter case ignored. Throws as the two above.
bool RegexTest(std::u16string_view pattern, std::u16string_view text);

}  // namespace velm
