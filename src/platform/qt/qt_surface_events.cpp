// What the filter of a surface makes of the toolkit's events. After each one that is told, the surface
// may be gone: then the widget, which is hidden and waits for its end, gets no more of the event.
#include <QApplication>
#include <QDialog>
#include <QDropEvent>
#include <QFocusEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>
#include <bitset>

#include "platform/files.h"
#include "platform/qt/qt_dialog_keys.h"
#include "platform/qt/qt_keys.h"
#include "platform/qt/qt_surface.h"
#include "platform/qt/qt_text.h"

namespace velm {

namespace {

std::int32_t ButtonNumber(Qt::MouseButton button) {
    switch (button) {
        case Qt::LeftButton: return mouse_button::kLeft;
        case Qt::RightButton: return mouse_button::kRight;
        case Qt::MiddleButton: return mouse_button::kMiddle;
        default: return 0;
    }
}

std::int32_t ButtonNumbers(Qt::MouseButtons buttons) {
    std::int32_t numbers = 0;
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
        if (buttons.testFlag(button)) numbers |= ButtonNumber(button);
    }
    return numbers;
}

ControlEvent MouseEvent(EventKind kind, const QMouseEvent& event, QPointF position) {
    ControlEvent told;
    told.kind = kind;
    told.button = kind == EventKind::kMouseMove ? ButtonNumbers(event.buttons())
                                                : ButtonNumber(event.button());
    told.shift = ShiftState(event.modifiers());
    told.x = position.x();
    told.y = position.y();
    return told;
}

EventKind KindOf(const QMouseEvent& event, bool tellsDoubleClicks) {
    switch (event.type()) {
        case QEvent::MouseButtonDblClick:
            return tellsDoubleClicks && event.button() == Qt::LeftButton ? EventKind::kDoubleClick
                                                                         : EventKind::kMouseDown;
        case QEvent::MouseButtonPress: return EventKind::kMouseDown;
        case QEvent::MouseButtonRelease: return EventKind::kMouseUp;
        default: return EventKind::kMouseMove;
    }
}

// The keys whose press was told, whichever control had the keyboard then. What an input method took
// is released without having been pressed, and that stays quiet too.
std::bitset<256> pressedKeys;

// A key that a control didn't want comes to what it stands in, which has no part in it.
bool IsFromChild(const QWidget& at) {
    const QWidget* focused = at.window()->focusWidget();
    return focused != nullptr && focused != &at && at.isAncestorOf(focused) &&
           focused->isEnabled() && focused->isVisible();
}

// Another program, or a box of this one, takes the keyboard for a while.
bool IsMomentary(const QFocusEvent& event) {
    switch (event.reason()) {
        case Qt::PopupFocusReason:
        case Qt::MenuBarFocusReason: return true;
        case Qt::ActiveWindowFocusReason: {
            const QWidget* active = QApplication::activeWindow();
            return active == nullptr || qobject_cast<const QDialog*>(active) != nullptr;
        }
        default: return false;
    }
}

void ReadDrop(const QMimeData* data, ControlEvent& told) {
    if (data == nullptr) return;
    for (const QUrl& url : data->urls()) {
        if (!url.isLocalFile()) continue;
        told.files.push_back(ScriptPath(url.toLocalFile().toStdString()));
    }
    if (told.files.empty()) {
        told.text = FromLines(data->text());
    }
}

}  // namespace

bool QtSurface::eventFilter(QObject* watched, QEvent* event) {
    if (listener_ == nullptr || !watched->isWidgetType()) return false;
    auto& at = *static_cast<QWidget*>(watched);
    switch (event->type()) {
        case QEvent::MouseMove:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick: return OnMouse(at, *static_cast<QMouseEvent*>(event));
        case QEvent::KeyPress:
        case QEvent::KeyRelease: return OnKey(at, *static_cast<QKeyEvent*>(event));
        case QEvent::InputMethod: return OnInputMethod(*static_cast<QInputMethodEvent*>(event));
        case QEvent::FocusIn:
        case QEvent::FocusOut: {
            const QPointer<QtSurface> self(this);
            OnFocus(*static_cast<QFocusEvent*>(event));
            return self == nullptr;
        }
        case QEvent::DragEnter:
        case QEvent::DragMove:
            return OnDrag(at, *static_cast<QDropEvent*>(event), EventKind::kDragOver);
        case QEvent::Drop: return OnDrag(at, *static_cast<QDropEvent*>(event), EventKind::kDrop);
        default: return false;
    }
}

QWidget& QtSurface::Place() const {
    return isPlacedByInner && inner_ != nullptr ? *inner_ : *widget_;
}

QPointF QtSurface::PlaceIn(const QWidget& at, QPointF position) const {
    if (&at == &Place()) return position;
    return Place().mapFrom(widget_.data(), at.mapTo(widget_.data(), position));
}

