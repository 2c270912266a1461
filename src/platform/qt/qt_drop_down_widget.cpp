// See qt_drop_down_widget.h.
#include "platform/qt/qt_drop_down_widget.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QProxyStyle>
#include <QStyleOptionComboBox>
#include <QStylePainter>
#include <QWheelEvent>

#include "platform/qt/qt_colors.h"
#include "platform/qt/qt_line_members.h"
#include "platform/qt/qt_members.h"

namespace velm {

namespace {

constexpr int kRowsAtOnce = 8;

// The rows drop down below the box, instead of standing over it.
class DropDownStyle : public QProxyStyle {
  public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override {
        return hint == SH_ComboBox_Popup ? 0 : QProxyStyle::styleHint(hint, option, widget, data);
    }
};

QStyle* StyleOfDropDowns() {
    static auto* const style = new DropDownStyle;
    return style;
}

bool PicksRow(const QKeyEvent& event, bool isEditable) {
    switch (event.key()) {
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
        case Qt::Key_F4: return true;
        case Qt::Key_Home:
        case Qt::Key_End: return !isEditable;
        default: return !isEditable && !event.text().isEmpty();
    }
}

}  // namespace

QtDropDownWidget::QtDropDownWidget(QWidget* parent, bool isEditable) : QComboBox(parent) {
    setStyle(StyleOfDropDowns());
    setFocusPolicy(Qt::StrongFocus);
    setMaxVisibleItems(kRowsAtOnce);
    setInsertPolicy(NoInsert);
    setDuplicatesEnabled(true);
    if (!isEditable) return;
    setEditable(true);
    setCompleter(nullptr);
    SetUpLine(*lineEdit());
    // The toolkit would pick a row whose text was typed.
    QObject::disconnect(lineEdit(), &QLineEdit::editingFinished, this, nullptr);
    QObject::disconnect(lineEdit(), &QLineEdit::returnPressed, this, nullptr);
}

void QtDropDownWidget::Start(QtSurface& surface) {
    if (isEditable()) surface.UsePalette(QPalette::Text, QPalette::Base);
    QObject::connect(this, &QComboBox::activated, &surface,
                     [&surface] { surface.TellChange(EventKind::kClick); });
}

int QtDropDownWidget::ChosenRow() const {
    const bool isTyped = isEditable() && currentText() != itemText(currentIndex());
    return isTyped ? -1 : currentIndex();
}

void QtDropDownWidget::ChooseRow(int row) {
    setCurrentIndex(row);
    if (isEditable()) SetLine(itemText(row));
}

void QtDropDownWidget::SetLine(const QString& text) {
    if (lineEdit()->text() != text) lineEdit()->setText(text);
}

// The toolkit chooses the first item that comes in.
void QtDropDownWidget::InsertRow(int row, const QString& text) {
    const bool isFirst = count() == 0;
    const QString line = currentText();
    insertItem(row, text);
    if (!isFirst) return;
    setCurrentIndex(-1);
    if (isEditable()) SetLine(line);
}

// The toolkit chooses a neighbour in its place.
void QtDropDownWidget::RemoveRow(int row) {
    const QString line = currentText();
    if (row == currentIndex()) setCurrentIndex(-1);
    removeItem(row);
    if (isEditable()) SetLine(line);
}

void QtDropDownWidget::showPopup() {
    if (isLocked) return;
    if (const QtSurface* surface = QtSurface::OfWidget(this)) {
        QPalette colors = palette();
        colors.setColor(QPalette::Text, ColorOfScript(surface->foreColor));
        colors.setColor(QPalette::Base, ColorOfScript(surface->backColor));
        view()->setPalette(colors);
    }
    QComboBox::showPopup();
}

// Made anew only when they change: the style keeps what it has drawn by the palette.
void QtDropDownWidget::FollowColors() {
    const QtSurface* surface = QtSurface::OfWidget(this);
    if (surface == nullptr) return;
    if (foreColor_ == surface->foreColor && backColor_ == surface->backColor) return;
    foreColor_ = surface->foreColor;
    backColor_ = surface->backColor;
    colors_ = palette();
    colors_.setColor(QPalette::Button, ColorOfScript(backColor_));
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
        colors_.setColor(group, QPalette::ButtonText, ColorOfScript(foreColor_));
        colors_.setColor(group, QPalette::Text, ColorOfScript(foreColor_));
    }
}

void QtDropDownWidget::paintEvent(QPaintEvent* event) {
    if (isEditable()) return QComboBox::paintEvent(event);
    FollowColors();
    QStylePainter painter(this);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    option.palette = colors_;
    option.palette.setCurrentColorGroup(isEnabled() ? QPalette::Active : QPalette::Disabled);
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    // The style shades the colour of buttons; a field has its colour as it is.
    const QRect field =
        style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
    painter.fillRect(field, ColorOfScript(backColor_));
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

void QtDropDownWidget::keyPressEvent(QKeyEvent* event) {
    if (isLocked && PicksRow(*event, isEditable())) return;
    QComboBox::keyPressEvent(event);
}

// The wheel picks only where the keyboard is.
void QtDropDownWidget::wheelEvent(QWheelEvent* event) {
    if (isLocked || !hasFocus()) {
        event->ignore();
        return;
    }
    QComboBox::wheelEvent(event);
}

int RowCount(QtSurface& surface) { return surface.As<QtDropDownWidget>().count(); }
int ChosenRow(QtSurface& surface) { return surface.As<QtDropDownWidget>().ChosenRow(); }

void ChooseRow(QtSurface& surface, int row) {
    auto& box = surface.As<QtDropDownWidget>();
    Within(row, -1, box.count() - 1);
    if (box.ChosenRow() == row) return;
    {
        const QtSurface::Quiet quiet(surface);
        box.ChooseRow(row);
    }
    surface.TellChange(EventKind::kClick);
}

MemberValue TextOfRow(QtSurface& surface, const MemberArguments& arguments) {
    return FromQString(surface.As<QtDropDownWidget>().itemText(IntArgument(arguments, 0)));
}

}  // namespace velm
