// The X display that the toolkit runs on, through a connection of our own: the windows of all programs and
// the keys. No header of the X library is included here, since its macros swallow common words. All throw
// Failure(438) where the toolkit isn't on an X display.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace velm {

struct X11Window {
    unsigned long id = 0;
    std::u16string title;
    std::int64_t processId = 0;  // 0: not told
    bool isOwned = false;        // it belongs to another window
};

// Windows of programs, front to back, without panels and the desktop itself.
std::vector<X11Window> X11ListWindows();
// Of the window in front; empty when there is none.
std::u16string X11ActiveTitle();
// Asks the window manager to bring a window to the front, and waits until it is there, for a second at
// most. Throws Failure(5) when it didn't come.
void X11Activate(unsigned long window);
// Whether a key or mouse button (1, 2, 4) is down, by its virtual key number.
bool X11IsKeyDown(std::int32_t virtualKey);

}  // namespace velm
