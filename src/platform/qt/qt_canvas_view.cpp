// See qt_canvas_view.h. A pixel of the canvas is a logical pixel: on a display of 200 % it is painted as
// two by two, without smoothing.
#include "platform/qt/qt_canvas_view.h"

#include <QPaintEvent>
#include <QPainter>
#include <utility>

#include "data/failure.h"

namespace velm {

namespace {

// The canvas's own memory as an image: its pixels are red, green, blue and an unused byte in the order of
// memory. What is painted is converted on the way, so that nothing is copied.
QImage ImageOver(const Pixmap& pixmap) {
    constexpr int kPixelBytes = sizeof(std::uint32_t);
    return QImage(reinterpret_cast<const uchar*>(pixmap.pixels.data()), pixmap.width, pixmap.height,
                  static_cast<qsizetype>(pixmap.width) * kPixelBytes, QImage::Format_RGBX8888);
}

// An image is made when it is first asked for. Without memory for it the view stays empty.
bool HasImage(const CanvasImage* canvas) {
    if (canvas == nullptr) return false;
    const PendingFailure before = pendingFailure;
    const bool isThere = Attempt([canvas] { canvas->Image(); });
    if (!isThere) pendingFailure = before;
    return isThere;
}

QRect RectOf(const PixelRect& part) {
    return QRect(part.left, part.top, part.right - part.left, part.bottom - part.top);
}

}  // namespace

QtCanvasView::QtCanvasView(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void QtCanvasView::SetCanvas(CanvasImage* canvas) {
    canvas_ = canvas;
    changed_ = PixelRect();
    isUrgent_ = false;
    if (canvas_ != nullptr) Attempt([&] { canvas_->Resize(width(), height()); });
    fitted_ = size();
    update();
}

void QtCanvasView::FitCanvas() {
    if (size() == fitted_) return;
    fitted_ = size();
    // A size that the canvas can't hold leaves it as it was; the rest of the view stays empty.
    if (canvas_ != nullptr) {
        const PendingFailure before = pendingFailure;
        if (!Attempt([&] { canvas_->Resize(width(), height()); })) pendingFailure = before;
    }
    // It may end the view, and itself with it.
    const std::function<void()> tell = onResized;
    if (tell) tell();
}

void QtCanvasView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    FitCanvas();
}

bool QtCanvasView::HasNews() {
    if (canvas_ == nullptr) return false;
    const PixelRect part = canvas_->TakeChanges();
    if (!part.IsEmpty()) changed_.Include(part);
    isUrgent_ = canvas_->TakeRefresh() || isUrgent_;
    return isUrgent_ || !changed_.IsEmpty();
}

void QtCanvasView::ShowNews() {
    const QRect part = RectOf(std::exchange(changed_, PixelRect()));
    const bool isUrgent = std::exchange(isUrgent_, false);
    if (!isVisible() || part.isEmpty()) return;
    if (isUrgent) {
        repaint(part);
    } else {
        update(part);
    }
}

void QtCanvasView::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    QRect covered;
    if (HasImage(canvas_)) covered = QRect(0, 0, canvas_->Width(), canvas_->Height());
    if (!covered.isEmpty()) {
        const QImage image = ImageOver(canvas_->Image());
        for (const QRect& part : event->region() & covered) painter.drawImage(part, image, part);
    }
    for (const QRect& rest : event->region() - covered) {
        painter.fillRect(rest, palette().window());
    }
}

}  // namespace velm
