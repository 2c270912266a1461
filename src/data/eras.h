// The Japanese eras since the calendar of the country became the Gregorian one in all but the first
// years: Meiji to Reiwa. Callers: the date reader and the date pictures.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace velm {

struct Era {
    std::int64_t firstDay;        // days since 1899-12-30
    std::int32_t firstYear;       // the Gregorian year of its year 1
    char16_t letter;              // M T S H R
    char16_t square;              // the era in one character, as in ㍻
    std::u16string_view initial;  // 平
    std::u16string_view name;     // 平成
};

/// The era of a day (days since 1899-12-30); nullptr before Meiji. The day on which an era begins
/// belongs to the new one.
const Era* EraOfDay(std::int64_t day);

/// The era whose name, initial, letter (any case) or square stands at the beginning of the text,
/// and the length of what stands there; nullptr when none does. The longest form is taken.
const Era* EraAtFront(std::u16string_view text, std::size_t& length);

}  // namespace velm
