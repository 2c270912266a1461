// The widget of drop-downs.
#pragma once

#include <QComboBox>

#include "platform/qt/qt_surface.h"

namespace velm {

class QtDropDownWidget : public QComboBox {
  public:
    QtDropDownWidget(QWidget* parent, bool isEditable);

    // Tells what the user picks as clicks.
    void Start(QtSurface& surface);

    bool isLocked = false;  // nothing can be picked

    // -1 for none: a text that was typed is no choice.
    int ChosenRow() const;
    void ChooseRow(int row);
    // Neither changes the choice, but for the chosen item itself, nor the text that one edits.
    void InsertRow(int row, const QString& text);
    void RemoveRow(int row);

    void showPopup() override;
    QSize minimumSizeHint() const override { return {0, 0}; }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    QPalette colors_;
    std::int32_t foreColor_ = 0;
    std::int32_t backColor_ = 0;

    void FollowColors();
    void SetLine(const QString& text);
};

// Members: ListCount, ListIndex, List; what changes the choice tells of a click.
int RowCount(QtSurface& surface);
int ChosenRow(QtSurface& surface);
void ChooseRow(QtSurface& surface, int row);
MemberValue TextOfRow(QtSurface& surface, const MemberArguments& arguments);

}  // namespace velm
