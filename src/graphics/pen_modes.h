// How the pen meets what is there already: the sixteen ways of mixing its colour with a pixel, and the
// patterns of broken lines.
#pragma once

#include <cstdint>

namespace velm {

// The ways of mixing, numbered 1 (black) to 16 (white). The names say what becomes of a pixel.
namespace draw_mode {
constexpr std::int16_t kBlack = 1;
constexpr std::int16_t kInvert = 6;
constexpr std::int16_t kXor = 7;
constexpr std::int16_t kNothing = 11;
constexpr std::int16_t kCopy = 13;
constexpr std::int16_t kWhite = 16;
}  // namespace draw_mode

// The kinds of lines. Patterns are those of a pen of width 1; a wider pen draws unbroken lines.
namespace draw_style {
constexpr std::int16_t kSolid = 0;
constexpr std::int16_t kDash = 1;
constexpr std::int16_t kDot = 2;
constexpr std::int16_t kDashDot = 3;
constexpr std::int16_t kDashDotDot = 4;
constexpr std::int16_t kNone = 5;         // no outline at all
constexpr std::int16_t kInsideSolid = 6;  // unbroken
}  // namespace draw_style

// The pixel that a pen of a colour leaves on another pixel. mode: 1 to 16.
std::uint32_t MixPixel(std::int16_t mode, std::uint32_t pen, std::uint32_t below);

// Whether a style breaks thin lines up.
bool IsBrokenStyle(std::int16_t style);
// Whether a broken line is painted at so many pixels from its start.
bool IsInDash(std::int16_t style, std::int64_t distance);

}  // namespace velm
