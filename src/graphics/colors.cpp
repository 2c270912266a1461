// The colours of the desktop, in force until a toolkit tells its own.
#include "graphics/colors.h"

#include <array>
#include <cstddef>

namespace velm {

namespace {

constexpr std::uint32_t kColorBits = 0xFFFFFF;
constexpr std::uint32_t kNumberBits = 0x7FFFFFFF;

// By number, as 0xBBGGRR.
std::array<std::uint32_t, kSystemColorCount> systemColors = {
    0xC8D0D4,  // scroll bar
    0xA56E3A,  // desktop
    0x6A240A,  // title of the active window
    0x808080,  // title of another window
    0xC8D0D4,  // menu
    0xFFFFFF,  // window
    0x000000,  // window frame
    0x000000,  // text in menus
    0x000000,  // text in windows
    0xFFFFFF,  // text in the active title
    0xC8D0D4,  // border of the active window
    0xC8D0D4,  // border of another window
    0x808080,  // workspace
    0x6A240A,  // selection
    0xFFFFFF,  // selected text
    0xC8D0D4,  // face of buttons
    0x808080,  // shadow of buttons
    0x808080,  // disabled text
    0x000000,  // text on buttons
    0xC8D0D4,  // text in another title
    0xFFFFFF,  // light edge of buttons
    0x404040,  // dark edge
    0xC8D0D4,  // half-light edge
    0x000000,  // text of tips
    0xE1FFFF,  // background of tips
};

}  // namespace

std::uint32_t PixelOfColor(std::int32_t color) {
    const auto bits = static_cast<std::uint32_t>(color);
    if (color >= 0) return bits & kColorBits;
    const std::size_t number = bits & kNumberBits;
    return number < systemColors.size() ? systemColors[number] : 0;
}

void SetSystemColor(std::int32_t number, std::uint32_t pixel) {
    systemColors.at(static_cast<std::size_t>(number)) = pixel & kColorBits;
}

}  // namespace velm
