// Colours of the language as pixels.
#pragma once

#include <cstdint>

namespace velm {

// The pixel of a colour: 0x00BBGGRR as it is; the colour of the desktop behind a negative number
// 0x800000NN, black for one that there isn't.
std::uint32_t PixelOfColor(std::int32_t color);

inline constexpr std::int32_t kSystemColorCount = 25;

// Replaces the colour of the desktop with a number from 0 to 24 by the toolkit's own.
void SetSystemColor(std::int32_t number, std::uint32_t pixel);

}  // namespace velm
