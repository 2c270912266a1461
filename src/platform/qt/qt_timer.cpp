// Timers: controls that show nothing and have no place.
#include <QTimer>

#include "platform/qt/qt_control_classes.h"
#include "platform/qt/qt_members.h"

namespace velm {

namespace {

constexpr int kLongestInterval = 65535;  // milliseconds

class TimerWidget : public QWidget {
  public:
    using QWidget::QWidget;

    QTimer timer;
    int interval = 0;  // milliseconds; 0 for none
    bool isOn = true;

    // Whatever is set, the time begins anew.
    void Restart() {
        timer.stop();
        if (isOn && interval > 0) timer.start(interval);
    }
};

int Interval(QtSurface& surface) { return surface.As<TimerWidget>().interval; }
void SetInterval(QtSurface& surface, int interval) {
    auto& widget = surface.As<TimerWidget>();
    widget.interval = Within(interval, 0, kLongestInterval);
    widget.Restart();
}

bool IsEnabled(QtSurface& surface) { return surface.As<TimerWidget>().isOn; }
void SetEnabled(QtSurface& surface, bool isOn) {
    auto& widget = surface.As<TimerWidget>();
    if (widget.isOn == isOn) return;
    widget.isOn = isOn;
    widget.Restart();
}

constexpr QtMember kTimerMembers[] = {
    Member<Interval, SetInterval>(u"Interval"),
    Member<IsEnabled, SetEnabled>(u"Enabled"),
};

QWidget* MakeTimer(QWidget* parent) { return new TimerWidget(parent); }

void StartTimer(QtSurface& surface) {
    QTimer& timer = surface.As<TimerWidget>().timer;
    QObject::connect(&timer, &QTimer::timeout, &surface,
                     [&surface] { surface.Tell(EventKind::kTimer); });
}

}  // namespace

const QtControlClass kTimerClass = {
    .make = MakeTimer, .start = StartTimer, .members = kTimerMembers, .hasCommonMembers = false};

}  // namespace velm
