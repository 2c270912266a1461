// Scroll bars, shapes, lines, labels and images.
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionSlider>

#include "gui/control_tests.h"

namespace velm {
namespace {

constexpr QRgb kRed = qRgb(255, 0, 0);
constexpr QRgb kBlue = qRgb(0, 0, 255);
constexpr double kRedNumber = 0x0000FF;
constexpr double kBlueNumber = 0xFF0000;

// --- Scroll bars

TEST(ScrollBars, HoldNumbersWithinTheirEnds) {
    TestedControl bar(kHorizontalScrollBarClass, {0, 0, 100, 17});
    EXPECT_EQ(bar.Number(u"Min"), 0);
    EXPECT_EQ(bar.Number(u"Max"), 32767);
    EXPECT_EQ(bar.Number(u"LargeChange"), 1);
    bar.Set(u"Max", 100.0);
    bar.Set(u"Value", 80.0);
    bar.Set(u"Value", 80.0);
    EXPECT_EQ(bar.Told(EventKind::kChange), 1);
    EXPECT_EQ(bar.FailureOf(u"Value", 101.0), failure::kBadCall);
    bar.Set(u"Max", 50.0);
    EXPECT_EQ(bar.Number(u"Value"), 50);
    EXPECT_EQ(bar.Told(EventKind::kChange), 2);
    EXPECT_EQ(bar.FailureOf(u"Max", 32768.0), failure::kOverflow);
    EXPECT_EQ(bar.FailureOf(u"LargeChange", 40000.0), failure::kOverflow);
    EXPECT_EQ(bar.FailureOf(u"SmallChange", 0.0), failure::kBadCall);
    bar.Set(u"LargeChange", 10.0);
    bar.Set(u"SmallChange", 3.0);
    EXPECT_EQ(bar.Number(u"LargeChange"), 10);
    EXPECT_EQ(bar.Number(u"SmallChange"), 3);
}

TEST(ScrollBars, FollowTheKeys) {
    for (const QtControlClass* kind : {&kVerticalScrollBarClass, &kHorizontalScrollBarClass}) {
        const bool isVertical = kind == &kVerticalScrollBarClass;
        TestedControl bar(*kind, {0, 0, 100, 100});
        bar.Set(u"Value", 50.0);
        bar.Show();
        QTest::keyClick(&bar.Widget(), isVertical ? Qt::Key_Down : Qt::Key_Right);
        EXPECT_EQ(bar.Number(u"Value"), 51);
        EXPECT_EQ(bar.Told(EventKind::kChange), 2);
    }
}

TEST(ScrollBars, MayRunBackwards) {
    TestedControl bar(kVerticalScrollBarClass, {0, 0, 17, 100});
    bar.Set(u"Min", 100.0);
    bar.Set(u"Max", 0.0);
    EXPECT_EQ(bar.Number(u"Min"), 100);
    EXPECT_EQ(bar.Number(u"Max"), 0);
    bar.Set(u"Value", 60.0);
    EXPECT_EQ(bar.Number(u"Value"), 60);
    bar.Show();
    bar.Call(u"SetFocus");
    QTest::keyClick(&bar.Widget(), Qt::Key_Down);
    EXPECT_EQ(bar.Number(u"Value"), 59);
}

TEST(ScrollBars, ScrollWhileTheThumbIsHeldAndChangeWhenItIsLetGo) {
    TestedControl bar(kVerticalScrollBarClass, {0, 0, 17, 180});
    bar.Set(u"Max", 100.0);
    bar.Show();
    auto& widget = static_cast<QScrollBar&>(bar.Widget());
    QStyleOptionSlider option;
    option.initFrom(&widget);
    option.orientation = Qt::Vertical;
    option.maximum = 100;
    option.pageStep = 1;
    option.subControls = QStyle::SC_All;
    const QPoint thumb =
        widget.style()
            ->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, &widget)
            .center();
    QTest::mousePress(&widget, Qt::LeftButton, Qt::NoModifier, thumb);
    for (int step = 10; step <= 50; step += 10) QTest::mouseMove(&widget, thumb + QPoint(0, step));
    EXPECT_GE(bar.Told(EventKind::kScroll), 4);
    EXPECT_EQ(bar.Told(EventKind::kChange), 0);
    QTest::mouseRelease(&widget, Qt::LeftButton, Qt::NoModifier, thumb + QPoint(0, 50));
    EXPECT_EQ(bar.Told(EventKind::kChange), 1);
    EXPECT_GT(bar.Number(u"Value"), 10);
    widget.triggerAction(QAbstractSlider::SliderSingleStepAdd);
    EXPECT_EQ(bar.Told(EventKind::kChange), 2);
}

// --- Shapes and lines

class Drawn : public TestedControl {
  public:
    Drawn(const QtControlClass& kind, const PixelBox& box) : TestedControl(kind, box) {
        window.setStyleSheet(QStringLiteral("background: white"));
        Set(u"BorderColor", kRedNumber);
    }
};

TEST(Shapes, StandExactlyInTheirBox) {
    Drawn shape(kShapeClass, {20, 30, 40, 20});
    shape.Show();
    const QImage picture = shape.Picture();
    EXPECT_EQ(picture.pixel(20, 30), kRed);
    EXPECT_EQ(picture.pixel(59, 49), kRed);
    EXPECT_EQ(picture.pixel(40, 40), qRgb(255, 255, 255));
    EXPECT_EQ(picture.pixel(60, 49), qRgb(255, 255, 255));
    EXPECT_EQ(picture.pixel(19, 30), qRgb(255, 255, 255));
    EXPECT_EQ(shape.control->Geometry(), (PixelBox{20, 30, 40, 20}));
}

TEST(Shapes, HaveThickLinesOnTheEdgeOrWithinIt) {
    Drawn shape(kShapeClass, {20, 30, 40, 20});
    shape.Set(u"BorderWidth", 6.0);
    shape.Show();
    EXPECT_EQ(shape.Picture().pixel(18, 40), kRed);
    EXPECT_EQ(shape.control->Geometry(), (PixelBox{20, 30, 40, 20}));
    shape.Set(u"BorderStyle", 6.0);
    EXPECT_NE(shape.Picture().pixel(18, 40), kRed);
    EXPECT_EQ(shape.Picture().pixel(20, 40), kRed);
    EXPECT_EQ(shape.Picture().pixel(24, 40), kRed);
}

TEST(Shapes, HaveSixForms) {
    // Whether the corner of the box is drawn, and the middle of its left edge.
    constexpr struct {
        bool corner;
        bool left;
    } kExpected[] = {{true, true},   {false, false}, {false, true},
                     {false, false}, {false, true},  {false, false}};
    Drawn shape(kShapeClass, {20, 30, 60, 30});
    shape.Show();
    for (int form = 0; form < 6; ++form) {
        shape.Set(u"Shape", static_cast<double>(form));
        const QImage picture = shape.Picture();
        EXPECT_EQ(picture.pixel(20, 30) == kRed, kExpected[form].corner) << form;
        EXPECT_EQ(picture.pixel(20, 45) == kRed, kExpected[form].left) << form;
        // A square or circle stands in the middle.
        EXPECT_EQ(picture.pixel(35, 45) == kRed, form % 2 == 1) << form;
    }
    EXPECT_EQ(shape.FailureOf(u"Shape", 6.0), failure::kBadCall);
}

TEST(Shapes, AreFilledAndHaveABackground) {
    Drawn shape(kShapeClass, {20, 30, 40, 20});
    shape.Show();
    shape.Set(u"FillColor", kBlueNumber);
    shape.Set(u"FillStyle", 0.0);
    EXPECT_EQ(shape.Picture().pixel(40, 40), kBlue);
    shape.Set(u"FillStyle", 1.0);
    shape.Set(u"BackColor", kBlueNumber);
    EXPECT_NE(shape.Picture().pixel(40, 40), kBlue);
    shape.Set(u"BackStyle", 1.0);
    EXPECT_EQ(shape.Picture().pixel(40, 40), kBlue);
    shape.Set(u"BorderStyle", 0.0);
    EXPECT_EQ(shape.Picture().pixel(20, 30), kBlue);
    EXPECT_EQ(shape.Picture().pixel(59, 49), kBlue);
}

TEST(Shapes, LetTheMouseThrough) {
    Drawn shape(kShapeClass, {20, 30, 40, 20});
    shape.Show();
    EXPECT_EQ(shape.window.childAt(40, 40), nullptr);
}

TEST(Shapes, HaveNoFontAndNoCaption) {
    Drawn shape(kShapeClass, {20, 30, 40, 20});
    EXPECT_EQ(shape.FailureOf(u"FontSize", 9.0), failure::kNoSuchMember);
    EXPECT_EQ(shape.FailureOf(u"Enabled", true), failure::kNoSuchMember);
    shape.Call(u"ZOrder");
}

TEST(Lines, RunFromTheirStartToTheirEnd) {
    Drawn line(kLineClass, {20, 30, 0, 16});
    line.Show();
    EXPECT_EQ(line.Picture().pixel(20, 30), kRed);
    EXPECT_EQ(line.Picture().pixel(20, 45), kRed);
    EXPECT_NE(line.Picture().pixel(20, 46), kRed);
    line.control->SetGeometry({100, 80, -20, -20});
    EXPECT_EQ(line.control->Geometry(), (PixelBox{100, 80, -20, -20}));
    EXPECT_EQ(line.Picture().pixel(100, 80), kRed);
    EXPECT_EQ(line.Picture().pixel(90, 70), kRed);
    EXPECT_NE(line.Picture().pixel(80, 60), kRed);
    line.control->SetGeometry({20, 80, 40, 0});
    line.Set(u"BorderWidth", 5.0);
    EXPECT_EQ(line.Picture().pixel(40, 78), kRed);
    EXPECT_EQ(line.Picture().pixel(40, 82), kRed);
    EXPECT_EQ(line.control->Geometry(), (PixelBox{20, 80, 40, 0}));
}

// --- Labels and images

// The rows of a label that hold pixels of its text.
QList<int> InkRows(TestedControl& label) {
    const QImage picture = label.Widget().grab().toImage();
    QList<int> rows;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (qRed(picture.pixel(x, y)) < 160) {
                rows.append(y);
                break;
            }
        }
    }
    return rows;
}

