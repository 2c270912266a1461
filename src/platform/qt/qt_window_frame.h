// The widget of a window: it hands what happens to the frame on to its window.
#pragma once

#include <QWidget>

namespace velm {

class QtWindow;

class QtWindowFrame : public QWidget {
  public:
    explicit QtWindowFrame(QtWindow& owner) : owner_(&owner) {}

    QtWindow* Owner() const { return owner_; }
    // The window ends; the widget may live on for a moment.
    void Forget() { owner_ = nullptr; }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    QtWindow* owner_;
};

}  // namespace velm
