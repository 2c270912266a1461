// Our own connection to the X display of the toolkit. Included after all headers of the toolkit, since the
// X library's macros swallow common words.
#pragma once

#include <X11/Xlib.h>

namespace velm {

// Opened at the first call. Throws Failure(438) where the toolkit isn't on an X display.
Display* X11Connection();

// While it lives, errors of requests are passed over: a window may vanish at any moment, and the X
// library would end the process for asking about it.
class X11ErrorsIgnored {
  public:
    explicit X11ErrorsIgnored(Display* display);
    ~X11ErrorsIgnored();
    X11ErrorsIgnored(const X11ErrorsIgnored&) = delete;
    X11ErrorsIgnored& operator=(const X11ErrorsIgnored&) = delete;

  private:
    Display* display_;
    XErrorHandler usual_;
};

}  // namespace velm
