// Patterns of file names against the plain recursive meaning of each sign, on short texts.
#include "data/shell_pattern.h"

#include <algorithm>

#include "fuzz_input.h"

using namespace velm;

namespace {

bool InSet(std::u16string_view set, char16_t unit) {
    if (set.empty()) return false;
    if (set.size() >= 3 && set[1] == u'-') {
        return (set[0] <= unit && unit <= set[2]) || InSet(set.substr(3), unit);
    }
    return set[0] == unit || InSet(set.substr(1), unit);
}

bool Plainly(std::u16string_view text, std::u16string_view pattern) {
    if (pattern.empty()) return text.empty();
    const std::u16string_view rest = pattern.substr(1);
    if (pattern[0] == u'*') {
        return Plainly(text, rest) || (!text.empty() && Plainly(text.substr(1), pattern));
    }
    const std::size_t close = pattern[0] == u'[' ? rest.find(u']') : std::u16string_view::npos;
    if (close == 0) return Plainly(text, rest.substr(1));
    if (text.empty()) return false;
    if (close != std::u16string_view::npos) {
        const std::u16string_view set = rest.substr(0, close);
        const bool negated = set.size() > 1 && set[0] == u'!';
        const bool in = InSet(negated ? set.substr(1) : set, text[0]);
        return in != negated && Plainly(text.substr(1), rest.substr(close + 1));
    }
    const bool digit = text[0] >= u'0' && text[0] <= u'9';
    const bool fits = pattern[0] == u'?' || (pattern[0] == u'#' ? digit : pattern[0] == text[0]);
    return fits && Plainly(text.substr(1), rest);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t kLongest = 24;  // the plain meaning takes exponential time
    const std::u16string all(data, data + std::min(size, kLongest));
    const std::size_t cut = std::min(all.find(u'\n'), all.size());
    const std::u16string_view text = std::u16string_view(all).substr(0, cut);
    const std::u16string_view pattern =
        std::u16string_view(all).substr(std::min(cut + 1, all.size()));
    fuzz::Require(MatchesShellPattern(text, pattern) == Plainly(text, pattern));
    return 0;
}
