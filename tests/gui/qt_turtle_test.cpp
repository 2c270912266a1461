// The turtle that floats over the controls.
#include "platform/qt/qt_turtle.h"

#include <gtest/gtest.h>

#include <QPushButton>
#include <QTest>
#include <QThread>

#include "data/failure.h"
#include "gui/recording_listener.h"
#include "platform/qt/qt_canvas_view.h"
#include "platform/qt/qt_window.h"

namespace velm {
namespace {

constexpr int kLongerThanAFrame = 40;  // milliseconds
constexpr std::uint32_t kGreen = 0x008000;

// Ten by ten pixels, of which the left half is there.
Pixmap HalfPicture() {
    Pixmap picture(10, 10, kTransparentPixel);
    for (int y = 0; y < 10; ++y) {
        for (int x = 0; x < 5; ++x) picture.Row(y)[x] = kGreen;
    }
    return picture;
}

class Turtle : public testing::Test {
  protected:
    Turtle() {
        window_.SetClientSize(200, 100);
        window_.SetCanvas(&canvas_);
        turtle_.SetPicture(HalfPicture());
        turtle_.SetGeometry({50, 40, 10, 10});
        turtle_.Set(u"Visible", true, {});
        window_.Show(false);
        Frame();
    }
    ~Turtle() override { window_.SetCanvas(nullptr); }

    static void Frame() {
        QThread::msleep(kLongerThanAFrame);
        ShowDueFrame();
        Deliver();
    }
    QRgb Shown(int x, int y) { return window_.Client().grab().toImage().pixel(x, y); }
    QWidget* At(int x, int y) { return window_.Client().childAt(x, y); }

    RecordingListener listener_;
    RecordingListener clicks_;
    Canvas canvas_{u"窓", true};
    QtWindow window_{listener_};
    QtTurtle turtle_{&window_.Client(), clicks_};
};

TEST_F(Turtle, ShowsItsPictureAndWhatLiesBelow) {
    canvas_.SetBackColor(0x0000FF);
    EXPECT_EQ(Shown(52, 45), qRgb(0, 0x80, 0));
    EXPECT_EQ(Shown(57, 45), qRgb(0xFF, 0, 0));
    EXPECT_EQ(Shown(45, 45), qRgb(0xFF, 0, 0));
}

TEST_F(Turtle, IsOnScreenWhereItWentWithTheNextFrame) {
    for (int x = 50; x < 150; ++x) turtle_.SetGeometry({x, 20, 10, 10});
    EXPECT_EQ(turtle_.Geometry(), (PixelBox{149, 20, 10, 10}));
    Frame();
    EXPECT_EQ(Shown(150, 25), qRgb(0, 0x80, 0));
    EXPECT_NE(Shown(52, 45), qRgb(0, 0x80, 0));
}

TEST_F(Turtle, LiesOverWhatCameLater) {
    QPushButton button(&window_.Client());
    button.setGeometry(40, 30, 40, 40);
    button.show();
    button.raise();
    Frame();
    EXPECT_EQ(Shown(52, 45), qRgb(0, 0x80, 0));
    EXPECT_EQ(At(57, 45), &button);
}

TEST_F(Turtle, TwoTurtlesComeToRest) {
    RecordingListener listener;
    QtTurtle other(&window_.Client(), listener);
    other.SetPicture(HalfPicture());
    other.Set(u"Visible", true, {});
    Frame();
    Frame();
    const QObject* const top = window_.Client().children().last();
    Frame();
    EXPECT_EQ(window_.Client().children().last(), top);
}

TEST_F(Turtle, IsClickedOnItsPictureAlone) {
    QWidget* const own = At(52, 45);
    ASSERT_NE(own, nullptr);
    EXPECT_EQ(At(57, 45), nullptr);
    QTest::mouseClick(own, Qt::LeftButton, {}, QPoint(2, 2));
    EXPECT_EQ(clicks_.Count(EventKind::kClick), 1);
    QTest::mouseDClick(own, Qt::LeftButton, {}, QPoint(2, 2));
    EXPECT_EQ(clicks_.Count(EventKind::kDoubleClick), 1);
    EXPECT_EQ(listener_.Count(EventKind::kMouseDown), 0);
}

TEST_F(Turtle, TakesTheSizeOfItsPicture) {
    turtle_.SetPicture(Pixmap(20, 30, kGreen));
    EXPECT_EQ(turtle_.Geometry(), (PixelBox{50, 40, 20, 30}));
    Frame();
    EXPECT_EQ(Shown(65, 65), qRgb(0, 0x80, 0));
    turtle_.SetPicture(Pixmap());
    Frame();
    EXPECT_NE(Shown(52, 45), qRgb(0, 0x80, 0));
}

TEST_F(Turtle, HidesAndComesOut) {
    turtle_.Set(u"Visible", false, {});
    EXPECT_NE(Shown(52, 45), qRgb(0, 0x80, 0));
    turtle_.Set(u"Visible", true, {});
    EXPECT_EQ(Shown(52, 45), qRgb(0, 0x80, 0));
}

TEST_F(Turtle, MovesIntoAnotherContainer) {
    RecordingListener listener;
    QtWindow other(listener);
    other.SetClientSize(100, 100);
    other.Show(false);
    turtle_.SetContainer(other);
    Frame();
    EXPECT_EQ(other.Client().grab().toImage().pixel(52, 45), qRgb(0, 0x80, 0));
    turtle_.SetContainer(window_);
    Frame();
    EXPECT_EQ(Shown(52, 45), qRgb(0, 0x80, 0));
}

TEST_F(Turtle, NothingIsDrawnOnIt) {
    EXPECT_THROW(turtle_.SetCanvas(&canvas_), Failure);
    EXPECT_NO_THROW(turtle_.SetCanvas(nullptr));
}

}  // namespace
}  // namespace velm
