// Matching of file name patterns.
#include "data/shell_pattern.h"

#include <cstddef>
#include <optional>

#include "data/text.h"

namespace velm {

namespace {

bool IsDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }

// Whether the set between the brackets, its "!" cut, holds the unit.
bool SetHolds(std::u16string_view set, char16_t unit) {
    for (std::size_t i = 0; i < set.size(); ++i) {
        const bool isRange = i + 2 < set.size() && set[i + 1] == u'-';
        const char16_t last = isRange ? set[i + 2] : set[i];
        if (unit >= set[i] && unit <= last) return true;
        if (isRange) i += 2;
    }
    return false;
}

bool MatchesSet(std::u16string_view set, char16_t unit) {
    if (set.size() > 1 && set.front() == u'!') return !SetHolds(set.substr(1), unit);
    return SetHolds(set, unit);
}

// One element of a pattern other than "*".
struct Element {
    std::size_t length;       // of the element in the pattern
    std::size_t taken;        // units of the text that it stands for: 0 or 1
    std::u16string_view set;  // what stands between "[" and "]"
};

Element ElementAt(std::u16string_view pattern, std::size_t offset) {
    if (pattern[offset] != u'[') return {1, 1, {}};
    const std::size_t close = pattern.find(u']', offset + 1);
    if (close == kNotFound) return {1, 1, {}};
    const std::u16string_view set = pattern.substr(offset + 1, close - offset - 1);
    return {close + 1 - offset, set.empty() ? std::size_t{0} : std::size_t{1}, set};
}

bool Matches(const Element& element, char16_t sign, char16_t unit) {
    if (!element.set.empty()) return MatchesSet(element.set, unit);
    if (sign == u'?') return true;
    return sign == u'#' ? IsDigit(unit) : sign == unit;
}

}  // namespace

bool MatchesShellPattern(std::u16string_view text, std::u16string_view pattern) {
    std::size_t at = 0;
    std::size_t in = 0;
    std::optional<std::size_t> behindStar;  // where to go on when the last star takes one unit more
    std::size_t starTaken = 0;
    while (true) {
        if (in < pattern.size() && pattern[in] == u'*') {
            behindStar = ++in;
            starTaken = at;
            continue;
        }
        if (in == pattern.size() && at == text.size()) return true;
        if (in < pattern.size()) {
            const Element element = ElementAt(pattern, in);
            const bool fits =
                element.taken == 0 || (at < text.size() && Matches(element, pattern[in], text[at]));
            if (fits) {
                in += element.length;
                at += element.taken;
                continue;
            }
        }
        if (!behindStar || starTaken == text.size()) return false;
        in = *behindStar;
        at = ++starTaken;
    }
}

}  // namespace velm
