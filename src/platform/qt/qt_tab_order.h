// The order in which the tab key goes through the controls of a window. All controls have a place in it,
// also those that can't have the keyboard.
#pragma once

#include <cstdint>

namespace velm {

class QtSurface;

// From 0.
std::int32_t TabIndexOf(const QtSurface& surface);
// A place behind the last one is the last one. Throws Failure(5) for one below 0.
void MoveInTabOrder(QtSurface& surface, std::int32_t index);

}  // namespace velm
