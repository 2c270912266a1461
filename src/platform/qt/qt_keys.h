// Keys of the toolkit as the numbers that scripts and their key names know: virtual key codes.
#pragma once

#include <Qt>
#include <cstdint>

class QKeyEvent;

namespace velm {

// The virtual key number; 0 for a key without one. Keys of signs have the numbers of the Japanese
// keyboard: 186 ':', 187 ';', 188 ',', 189 '-', 190 '.', 191 '/', 192 '@', 219 '[', 220 '\', 221 ']',
// 222 '^', 226 '_'.
std::int32_t VirtualKey(const QKeyEvent& event);

// Bits of shift_state.
std::int32_t ShiftState(Qt::KeyboardModifiers modifiers);

// Whether a key types: none with alt does, nor the delete key, nor those without a character.
bool TypesText(const QKeyEvent& event);
// Whether the toolkit would type a character all the same.
bool TypesWithAlt(const QKeyEvent& event);

}  // namespace velm
