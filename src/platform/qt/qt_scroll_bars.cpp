// Scroll bars. Their ends may stand in either order: with the greater number first they run backwards.
#include <QScrollBar>
#include <algorithm>

#include "platform/qt/qt_control_classes.h"
#include "platform/qt/qt_members.h"

namespace velm {

namespace {

constexpr int kLeast = -32768;
constexpr int kMost = 32767;
constexpr int kMaxAtFirst = 32767;

class ScrollWidget : public QScrollBar {
  public:
    ScrollWidget(Qt::Orientation orientation, QWidget* parent) : QScrollBar(orientation, parent) {
        setFocusPolicy(Qt::StrongFocus);
        setContextMenuPolicy(Qt::PreventContextMenu);
        setSingleStep(1);
        setPageStep(1);
        SetEnds(0, kMaxAtFirst);
    }

    int First() const { return first_; }
    int Last() const { return last_; }
    // The value stays between them.
    void SetEnds(int first, int last) {
        first_ = first;
        last_ = last;
        setInvertedAppearance(first > last);
        // The toolkit's arrow upwards is one to greater numbers.
        setInvertedControls((orientation() == Qt::Vertical) != (first > last));
        setRange(std::min(first, last), std::max(first, last));
    }

    int valueAtPress = 0;

    QSize minimumSizeHint() const override { return {0, 0}; }

  private:
    int first_ = 0;
    int last_ = 0;
};

// Throws Failure(6) for a number that no scroll bar can have.
int Checked(int number) {
    if (number < kLeast || number > kMost) throw Failure(failure::kOverflow);
    return number;
}
int CheckedStep(int number) { return Within(Checked(number), 1, kMost); }

int Min(QtSurface& surface) { return surface.As<ScrollWidget>().First(); }
void SetMin(QtSurface& surface, int number) {
    auto& bar = surface.As<ScrollWidget>();
    bar.SetEnds(Checked(number), bar.Last());
}
int Max(QtSurface& surface) { return surface.As<ScrollWidget>().Last(); }
void SetMax(QtSurface& surface, int number) {
    auto& bar = surface.As<ScrollWidget>();
    bar.SetEnds(bar.First(), Checked(number));
}
int ScrollValue(QtSurface& surface) { return surface.As<ScrollWidget>().value(); }
void SetScrollValue(QtSurface& surface, int number) {
    auto& bar = surface.As<ScrollWidget>();
    bar.setValue(Within(Checked(number), bar.minimum(), bar.maximum()));
}
int SmallChange(QtSurface& surface) { return surface.As<ScrollWidget>().singleStep(); }
void SetSmallChange(QtSurface& surface, int number) {
    surface.As<ScrollWidget>().setSingleStep(CheckedStep(number));
}
int LargeChange(QtSurface& surface) { return surface.As<ScrollWidget>().pageStep(); }
void SetLargeChange(QtSurface& surface, int number) {
    surface.As<ScrollWidget>().setPageStep(CheckedStep(number));
}

constexpr QtMember kScrollMembers[] = {
    Member<Min, SetMin>(u"Min"),
    Member<Max, SetMax>(u"Max"),
    Member<ScrollValue, SetScrollValue>(u"Value"),
    Member<SmallChange, SetSmallChange>(u"SmallChange"),
    Member<LargeChange, SetLargeChange>(u"LargeChange"),
};

template <Qt::Orientation kOrientation>
QWidget* MakeScrollBar(QWidget* parent) {
    return new ScrollWidget(kOrientation, parent);
}

// While the thumb is held the bar scrolls; it changes when the thumb is let go.
void StartScrollBar(QtSurface& surface) {
    surface.tellsDoubleClicks = false;
    auto& bar = surface.As<ScrollWidget>();
    QObject::connect(&bar, &QScrollBar::sliderPressed, &surface,
                     [&bar] { bar.valueAtPress = bar.value(); });
    QObject::connect(&bar, &QScrollBar::valueChanged, &surface, [&surface, &bar] {
        surface.TellChange(bar.isSliderDown() ? EventKind::kScroll : EventKind::kChange);
    });
    QObject::connect(&bar, &QScrollBar::sliderReleased, &surface, [&surface, &bar] {
        if (bar.value() != bar.valueAtPress) surface.TellChange(EventKind::kChange);
    });
}

}  // namespace

const QtControlClass kVerticalScrollBarClass = {
    .make = MakeScrollBar<Qt::Vertical>, .start = StartScrollBar, .members = kScrollMembers};
const QtControlClass kHorizontalScrollBarClass = {
    .make = MakeScrollBar<Qt::Horizontal>, .start = StartScrollBar, .members = kScrollMembers};

}  // namespace velm
