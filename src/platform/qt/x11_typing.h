// Pressing keys on the X display through its test extension.
#pragma once

#include <vector>

#include "data/key_strokes.h"

namespace velm {

// Presses and releases the keys one after the other. A character that the keyboard layout lacks is put on
// an unused key for a while. Throws Failure(438) without an X display or without the extension.
void X11Type(const std::vector<KeyStroke>& strokes);

// Takes the characters off the unused keys again.
void X11RestoreKeyboard();

}  // namespace velm
