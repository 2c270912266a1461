// The widget of lists: rows as high as their font, without pictures but for the small ones of a list of
// folders.
#pragma once

#include <QListWidget>

#include "platform/qt/qt_surface.h"

namespace velm {

class QtListWidget : public QListWidget {
  public:
    // How far a row is indented, in steps; a row that has this also shows a folder.
    static constexpr int kDepthRole = Qt::UserRole;

    explicit QtListWidget(QWidget* parent);

    // Tells rows that the user picks as clicks, and scrolling by the user.
    void Start(QtSurface& surface);

    // The first row that is seen.
    int TopRow();
    void SetTopRow(int row);
    // The chosen row of a list of one choice, -1 for none; the one with the caret otherwise.
    int ChosenRow() const;
    // -1 for none.
    void ChooseRow(int row);
    // 0 one choice, 1 each row by itself, 2 with the Shift and Control keys.
    int MultiSelect() const;
    void SetMultiSelect(int mode);

    QSize minimumSizeHint() const override { return {0, 0}; }

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void updateGeometries() override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void selectionChanged(const QItemSelection& chosen, const QItemSelection& left) override;

  private:
    QtSurface* surface_ = nullptr;
    unsigned choices_ = 0;     // rises with every change of the choice
    bool isPressed_ = false;   // the press of the left button was on a row
    bool isScrolled_ = false;  // while an event is dealt with
    int busy_ = 0;

    void OnScrolled();
    // Nothing is told while the toolkit still works with the rows: scrolling is told afterwards. False
    // when there is nobody to tell any more.
    template <class Deal>
    bool DealWith(const Deal& deal);
};

// The member TopIndex.
int TopIndex(QtSurface& surface);
void SetTopIndex(QtSurface& surface, int row);

}  // namespace velm
