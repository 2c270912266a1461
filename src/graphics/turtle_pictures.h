// The turtle's pictures, one a direction, drawn from one description by the raster rules of the canvas.
#pragma once

#include <cstdint>

#include "data/pixmap.h"

namespace velm {

// The picture that faces up; the others are 2000 and the degrees clockwise from up.
inline constexpr std::int32_t kTurtleFacingUp = 101;
inline constexpr std::int32_t kTurtleFirstAngle = 2000;

// The picture of an identifier: 101, 2015 to 2345 in steps of 15, and 2070. Made at its first use and
// kept. Throws Failure(340) for any other number.
const Pixmap& TurtlePicture(std::int32_t identifier);

}  // namespace velm
