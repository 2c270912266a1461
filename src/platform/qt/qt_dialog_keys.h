// The buttons that Enter and Escape press wherever the keyboard is within their window.
#pragma once

#include <QAbstractButton>

class QKeyEvent;

namespace velm {

enum class DialogKey : std::uint8_t { kEnter, kEscape };

bool HasDialogKey(const QAbstractButton& button, DialogKey key);
// Takes the key away from the button of the window that had it.
void SetDialogKey(QAbstractButton& button, DialogKey key, bool isOn);

// Presses the button for a key that comes to a widget. A button that has the keyboard itself is the one
// that Enter presses. False when the key isn't one of the two or nobody wants it.
bool PressDialogButton(QWidget& at, const QKeyEvent& event);

}  // namespace velm
