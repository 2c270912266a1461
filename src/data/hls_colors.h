// Colours by hue, luminance and saturation, each on a scale of 0 to 240, as colour dialogs show them.
#pragma once

#include <cstdint>

namespace velm {

inline constexpr int kHlsMost = 240;

/// The colour as a number, red in its low byte. Each part must be 0 to kHlsMost.
std::int32_t ColorOfHls(int hue, int luminance, int saturation);

}  // namespace velm
