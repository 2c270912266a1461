// The table of eras. First days: Meiji by the edict that made the first day of the lunar year its
// beginning (25 January 1868), the others by their ordinances: 30 July 1912, 25 December 1926,
// 8 January 1989 and 1 May 2019.
#include "data/eras.h"

#include <array>
#include <cstddef>

namespace velm {

namespace {

constexpr std::array<Era, 5> kEras = {{
    {-11662, 1868, u'M', u'㍾', u"明", u"明治"},
    {4595, 1912, u'T', u'㍽', u"大", u"大正"},
    {9856, 1926, u'S', u'㍼', u"昭", u"昭和"},
    {32516, 1989, u'H', u'㍻', u"平", u"平成"},
    {43586, 2019, u'R', u'\u32FF', u"令", u"令和"},
}};

bool StartsWithLetter(std::u16string_view text, char16_t letter) {
    return !text.empty() && (text.front() == letter || text.front() == (letter | 0x20));
}

}  // namespace

const Era* EraOfDay(std::int64_t day) {
    const Era* found = nullptr;
    for (const Era& era : kEras) {
        if (era.firstDay <= day) found = &era;
    }
    return found;
}

const Era* EraAtFront(std::u16string_view text, std::size_t& length) {
    for (const Era& era : kEras) {
        const bool isSquare = !text.empty() && text.front() == era.square;
        length = text.starts_with(era.name) ? era.name.size() : 1;
        if (text.starts_with(era.initial) || isSquare || StartsWithLetter(text, era.letter)) {
            return &era;
        }
    }
    length = 0;
    return nullptr;
}

}  // namespace velm