TEST(Labels, ShowJapaneseTextUncutInTwelvePixels) {
    TestedControl low(kLabelClass, {10, 10, 120, 12});
    TestedControl high(kLabelClass, {10, 10, 120, 40});
    for (TestedControl* label : {&low, &high}) {
        label->Set(u"BackColor", static_cast<double>(0xFFFFFF));
        label->Set(u"Caption", u"ラベル漢字量鷹");
        label->Show();
    }
    EXPECT_GE(InkRows(low).size(), 10);
    EXPECT_EQ(InkRows(low), InkRows(high));
}

TEST(Labels, TakeTheSizeOfTheirText) {
    TestedControl label(kLabelClass, {10, 10, 65, 12});
    label.Set(u"Caption", u"とても長い名前のラベルです");
    EXPECT_EQ(label.control->Geometry(), (PixelBox{10, 10, 65, 12}));
    label.Set(u"AutoSize", true);
    EXPECT_GT(label.control->Geometry().width, 120);
    EXPECT_EQ(label.control->Geometry().height, 12);
    label.Set(u"Caption", u"一\r\n二");
    EXPECT_EQ(label.control->Geometry(), (PixelBox{10, 10, 12, 24}));
    EXPECT_EQ(label.Text(u"Caption"), u"一\r\n二");
    label.Set(u"FontSize", 18.0);
    EXPECT_EQ(label.control->Geometry(), (PixelBox{10, 10, 24, 48}));
    label.Set(u"WordWrap", true);
    label.control->SetGeometry({10, 10, 48, 10});
    label.Set(u"Caption", u"一二三四五");
    EXPECT_EQ(label.control->Geometry(), (PixelBox{10, 10, 48, 72}));
}

