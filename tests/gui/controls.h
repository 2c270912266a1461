// A window with controls for tests: what their listeners hear is written down as words.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWidget>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "data/failure.h"
#include "gui/recording_listener.h"
#include "platform/qt/qt_control.h"
#include "platform/qt/qt_text.h"

namespace velm {

inline std::string NameOf(EventKind kind) {
    static const char* const names[] = {"click", "double",  "change", "scroll", "down",
                                        "move",  "up",      "key",    "keyup",  "typed",
                                        "in",    "out",     "size",   "over",   "drop",
                                        "timer", "closing", "closed", "menu",   "tray"};
    return names[static_cast<std::size_t>(kind)];
}

class Recorder : public RecordingListener {
  public:
    // The kinds that were told since the last question; without moves of the mouse.
    std::vector<std::string> Take() {
        std::vector<std::string> names;
        for (const ControlEvent& event : std::exchange(events, {})) {
            if (event.kind != EventKind::kMouseMove) names.push_back(NameOf(event.kind));
        }
        return names;
    }
    // The same without those of the focus.
    std::vector<std::string> TakePlain() {
        std::vector<std::string> names = Take();
        std::erase(names, "in");
        std::erase(names, "out");
        return names;
    }
};

using Told = std::vector<std::string>;

class Controls : public testing::Test {
  protected:
    Controls() { window.resize(400, 300); }
    ~Controls() override { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    std::unique_ptr<ToolkitControl> Make(ControlClass which, PixelBox box = {10, 10, 100, 40},
                                         QWidget* parent = nullptr) {
        auto control = MakeQtControl(which, parent != nullptr ? parent : &window, listener);
        control->SetGeometry(box);
        control->Set(u"Visible", true, {});
        return control;
    }
    static QWidget* WidgetOf(ToolkitControl& control) {
        return dynamic_cast<QtControl&>(control).Surface().Widget();
    }
    static QWidget* InnerOf(ToolkitControl& control) {
        return dynamic_cast<QtControl&>(control).Surface().Inner();
    }
    void Show() {
        window.show();
        window.activateWindow();
        QCoreApplication::processEvents();
        listener.events.clear();
    }

    static void Mouse(QWidget* widget, QEvent::Type type, QPoint at,
                      Qt::MouseButton button = Qt::LeftButton,
                      Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        const bool isOver = type == QEvent::MouseButtonRelease;
        const Qt::MouseButtons held = isOver ? Qt::NoButton : Qt::MouseButtons(button);
        QMouseEvent event(type, at, widget->mapToGlobal(at),
                          type == QEvent::MouseMove ? Qt::NoButton : button, held, modifiers);
        QApplication::sendEvent(widget, &event);
    }
    static void Click(QWidget* widget, QPoint at = {5, 5},
                      Qt::MouseButton button = Qt::LeftButton) {
        const QPointer<QWidget> alive(widget);
        Mouse(widget, QEvent::MouseButtonPress, at, button);
        if (alive != nullptr) Mouse(widget, QEvent::MouseButtonRelease, at, button);
    }
    static void DoubleClick(QWidget* widget, QPoint at = {5, 5}) {
        Click(widget, at);
        Mouse(widget, QEvent::MouseButtonDblClick, at);
        Mouse(widget, QEvent::MouseButtonRelease, at);
    }
    static void Key(QWidget* widget, int key, const QString& text = {},
                    Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        const QPointer<QWidget> alive(widget);
        QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
        QApplication::sendEvent(widget, &press);
        QKeyEvent release(QEvent::KeyRelease, key, modifiers, text);
        if (alive != nullptr) QApplication::sendEvent(widget, &release);
    }
    static void Compose(QWidget* widget, const QString& preedit, const QString& commit = {}) {
        QInputMethodEvent event(preedit, {});
        event.setCommitString(commit);
        QApplication::sendEvent(widget, &event);
    }

    // Puts a value into a member and expects it back.
    static void RoundTrip(ToolkitControl& control, std::u16string_view member,
                          const MemberValue& value) {
        control.Set(member, value, {});
        EXPECT_EQ(control.Get(member, {}), value) << ToQString(member).toStdString();
    }
    static int FailureOf(const std::function<void()>& step) {
        try {
            step();
        } catch (const Failure& failed) {
            return failed.Number();
        }
        return 0;
    }

    QWidget window;
    Recorder listener;
};

inline MemberValue Text(std::u16string_view text) { return std::u16string(text); }
inline MemberValue Number(double number) { return number; }

}  // namespace velm
