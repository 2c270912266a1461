// See qt_wait_watch.h.
#include "platform/qt/qt_wait_watch.h"

#include <utility>

#include "platform/toolkit.h"

namespace velm {

QtWaitWatch::QtWaitWatch(std::function<void()> end) {
    constexpr int kInterval = 50;  // milliseconds
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [end = std::move(end)] {
        if (IsWaitOver()) end();
    });
    timer_.start(kInterval);
}

}  // namespace velm
