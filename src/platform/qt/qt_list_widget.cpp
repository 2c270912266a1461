// See qt_list_widget.h.
#include "platform/qt/qt_list_widget.h"

#include <QAbstractItemDelegate>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionFocusRect>
#include <algorithm>
#include <iterator>
#include <utility>

#include "platform/qt/qt_fonts.h"
#include "platform/qt/qt_list_rows.h"

namespace velm {

namespace {

constexpr int kGap = 2;   // pixels between the edge, the folder and the text
constexpr int kRoom = 1;  // above and below the text: letters may be higher than their font
constexpr int kStep = 8;  // that a row is indented by for each folder above it
constexpr QAbstractItemView::SelectionMode kModes[] = {QAbstractItemView::SingleSelection,
                                                       QAbstractItemView::MultiSelection,
                                                       QAbstractItemView::ExtendedSelection};

class RowPainter : public QAbstractItemDelegate {
  public:
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& /*row*/) const override {
        return {1, LinePitch(option.font) + 2 * kRoom};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& row) const override {
        const bool isChosen = option.state.testFlag(QStyle::State_Selected);
        const bool isEnabled = option.state.testFlag(QStyle::State_Enabled);
        const QPalette::ColorGroup group = isEnabled ? QPalette::Active : QPalette::Disabled;
        painter->save();
        painter->setClipRect(option.rect, Qt::IntersectClip);
        if (isChosen)
            painter->fillRect(option.rect, option.palette.color(group, QPalette::Highlight));
        const int left = option.rect.left() + kGap + PaintFolder(*painter, option, row);
        painter->setFont(option.font);
        painter->setPen(
            option.palette.color(group, isChosen ? QPalette::HighlightedText : QPalette::Text));
        painter->drawText(left, option.rect.top() + kRoom + LineBase(option.font),
                          row.data(Qt::DisplayRole).toString());
        if (option.state.testFlag(QStyle::State_HasFocus)) PaintFocus(*painter, option);
        painter->restore();
    }

  private:
    // Returns the room that it takes.
    static int PaintFolder(QPainter& painter, const QStyleOptionViewItem& option,
                           const QModelIndex& row) {
        const QVariant depth = row.data(QtListWidget::kDepthRole);
        if (!depth.isValid()) return 0;
        const int side = option.rect.height();
        const int indent = kStep * depth.toInt();
        const QRect place(option.rect.left() + kGap + indent, option.rect.top(), side, side);
        option.widget->style()->standardIcon(QStyle::SP_DirIcon).paint(&painter, place);
        return indent + side + kGap;
    }
    static void PaintFocus(QPainter& painter, const QStyleOptionViewItem& option) {
        QStyleOptionFocusRect focus;
        focus.QStyleOption::operator=(option);
        option.widget->style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter,
                                              option.widget);
    }
};

RowPainter& TheRowPainter() {
    static auto* const painter = new RowPainter;
    return *painter;
}

}  // namespace

QtListWidget::QtListWidget(QWidget* parent) : QListWidget(parent) {
    setUniformItemSizes(true);
    setItemDelegate(&TheRowPainter());
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(SingleSelection);
    setDragDropMode(NoDragDrop);
}

void QtListWidget::Start(QtSurface& surface) {
    surface_ = &surface;
    surface.UsePalette(QPalette::Text, QPalette::Base);
    QObject::connect(verticalScrollBar(), &QScrollBar::valueChanged, &surface,
                     [this] { OnScrolled(); });
    QObject::connect(&surface, &QObject::destroyed, this, [this] { surface_ = nullptr; });
}

void QtListWidget::OnScrolled() {
    if (busy_ != 0) {
        isScrolled_ = true;
    } else if (surface_ != nullptr) {
        surface_->TellChange(EventKind::kScroll);
    }
}

template <class Deal>
bool QtListWidget::DealWith(const Deal& deal) {
    ++busy_;
    const bool outer = std::exchange(isScrolled_, false);
    deal();
    --busy_;
    const bool isScrolled = std::exchange(isScrolled_, outer);
    if (isScrolled && surface_ != nullptr) surface_->TellChange(EventKind::kScroll);
    return surface_ != nullptr;
}

// A change of the rows or of the size moves the bar, which is no scrolling.
void QtListWidget::updateGeometries() {
    ++busy_;
    const bool isScrolled = isScrolled_;
    QListWidget::updateGeometries();
    isScrolled_ = isScrolled;
    --busy_;
}

void QtListWidget::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    ++choices_;
    QListWidget::currentChanged(current, previous);
}

void QtListWidget::selectionChanged(const QItemSelection& chosen, const QItemSelection& left) {
    ++choices_;
    QListWidget::selectionChanged(chosen, left);
}

void QtListWidget::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    isPressed_ = itemAt(event->position().toPoint()) != nullptr;
    DealWith([&] { QListWidget::mousePressEvent(event); });
}

void QtListWidget::mouseMoveEvent(QMouseEvent* event) {
    DealWith([&] { QListWidget::mouseMoveEvent(event); });
}

// What was dragged over is chosen when the button is let go.
void QtListWidget::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    const bool isClick = std::exchange(isPressed_, false);
    if (!DealWith([&] { QListWidget::mouseReleaseEvent(event); })) return;
    if (isClick) surface_->TellChange(EventKind::kClick);
}

// The second press picks nothing.
void QtListWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    isPressed_ = false;
    DealWith([&] { QListWidget::mouseDoubleClickEvent(event); });
}

void QtListWidget::keyPressEvent(QKeyEvent* event) {
    const unsigned before = choices_;
    if (!DealWith([&] { QListWidget::keyPressEvent(event); })) return;
    if (choices_ != before) surface_->TellChange(EventKind::kClick);
}

int QtListWidget::TopRow() {
    executeDelayedItemsLayout();
    return count() == 0 ? 0 : verticalScrollBar()->value();
}

void QtListWidget::SetTopRow(int row) {
    executeDelayedItemsLayout();
    verticalScrollBar()->setValue(row);
}

int QtListWidget::ChosenRow() const {
    const bool isChosen = selectionMode() != SingleSelection ||
                          (currentItem() != nullptr && currentItem()->isSelected());
    return isChosen ? currentRow() : -1;
}

void QtListWidget::ChooseRow(int row) {
    if (selectionMode() != SingleSelection) {
        selectionModel()->setCurrentIndex(model()->index(row, 0), QItemSelectionModel::NoUpdate);
        return;
    }
    if (row < 0) clearSelection();
    setCurrentRow(row);
}

int QtListWidget::MultiSelect() const {
    const auto* const mode = std::find(std::begin(kModes), std::end(kModes), selectionMode());
    return static_cast<int>(mode - std::begin(kModes));
}

void QtListWidget::SetMultiSelect(int mode) {
    const int row = ChosenRow();
    setSelectionMode(kModes[mode]);
    if (mode != 0) return;
    const bool isChosen = row >= 0 && item(row)->isSelected();
    clearSelection();
    ChooseRow(isChosen ? row : -1);
}

int TopIndex(QtSurface& surface) { return surface.As<QtListWidget>().TopRow(); }

void SetTopIndex(QtSurface& surface, int row) {
    auto& list = surface.As<QtListWidget>();
    const QtSurface::Quiet quiet(surface);
    list.SetTopRow(CheckedRow(row, list.count()));
}

}  // namespace velm
