// Looking for single units in UTF-16 text, eight a step.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace velm {

// Eight units, which one instruction compares where the machine has such.
using UnitBlock = char16_t __attribute__((vector_size(16)));
inline constexpr std::size_t kBlockUnits = 8;

// All bits set in the units that matched: the first four and the last four of a block.
using BlockMatches = std::array<std::uint64_t, 2>;

template <char16_t... kWanted>
BlockMatches MatchesInBlock(const char16_t* at) {
    UnitBlock units;
    std::memcpy(&units, at, sizeof units);
    constexpr auto kEight = [](char16_t unit) {
        return UnitBlock{unit, unit, unit, unit, unit, unit, unit, unit};
    };
    return std::bit_cast<BlockMatches>(((units == kEight(kWanted)) | ...));
}

// Calls visit with the place of each unit of the text, from an offset on, that is one of the wanted ones.
template <char16_t... kWanted, class Visit>
void VisitUnits(std::u16string_view text, std::size_t from, Visit&& visit) {
    constexpr std::size_t kHalf = kBlockUnits / 2;
    constexpr unsigned kUnitBits = 16;
    if constexpr (std::endian::native == std::endian::little) {
        for (; from + kBlockUnits <= text.size(); from += kBlockUnits) {
            const BlockMatches found = MatchesInBlock<kWanted...>(text.data() + from);
            if ((found[0] | found[1]) == 0) continue;
            for (std::size_t half = 0; half < found.size(); ++half) {
                for (std::uint64_t bits = found[half]; bits != 0;) {
                    const auto unit = static_cast<unsigned>(std::countr_zero(bits)) / kUnitBits;
                    visit(from + half * kHalf + unit);
                    bits &= ~(std::uint64_t{0xFFFF} << unit * kUnitBits);
                }
            }
        }
    }
    for (; from < text.size(); ++from) {
        if (((text[from] == kWanted) || ...)) visit(from);
    }
}

// The place of the first such unit at or behind the offset, or the size of the text.
template <char16_t... kWanted>
std::size_t FindUnitOf(std::u16string_view text, std::size_t from = 0) {
    constexpr std::size_t kHalf = kBlockUnits / 2;
    if constexpr (std::endian::native == std::endian::little) {
        for (; from + kBlockUnits <= text.size(); from += kBlockUnits) {
            const BlockMatches found = MatchesInBlock<kWanted...>(text.data() + from);
            if ((found[0] | found[1]) == 0) continue;
            const std::size_t half = found[0] != 0 ? 0 : 1;
            return from + half * kHalf +
                   static_cast<std::size_t>(std::countr_zero(found[half])) / 16;
        }
    }
    while (from < text.size() && ((text[from] != kWanted) && ...)) ++from;
    return from;
}

template <char16_t... kWanted>
std::size_t CountUnitsOf(std::u16string_view text) {
    std::size_t count = 0;
    VisitUnits<kWanted...>(text, 0, [&](std::size_t) { ++count; });
    return count;
}

template <char16_t... kWanted>
bool ContainsUnitOf(std::u16string_view text) {
    return FindUnitOf<kWanted...>(text) != text.size();
}

// Calls visit with the place of each CR LF of the text.
template <class Visit>
void VisitLineEnds(std::u16string_view text, Visit&& visit) {
    VisitUnits<u'\r'>(text, 0, [&](std::size_t place) {
        if (place + 1 < text.size() && text[place + 1] == u'\n') visit(place);
    });
}

}  // namespace velm
