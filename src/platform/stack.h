// The stack of the calling thread.
#pragma once

#include <cstddef>

namespace velm {

// Lets the stack grow to the wanted size where the system allows it, and returns its lowest usable
// address. Works for the main thread and for any other; a smaller limit that can't be raised is kept.
char* StackEnd(std::size_t wantedBytes);

// Where the stack stands now. Not the address of a variable: under a sanitizer that may lie elsewhere.
inline char* StackPointer() { return static_cast<char*>(__builtin_frame_address(0)); }

}  // namespace velm
