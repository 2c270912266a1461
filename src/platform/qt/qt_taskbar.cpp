// See qt_taskbar.h. On the toolkit's offscreen display there is no list, and nothing to do.
#include "platform/qt/qt_taskbar.h"

#include <QGuiApplication>
#include <QWindow>

#include "data/failure.h"

// Last: it defines words as macros.
#include <X11/Xlib.h>

namespace velm {

namespace {

constexpr long kRemove = 0;
constexpr long kAdd = 1;
constexpr long kFromApplication = 1;

}  // namespace

void ShowInTaskbar(QWindow& window, bool isListed) {
    if (QGuiApplication::platformName() == QLatin1String("offscreen")) return;
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (x11 == nullptr) throw Failure(failure::kNoSuchMember);
    Display* display = x11->display();
    XEvent message = {};
    message.xclient.type = ClientMessage;
    message.xclient.window = static_cast<Window>(window.winId());
    message.xclient.message_type = XInternAtom(display, "_NET_WM_STATE", False);
    message.xclient.format = 32;
    message.xclient.data.l[0] = isListed ? kRemove : kAdd;
    message.xclient.data.l[1] =
        static_cast<long>(XInternAtom(display, "_NET_WM_STATE_SKIP_TASKBAR", False));
    message.xclient.data.l[3] = kFromApplication;
    XSendEvent(display, DefaultRootWindow(display), False,
               SubstructureNotifyMask | SubstructureRedirectMask, &message);
    XFlush(display);
}

}  // namespace velm
