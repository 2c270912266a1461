// Number pictures: 0 and # places, grouping and scaling commas, the point, %, E+ and E-, literals,
// and the sections positive;negative;zero.
#pragma once

#include <string>
#include <string_view>

#include "data/picture_units.h"

namespace velm {

/// The number in the picture. Digits beyond the places are rounded, a half away from zero, on the 15
/// digits that the number's own text has. A number that rounds to zero has no sign, and takes the
/// section for zero where there is one.
std::u16string FormatNumberPicture(double number, const PictureUnits& picture);
std::u16string FormatNumberPicture(double number, std::u16string_view picture);

}  // namespace velm
