// Small operations on UTF-16 text.
#include "data/text.h"

#include <algorithm>
#include <bit>
#include <cstring>

#include "data/failure.h"
#include "data/width.h"

namespace velm {

namespace {

// Eight units, which one instruction compares where the machine has such, and a mark of a byte for each.
using EightUnits = char16_t __attribute__((vector_size(16)));
using EightMarks = std::uint8_t __attribute__((vector_size(8)));
constexpr std::size_t kUnitsAStep = 8;
constexpr std::uint64_t kMark = 0xFF;
constexpr std::size_t kMarkBits = 8;
constexpr bool kMarksInOrder = std::endian::native == std::endian::little;

// All bits set in the marks of the units at the place that are the wanted ones; the first unit's lowest.
std::uint64_t MatchingUnits(const char16_t* at, const EightUnits& wanted) {
    EightUnits units;
    std::memcpy(&units, at, sizeof units);
    return std::bit_cast<std::uint64_t>(__builtin_convertvector(units == wanted, EightMarks));
}

bool SameUnits(const char16_t* left, const char16_t* right, std::size_t count) {
    constexpr std::size_t kFew = 8;
    if (count > kFew) return std::memcmp(left, right, count * sizeof(char16_t)) == 0;
    for (std::size_t i = 0; i < count; ++i) {
        if (left[i] != right[i]) return false;
    }
    return true;
}

// Calls hit with the place of each occurrence of a needle that isn't empty, from the left and none
// overlapping, for as long as it answers true.
template <class Hit>
inline void ForEachOccurrence(std::u16string_view text, std::u16string_view needle,
                              std::size_t from, Hit hit) {
    if (needle.size() > text.size() || from > text.size()) return;
    const char16_t* const units = text.data();
    const char16_t first = needle.front();
    const std::u16string_view tail = needle.substr(1);
    const std::size_t end = text.size() - tail.size();  // behind the last place where it can begin
    const auto isAt = [&](std::size_t place) {
        return SameUnits(units + place + 1, tail.data(), tail.size());
    };
    if (kMarksInOrder && text.size() >= kUnitsAStep) {
        const EightUnits wanted = {first, first, first, first, first, first, first, first};
        while (from < end) {
            // The last step looks at some units again.
            const std::size_t at = std::min(from, text.size() - kUnitsAStep);
            for (std::uint64_t marks = MatchingUnits(units + at, wanted); marks != 0;) {
                const auto bit = static_cast<std::size_t>(std::countr_zero(marks));
                marks &= ~(kMark << bit);
                const std::size_t place = at + bit / kMarkBits;
                if (place < from || place >= end || !isAt(place)) continue;
                if (!hit(place)) return;
                from = place + needle.size();
            }
            from = std::max(from, at + kUnitsAStep);
        }
        return;
    }
    while (from < end) {
        if (units[from] != first || !isAt(from)) {
            ++from;
        } else {
            if (!hit(from)) return;
            from += needle.size();
        }
    }
}

}  // namespace

std::size_t FindText(std::u16string_view text, std::u16string_view needle, std::size_t from) {
    if (needle.empty()) return text.find(needle, from);
    std::size_t place = kNotFound;
    ForEachOccurrence(text, needle, from, [&place](std::size_t hit) {
        place = hit;
        return false;
    });
    return place;
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
    const std::size_t count = CountOf(text, needle);
    std::u16string out;
    out.reserve(text.size() - count * needle.size() + count * replacement.size());
    AppendReplaced(out, text, needle, replacement);
    return out;
}

void AppendReplaced(std::u16string& out, std::u16string_view text, std::u16string_view needle,
                    std::u16string_view replacement) {
    std::size_t from = 0;
    if (!needle.empty()) {
        ForEachOccurrence(text, needle, 0, [&](std::size_t hit) {
            out.append(text.data() + from, hit - from).append(replacement);
            from = hit + needle.size();
            return true;
        });
    }
    out.append(text.substr(from));
}

std::vector<std::u16string_view> Split(std::u16string_view text, std::u16string_view separator) {
    std::vector<std::u16string_view> parts;
    std::size_t from = 0;
    if (!separator.empty()) {
        ForEachOccurrence(text, separator, 0, [&](std::size_t hit) {
            parts.push_back(text.substr(from, hit - from));
            from = hit + separator.size();
            return true;
        });
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
    ForEachOccurrence(text, needle, 0, [&count](std::size_t) {
        ++count;
        return true;
    });
    return count;
}

std::size_t NthToken(std::u16string_view text, std::u16string_view needle, std::size_t n) {
    if (needle.empty() || n == 0) return 0;
    std::size_t position = 0;
    ForEachOccurrence(text, needle, 0, [&](std::size_t hit) {
        if (--n == 0) position = hit + 1;
        return n != 0;
    });
    return position;
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
