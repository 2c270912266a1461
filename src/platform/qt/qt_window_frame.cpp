// See qt_window_frame.h.
#include "platform/qt/qt_window_frame.h"

#include <QCloseEvent>
#include <QWindow>

#include "platform/qt/qt_window.h"

namespace velm {

bool QtWindowFrame::eventFilter(QObject* watched, QEvent* event) {
    const bool isExposed = event->type() == QEvent::Expose && watched == windowHandle();
    if (isExposed && owner_ != nullptr && windowHandle()->isExposed()) owner_->OnExposed();
    return QWidget::eventFilter(watched, event);
}

void QtWindowFrame::closeEvent(QCloseEvent* event) {
    // Hiding is the window's own affair: it may stay open, and it may be gone after it has asked.
    event->ignore();
    if (owner_ != nullptr) owner_->Close(true);
}

void QtWindowFrame::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (owner_ != nullptr) owner_->OnResized();
}

void QtWindowFrame::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (windowHandle() != nullptr) windowHandle()->installEventFilter(this);
}

void QtWindowFrame::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    // The window manager hides a minimised window; that is no end.
    if (owner_ != nullptr && !event->spontaneous()) owner_->OnHidden();
}

}  // namespace velm