TEST(Labels, StandLeftRightOrInTheMiddle) {
    TestedControl label(kLabelClass, {0, 0, 100, 12});
    label.Set(u"BackColor", static_cast<double>(0xFFFFFF));
    label.Set(u"Caption", u"回");
    label.Show();
    const int least[] = {0, 88, 44};
    for (int i = 0; i < 3; ++i) {
        label.Set(u"Alignment", static_cast<double>(i));
        const QImage picture = label.Widget().grab().toImage();
        int first = 0;
        while (first < 99 && qRed(picture.pixel(first, 6)) > 160) ++first;
        EXPECT_GE(first, least[i]) << i;
        EXPECT_LT(first, least[i] + 12) << i;
    }
    EXPECT_EQ(label.FailureOf(u"Alignment", 3.0), failure::kBadCall);
}

TEST(Labels, MayBeTransparent) {
    TestedControl label(kLabelClass, {0, 0, 100, 12});
    label.window.setStyleSheet(QStringLiteral("background: blue"));
    label.Set(u"BackColor", kRedNumber);
    label.Show();
    EXPECT_EQ(label.Picture().pixel(50, 6), kRed);
    label.Set(u"BackStyle", 0.0);
    EXPECT_EQ(label.Picture().pixel(50, 6), kBlue);
}

