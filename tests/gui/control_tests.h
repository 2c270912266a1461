// A control on a plain window, and what a test of its members needs.
#pragma once

#include <gtest/gtest.h>

#include <QTest>
#include <QWidget>
#include <string>

#include "data/failure.h"
#include "gui/recording_listener.h"
#include "platform/qt/qt_control_classes.h"

namespace velm {

// The window is 300 by 200 pixels and shown when a test asks for it.
class TestedControl {
  public:
    explicit TestedControl(const QtControlClass& kind, const PixelBox& box = {10, 10, 100, 60}) {
        window.resize(300, 200);
        control = std::make_unique<QtControl>(kind, &window, listener);
        control->SetGeometry(box);
    }

    void Show() {
        if (Has(u"Visible")) control->Set(u"Visible", true, {});
        window.show();
        window.activateWindow();
        Deliver();
    }

    bool Has(std::u16string_view member) {
        try {
            control->Get(member, {});
            return true;
        } catch (const Failure&) {
            return false;
        }
    }
    double Number(std::u16string_view member) { return MemberToNumber(control->Get(member, {})); }
    std::u16string Text(std::u16string_view member, const MemberArguments& arguments = {}) {
        return MemberToText(control->Get(member, arguments));
    }
    void Set(std::u16string_view member, const MemberValue& value,
             const MemberArguments& arguments = {}) {
        control->Set(member, value, arguments);
    }
    void Set(std::u16string_view member, const char16_t* text) {
        control->Set(member, std::u16string(text), {});
    }
    void Call(std::u16string_view member, const MemberArguments& arguments = {}) {
        control->Call(member, arguments);
    }
    void Add(const char16_t* text) { Call(u"AddItem", {std::u16string(text)}); }
    // The items, joined by commas.
    std::u16string Items() {
        std::u16string all;
        const int count = static_cast<int>(Number(u"ListCount"));
        for (int i = 0; i < count; ++i) {
            if (i != 0) all += u',';
            all += Text(u"List", {static_cast<double>(i)});
        }
        return all;
    }
    // The number of the failure that a value of a member ends in; 0 for none.
    int FailureOf(std::u16string_view member, const MemberValue& value,
                  const MemberArguments& arguments = {}) {
        try {
            control->Set(member, value, arguments);
            return 0;
        } catch (const Failure& failed) {
            return failed.Number();
        }
    }
    int Told(EventKind kind) const { return listener.Count(kind); }
    QWidget& Widget() { return *control->Surface().Widget(); }
    QImage Picture() { return window.grab().toImage(); }

    RecordingListener listener;
    QWidget window;
    std::unique_ptr<QtControl> control;
};

// What a script's procedure may do: the control is gone within its own event.
inline void EndAt(TestedControl& tested, EventKind kind) {
    tested.listener.answer = [&tested, kind](const ControlEvent& event) {
        if (event.kind == kind) tested.control.reset();
        return false;
    };
}

}  // namespace velm
