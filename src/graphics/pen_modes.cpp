// See pen_modes.h.
#include "graphics/pen_modes.h"

#include <cstddef>
#include <initializer_list>

namespace velm {

namespace {

constexpr std::uint32_t kAllBits = 0x00FFFFFF;

// For each mode from 1 on what becomes of a bit that is off in the pen and below (8), off in the pen and
// on below (4), on in the pen and off below (2), on in both (1).
constexpr std::uint8_t kTruth[] = {0b0000, 0b1000, 0b0100, 0b1100, 0b0010, 0b1010, 0b0110, 0b1110,
                                   0b0001, 0b1001, 0b0101, 0b1101, 0b0011, 0b1011, 0b0111, 0b1111};

// Pixels on and off in turn, beginning with on; a 0 ends the pattern.
struct Pattern {
    std::uint8_t runs[7];
};
constexpr Pattern kPatterns[] = {
    {{18, 6, 0}},
    {{3, 3, 0}},
    {{9, 6, 3, 6, 0}},
    {{9, 3, 3, 3, 3, 3, 0}},
};

}  // namespace

std::uint32_t MixPixel(std::int16_t mode, std::uint32_t pen, std::uint32_t below) {
    const std::uint8_t truth = kTruth[static_cast<std::size_t>(mode - 1)];
    std::uint32_t mixed = 0;
    if ((truth & 0b1000) != 0) mixed |= ~pen & ~below;
    if ((truth & 0b0100) != 0) mixed |= ~pen & below;
    if ((truth & 0b0010) != 0) mixed |= pen & ~below;
    if ((truth & 0b0001) != 0) mixed |= pen & below;
    return mixed & kAllBits;
}

bool IsBrokenStyle(std::int16_t style) {
    return style >= draw_style::kDash && style <= draw_style::kDashDotDot;
}

bool IsInDash(std::int16_t style, std::int64_t distance) {
    if (!IsBrokenStyle(style)) return true;
    const Pattern& pattern = kPatterns[style - draw_style::kDash];
    std::int64_t length = 0;
    for (const std::uint8_t run : pattern.runs) length += run;
    std::int64_t rest = distance % length;
    bool isOn = true;
    for (const std::uint8_t run : pattern.runs) {
        if (rest < run) return isOn;
        rest -= run;
        isOn = !isOn;
    }
    return isOn;
}

}  // namespace velm
