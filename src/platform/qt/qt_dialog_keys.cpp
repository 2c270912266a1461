// See qt_dialog_keys.h.
#include "platform/qt/qt_dialog_keys.h"

#include <QKeyEvent>
#include <QPushButton>
#include <QVariant>

#include "platform/qt/qt_surface.h"

namespace velm {

namespace {

const char* PropertyOf(DialogKey key) {
    return key == DialogKey::kEnter ? "velmEnter" : "velmEscape";
}

QPushButton* ButtonOf(const QWidget& window, DialogKey key) {
    for (QPushButton* button : window.findChildren<QPushButton*>()) {
        if (HasDialogKey(*button, key) && QtSurface::OfWidget(button) != nullptr) return button;
    }
    return nullptr;
}

bool Press(QPushButton* button, const QKeyEvent& event) {
    if (button == nullptr || !button->isEnabled() || button->isHidden()) return false;
    if (!event.isAutoRepeat()) button->click();
    return true;
}

}  // namespace

bool HasDialogKey(const QAbstractButton& button, DialogKey key) {
    return button.property(PropertyOf(key)).toBool();
}

void SetDialogKey(QAbstractButton& button, DialogKey key, bool isOn) {
    if (isOn) {
        QPushButton* old = ButtonOf(*button.window(), key);
        if (old != nullptr) SetDialogKey(*old, key, false);
    }
    button.setProperty(PropertyOf(key), isOn);
    button.update();
}

bool PressDialogButton(QWidget& at, const QKeyEvent& event) {
    if ((event.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) return false;
    const int key = event.key();
    if (key == Qt::Key_Escape) return Press(ButtonOf(*at.window(), DialogKey::kEscape), event);
    if (key != Qt::Key_Return && key != Qt::Key_Enter) return false;
    if (auto* button = qobject_cast<QPushButton*>(&at)) return Press(button, event);
    return Press(ButtonOf(*at.window(), DialogKey::kEnter), event);
}

}  // namespace velm
