// A listener that notes what it hears, and windows and canvases to try it on.
#pragma once

#include <QApplication>
#include <QWidget>
#include <algorithm>
#include <functional>
#include <vector>

#include "graphics/canvas.h"
#include "platform/toolkit.h"

namespace velm {

class RecordingListener : public ControlListener {
  public:
    bool OnEvent(const ControlEvent& event) override {
        events.push_back(event);
        return answer ? answer(event) : false;
    }

    int Count(EventKind kind) const {
        return static_cast<int>(std::count_if(
            events.begin(), events.end(), [&](const auto& event) { return event.kind == kind; }));
    }

    std::vector<ControlEvent> events;
    // What a script's procedure would do.
    std::function<bool(const ControlEvent&)> answer;
};

// Delivers what waits, and what is made by that.
inline void Deliver() {
    for (int i = 0; i < 10; ++i) QApplication::processEvents();
}

}  // namespace velm
