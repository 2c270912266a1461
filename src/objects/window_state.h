// What the properties of windows need beside the routines of object_settings.h.
#pragma once

#include <cstdint>
#include <string_view>

#include "objects/object.h"

namespace velm {

// Keys of the settings that a window keeps in Prop.
inline constexpr std::u16string_view kWindowKind = u"種類";        // 0 to 5
inline constexpr std::u16string_view kTransparency = u"透明度";    // percent
inline constexpr std::u16string_view kKeptOnTop = u"最前面";       // 0 or 1
inline constexpr std::u16string_view kInitialState = u"初期状態";  // 0 to 3
inline constexpr std::u16string_view kWindowIconFile = u"アイコン";

// A setting as a number; 0 when it isn't there.
std::int32_t WindowSetting(const Window& window, std::u16string_view key);
// A box of this size in the middle of the screen.
PixelBox CentredOnScreen(PixelBox box);
// Only the part of the window shows where its picture differs from the pixel in its corner. Does nothing
// for a window without a picture.
void ShapeByPicture(Window& window);

}  // namespace velm
