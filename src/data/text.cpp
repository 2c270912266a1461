// Small operations on UTF-16 text.
#include "data/text.h"

#include <array>
#include <bit>
#include <cstring>

#include "data/failure.h"
#include "data/width.h"

namespace velm {

namespace {

// Eight units, which one instruction compares where the machine has such.
using EightUnits = char16_t __attribute__((vector_size(16)));
constexpr std::size_t kUnitsAStep = 8;

// All bits set in the units at the place that are the wanted ones: the first four and the last four.
std::array<std::uint64_t, 2> MatchingUnits(const char16_t* at, const EightUnits& wanted) {
    EightUnits units;
    std::memcpy(&units, at, sizeof units);
    return std::bit_cast<std::array<std::uint64_t, 2>>(units == wanted);
}

std::size_t FirstMatch(const std::array<std::uint64_t, 2>& found) {
    constexpr std::size_t kHalf = kUnitsAStep / 2;
    const std::size_t half = found[0] != 0 ? 0 : 1;
    return half * kHalf + static_cast<std::size_t>(std::countr_zero(found[half])) / 16;
}

// The first such unit at or behind the offset, or the size of the text.
std::size_t FindUnit(std::u16string_view text, char16_t unit, std::size_t from) {
    const char16_t* units = text.data();
    if constexpr (std::endian::native == std::endian::little) {
        const EightUnits wanted = {unit, unit, unit, unit, unit, unit, unit, unit};
        for (; from + kUnitsAStep <= text.size(); from += kUnitsAStep) {
            const std::array<std::uint64_t, 2> found = MatchingUnits(units + from, wanted);
            if ((found[0] | found[1]) != 0) return from + FirstMatch(found);
        }
    }
    while (from < text.size() && units[from] != unit) ++from;
    return from;
}

}  // namespace

std::size_t FindText(std::u16string_view text, std::u16string_view needle, std::size_t from) {
    if (needle.empty()) return text.find(needle, from);
    if (needle.size() > text.size()) return kNotFound;
    const std::u16string_view heads = text.substr(0, text.size() - needle.size() + 1);
    const std::u16string_view tail = needle.substr(1);
    for (; from < heads.size(); ++from) {
        from = FindUnit(heads, needle.front(), from);
        if (from == heads.size()) break;
        if (text.compare(from + 1, tail.size(), tail) == 0) return from;
    }
    return kNotFound;
}

std::u16string_view TrimLeft(std::u16string_view text) {
    const std::size_t first = text.find_first_not_of(u' ');
    return first == kNotFound ? std::u16string_view() : text.substr(first);
}

std::u16string_view TrimRight(std::u16string_view text) {
    const std::size_t last = text.find_last_not_of(u' ');
    return last == kNotFound ? std::u16string_view() : text.substr(0, last + 1);
}

std::u16string_view Trim(std::u16string_view text) { return TrimLeft(TrimRight(text)); }

std::u16string_view TrimRight(std::u16string_view text, std::size_t n) {
    return n >= text.size() ? std::u16string_view() : text.substr(0, text.size() - n);
}

std::u16string ReplaceAll(std::u16string_view text, std::u16string_view needle,
                          std::u16string_view replacement) {
    if (needle.empty()) return std::u16string(text);
    std::size_t hit = FindText(text, needle);
    if (hit == kNotFound) return std::u16string(text);
    std::u16string out;
    // A text that grows is counted first: to grow by doubling costs more than a second look.
    out.reserve(replacement.size() <= needle.size()
                    ? text.size()
                    : text.size() + CountOf(text, needle) * (replacement.size() - needle.size()));
    std::size_t from = 0;
    for (; hit != kNotFound; hit = FindText(text, needle, from)) {
        out.append(text.substr(from, hit - from)).append(replacement);
        from = hit + needle.size();
    }
    return out.append(text.substr(from));
}

std::vector<std::u16string_view> Split(std::u16string_view text, std::u16string_view separator) {
    std::vector<std::u16string_view> parts;
    std::size_t from = 0;
    if (!separator.empty()) {
        for (std::size_t hit = FindText(text, separator); hit != kNotFound;
             hit = FindText(text, separator, from)) {
            parts.push_back(text.substr(from, hit - from));
            from = hit + separator.size();
        }
    }
    parts.push_back(text.substr(from));
    return parts;
}

std::vector<std::u16string_view> SplitLines(std::u16string_view text) { return Split(text, kCrLf); }

std::u16string Join(const std::vector<std::u16string>& parts, std::u16string_view separator) {
    std::u16string out;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (i != 0) out.append(separator);
        out.append(parts[i]);
    }
    return out;
}

std::size_t CountOf(std::u16string_view text, std::u16string_view needle) {
    if (needle.empty()) return 0;
    std::size_t count = 0;
    for (std::size_t hit = FindText(text, needle); hit != kNotFound;
         hit = FindText(text, needle, hit + needle.size())) {
        ++count;
    }
    return count;
}

std::size_t NthToken(std::u16string_view text, std::u16string_view needle, std::size_t n) {
    if (needle.empty() || n == 0) return 0;
    std::size_t from = 0;
    for (std::size_t count = 1;; ++count) {
        const std::size_t hit = FindText(text, needle, from);
        if (hit == kNotFound) return 0;
        if (count == n) return hit + 1;
        from = hit + needle.size();
    }
}

void CheckMadeLength(std::uint64_t units) {
    if (units > kLongestMadeText) throw Failure(failure::kOutOfMemory);
}

std::u16string_view BeforeNul(std::u16string_view text) { return text.substr(0, text.find(u'\0')); }

std::u16string_view StripPair(std::u16string_view text, std::u16string_view open,
                              std::u16string_view close) {
    if (text.size() < open.size() + close.size() || !text.starts_with(open) ||
        !text.ends_with(close)) {
        return text;
    }
    return text.substr(open.size(), text.size() - open.size() - close.size());
}

std::u16string_view BetweenPair(std::u16string_view text, std::size_t start,
                                std::u16string_view open, std::u16string_view close, bool keep) {
    const std::size_t first = text.find(open, start);
    if (first == kNotFound) return {};
    const std::size_t inner = first + open.size();
    const std::size_t last = text.find(close, inner);
    if (last == kNotFound) return {};
    return keep ? text.substr(first, last + close.size() - first)
                : text.substr(inner, last - inner);
}

std::u16string_view BoolText(bool flag) { return flag ? u"1" : u"0"; }

std::u16string_view FolderOf(std::u16string_view path) {
    const std::size_t last = path.rfind(u'\\');
    return last == kNotFound ? std::u16string_view() : path.substr(0, last + 1);
}

std::u16string_view FileNameOf(std::u16string_view path) {
    const std::size_t last = path.find_last_of(u"\\/");
    return last == kNotFound ? path : path.substr(last + 1);
}

std::u16string ExtensionOf(std::u16string_view path) {
    const std::size_t dot = path.rfind(u'.');
    return dot == kNotFound ? std::u16string() : ToLower(path.substr(dot + 1));
}

std::u16string WithBackslash(std::u16string_view path) {
    std::u16string out(path);
    if (!out.ends_with(u'\\')) out += u'\\';
    return out;
}

}  // namespace velm