TEST(Labels, GiveTheKeyboardToTheNextControlByTheirAccessKey) {
    TestedControl label(kLabelClass, {0, 0, 100, 12});
    RecordingListener heard;
    QtControl bar(kHorizontalScrollBarClass, &label.window, heard);
    bar.Set(u"Visible", true, {});
    label.Set(u"Caption", u"名前(&N)");
    label.Show();
    label.window.setFocus();
    QTest::keyClick(&label.window, Qt::Key_N, Qt::AltModifier);
    EXPECT_TRUE(bar.Surface().Widget()->hasFocus());
    label.Set(u"UseMnemonic", false);
    label.window.setFocus();
    bar.Surface().Widget()->clearFocus();
    QTest::keyClick(&label.window, Qt::Key_N, Qt::AltModifier);
    EXPECT_FALSE(bar.Surface().Widget()->hasFocus());
}

TEST(LabelsAndImages, TellOfTheMouse) {
    for (const QtControlClass* kind : {&kLabelClass, &kImageClass}) {
        TestedControl tested(*kind);
        tested.Show();
        QTest::mouseClick(&tested.Widget(), Qt::LeftButton, Qt::NoModifier, QPoint(7, 8));
        EXPECT_EQ(tested.Told(EventKind::kMouseDown), 1);
        EXPECT_EQ(tested.Told(EventKind::kMouseUp), 1);
        EXPECT_EQ(tested.Told(EventKind::kClick), 1);
        EXPECT_EQ(tested.listener.events.front().x, 7);
        QTest::mouseDClick(&tested.Widget(), Qt::LeftButton);
        EXPECT_EQ(tested.Told(EventKind::kDoubleClick), 1);
        QWidget& widget = tested.Widget();
        EndAt(tested, EventKind::kMouseDown);
        QTest::mousePress(&widget, Qt::LeftButton);
        EXPECT_EQ(tested.control, nullptr);
        Deliver();
    }
}

TEST(Images, ShowTheirPictureInItsSizeOrStretched) {
    TestedControl image(kImageClass, {0, 0, 40, 40});
    image.window.setStyleSheet(QStringLiteral("background: white"));
    Pixmap picture(10, 10, 0xFF0000);
    picture.Row(0)[0] = kTransparentPixel;
    image.control->SetPicture(picture);
    image.Show();
    EXPECT_EQ(image.Picture().pixel(5, 5), kBlue);
    EXPECT_EQ(image.Picture().pixel(0, 0), qRgb(255, 255, 255));
    EXPECT_EQ(image.Picture().pixel(20, 20), qRgb(255, 255, 255));
    image.Set(u"Stretch", true);
    EXPECT_EQ(image.Picture().pixel(39, 39), kBlue);
    image.Set(u"BorderStyle", 1.0);
    EXPECT_NE(image.Picture().pixel(39, 39), kBlue);
    image.control->SetPicture(Pixmap());
    EXPECT_EQ(image.Picture().pixel(20, 20), qRgb(255, 255, 255));
}

}  // namespace
}  // namespace velm
