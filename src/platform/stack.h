// The stack of the calling thread.
#pragma once

#include <cstddef>

namespace velm {

// Lets the stack grow to the wanted size where the system allows it, and returns its lowest usable
// address. Works for the main thread and for any other; a smaller limit that can't be raised is kept.
char* StackEnd(std::size_t wantedBytes);

}  // namespace velm
