// Date pictures: the codes for years, eras, months, days, weekdays and times.
#pragma once

#include <cstddef>
#include <string>

#include "data/picture_units.h"

namespace velm {

/// A code of a date picture, as it stands in one.
struct DateCode {
    char16_t letter = 0;     // lower case; '/' for the marks AM/PM, AMPM and A/P; 0: no code
    std::size_t length = 0;  // in units
};

/// The longest code at a place of a picture; letter 0 where there is none.
DateCode DateCodeAt(PictureSection picture, std::size_t at);

/// The date in the picture. What is no code stands for itself. m and mm right behind an hour are
/// minutes. Hours count to 12 where the picture has one of the marks. Before Meiji the era is empty,
/// and its year the Gregorian one. The date must be one (IsDate).
std::u16string FormatDatePicture(double date, const PictureUnits& picture);

}  // namespace velm
