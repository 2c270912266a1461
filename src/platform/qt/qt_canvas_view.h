// Shows a canvas: the client area of a window, and the inside of a picture control.
#pragma once

#include <QWidget>
#include <functional>

#include "platform/qt/qt_frames.h"
#include "platform/toolkit.h"

namespace velm {

class QtCanvasView : public QWidget, public FrameClient {
  public:
    explicit QtCanvasView(QWidget* parent = nullptr);

    // The canvas gets the size of the view. nullptr takes it away.
    void SetCanvas(CanvasImage* canvas);
    CanvasImage* Canvas() const { return canvas_; }

    // Gives the canvas the size of the view. A hidden widget hears of its new size only when it is shown,
    // so that whoever changes the size calls this as well.
    void FitCanvas();
    // Called after a change of the size, when the canvas has it too. The view may be gone afterwards.
    std::function<void()> onResized;

    bool HasNews() override;
    void ShowNews() override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    CanvasImage* canvas_ = nullptr;
    QSize fitted_;
    PixelRect changed_;
    bool isUrgent_ = false;
};

}  // namespace velm
