// Colours of scripts as those of the toolkit.
#pragma once

#include <QColor>
#include <cstdint>

#include "data/member_value.h"

namespace velm {

// The colour of 0x00BBGGRR, or of the desktop for a negative number 0x800000NN; black for a number that
// the desktop has no colour for.
QColor ColorOfScript(std::int32_t color);
// The number of a colour of the desktop, from 0 to 24, as a pixel 0x00BBGGRR.
std::uint32_t SystemPixel(std::int32_t number);
inline constexpr std::int32_t kSystemColors = 25;

std::int32_t ScriptColor(const QColor& color);
// A number that may stand for a colour of the desktop with or without its sign.
std::int32_t MemberToColor(const MemberValue& value);

}  // namespace velm
