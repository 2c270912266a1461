// The toolkit's start, and the delivery of what waits in its event queue.
#pragma once

#include <memory>

class QApplication;

namespace velm {

struct ApplicationDeleter {
    void operator()(QApplication* application) const;
};
using ApplicationPointer = std::unique_ptr<QApplication, ApplicationDeleter>;

// Starts the toolkit: once a process, on the main thread, before any window. The command line is the
// script's, so the toolkit gets none of it. Without a usable display it says so on standard error
// and ends the process with status 2.
ApplicationPointer StartApplication();

// The same for a program that needs no display: without one the windows are kept off screen.
ApplicationPointer StartApplicationAnywhere();

// Delivers waiting events and shows what was drawn, at most once a frame. Both are looked for once a tick
// of the system's coarse clock (some milliseconds), so that a loop may call it on each pass for a few
// nanoseconds.
void PumpApplication();

}  // namespace velm