bool QtSurface::OnMouse(QWidget& at, const QMouseEvent& event) {
    if (!at.isEnabled() || widget_ == nullptr) return false;
    const QPointF position = PlaceIn(at, event.position());
    const QPointer<QtSurface> self(this);
    const ControlEvent told = MouseEvent(KindOf(event, tellsDoubleClicks), event, position);
    if (told.kind == EventKind::kMouseUp) return OnRelease(told);
    if (told.kind == EventKind::kDoubleClick) {
        isDoubleClick_ = true;
    } else if (told.kind == EventKind::kMouseDown && told.button == mouse_button::kLeft) {
        isDoubleClick_ = false;
        isPressed_ = true;
    }
    Tell(told);
    return self == nullptr;
}

bool QtSurface::OnRelease(const ControlEvent& told) {
    const QPointer<QtSurface> self(this);
    const bool isLeft = told.button == mouse_button::kLeft;
    const bool isInside = Place().rect().contains(QPointF(told.x, told.y).toPoint());
    const bool isClick = tellsClicks && isLeft && isPressed_ && !isDoubleClick_ && isInside;
    if (beforeRelease != nullptr && isLeft && isPressed_ && isInside) beforeRelease(*this);
    if (self == nullptr) return true;
    if (isLeft) isPressed_ = isDoubleClick_ = false;
    Tell(told);
    if (self == nullptr) return true;
    if (isClick) Tell(EventKind::kClick);
    return self == nullptr;
}

bool QtSurface::OnKey(QWidget& at, const QKeyEvent& event) {
    if (!at.isEnabled() || isComposing_ || IsFromChild(at)) return false;
    if (event.type() == QEvent::KeyPress) {
        const QPointer<QtSurface> self(this);
        if (PressDialogButton(at, event)) return true;
        return self == nullptr || OnKeyDown(event);
    }
    const auto code = static_cast<std::size_t>(VirtualKey(event));
    if (event.isAutoRepeat() || !pressedKeys.test(code)) return false;
    pressedKeys.reset(code);
    const QPointer<QtSurface> self(this);
    ControlEvent told;
    told.kind = EventKind::kKeyUp;
    told.code = static_cast<std::int32_t>(code);
    told.shift = ShiftState(event.modifiers());
    Tell(told);
    return self == nullptr;
}

bool QtSurface::OnKeyDown(const QKeyEvent& event) {
    const QPointer<QtSurface> self(this);
    ControlEvent told;
    told.kind = EventKind::kKeyDown;
    told.code = VirtualKey(event);
    told.shift = ShiftState(event.modifiers());
    if (told.code != 0) {
        pressedKeys.set(static_cast<std::size_t>(told.code));
        Tell(told);
        if (self == nullptr) return true;
    }
    if (!TypesText(event)) return TypesWithAlt(event);
    told.kind = EventKind::kKeyPress;
    told.text = FromQString(event.text());
    const bool isDropped = Tell(told);
    return isDropped || self == nullptr;
}

// Each character that an input method delivers is one that was typed; the listener may drop it.
bool QtSurface::OnInputMethod(QInputMethodEvent& event) {
    isComposing_ = !event.preeditString().isEmpty();
    const QString committed = event.commitString();
    QString kept;
    const QPointer<QtSurface> self(this);
    for (qsizetype i = 0; i < committed.size();) {
        const bool isPair = committed.at(i).isHighSurrogate() && i + 1 < committed.size();
        const QString character = committed.mid(i, isPair ? 2 : 1);
        i += character.size();
        ControlEvent told;
        told.kind = EventKind::kKeyPress;
        told.text = FromQString(character);
        if (!Tell(told)) kept += character;
        if (self == nullptr) return true;
    }
    if (kept.size() != committed.size()) {
        event.setCommitString(kept, event.replacementStart(), event.replacementLength());
    }
    return false;
}

void QtSurface::OnFocus(const QFocusEvent& event) {
    if (event.gotFocus() == hasFocus_ || IsMomentary(event)) return;
    hasFocus_ = event.gotFocus();
    if (!hasFocus_) isComposing_ = false;
    if (ending_ != 0) return;
    Tell(hasFocus_ ? EventKind::kFocusIn : EventKind::kFocusOut);
}

bool QtSurface::OnDrag(QWidget& at, QDropEvent& event, EventKind kind) {
    constexpr std::int32_t kWidgetTakes = 2;
    if (!at.isEnabled() || dropMode == kWidgetTakes || widget_ == nullptr) return false;
    ControlEvent told;
    told.kind = kind;
    told.button = ButtonNumbers(event.buttons());
    told.shift = ShiftState(event.modifiers());
    const QPointF position = PlaceIn(at, event.position());
    told.x = position.x();
    told.y = position.y();
    ReadDrop(event.mimeData(), told);
    const bool isTaken = Tell(told) || kind == EventKind::kDrop;
    if (isTaken) {
        event.setDropAction(Qt::CopyAction);
        event.accept();
    } else {
        event.ignore();
    }
    return true;
}

}  // namespace velm
