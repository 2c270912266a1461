// The connection to the X display.
#include <QGuiApplication>

#include "data/failure.h"
#include "platform/qt/x11_connection.h"

namespace velm {

Display* X11Connection() {
    static Display* display = nullptr;
    if (QGuiApplication::platformName() != QLatin1String("xcb"))
        throw Failure(failure::kNoSuchMember);
    if (display == nullptr) display = XOpenDisplay(nullptr);
    if (display == nullptr) throw Failure(failure::kNoSuchMember);
    return display;
}

X11ErrorsIgnored::X11ErrorsIgnored(Display* display) : display_(display) {
    XSync(display_, False);
    usual_ = XSetErrorHandler([](Display*, XErrorEvent*) { return 0; });
}

X11ErrorsIgnored::~X11ErrorsIgnored() {
    XSync(display_, False);
    XSetErrorHandler(usual_);
}

}  // namespace velm
