// See qt_frames.h.
#include "platform/qt/qt_frames.h"

#include <QAbstractEventDispatcher>
#include <QElapsedTimer>
#include <QTimer>
#include <algorithm>
#include <vector>

namespace velm {

namespace {

constexpr int kFrameTime = 16;  // milliseconds

std::vector<FrameClient*> clients;

QElapsedTimer& SinceLastFrame() {
    static QElapsedTimer timer;
    return timer;
}

bool IsDue() {
    const QElapsedTimer& timer = SinceLastFrame();
    return !timer.isValid() || timer.elapsed() >= kFrameTime;
}

bool AnyNews() {
    bool any = false;
    // Each is asked: the question makes them look.
    for (FrameClient* client : clients) any = client->HasNews() || any;
    return any;
}

void ShowAllNews() {
    for (FrameClient* client : clients) {
        if (client->HasNews()) client->ShowNews();
    }
}

}  // namespace

FrameClient::FrameClient() { clients.push_back(this); }
FrameClient::~FrameClient() { std::erase(clients, this); }

void ShowDueFrame() {
    if (clients.empty() || !IsDue() || !AnyNews()) return;
    SinceLastFrame().start();
    ShowAllNews();
}

void StartFrames() {
    QAbstractEventDispatcher* events = QAbstractEventDispatcher::instance();
    auto* late = new QTimer(events);
    late->setSingleShot(true);
    late->setTimerType(Qt::PreciseTimer);
    QObject::connect(late, &QTimer::timeout, ShowDueFrame);
    QObject::connect(events, &QAbstractEventDispatcher::aboutToBlock, late, [late] {
        ShowDueFrame();
        if (!late->isActive() && AnyNews()) late->start(kFrameTime);
    });
}

}  // namespace velm
