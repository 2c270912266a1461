// Picture controls: border, canvas, places, and what stands in them.
#include "platform/qt/qt_picture.h"

#include <gtest/gtest.h>

#include <QTest>
#include <memory>

#include "data/failure.h"
#include "gui/recording_listener.h"
#include "platform/qt/qt_canvas_view.h"
#include "platform/qt/qt_turtle.h"
#include "platform/qt/qt_window.h"

namespace velm {
namespace {

class PictureControl : public testing::Test {
  protected:
    PictureControl() {
        window_.SetClientSize(200, 100);
        window_.Show(false);
        picture_->SetGeometry({20, 30, 65, 49});
        picture_->SetCanvas(&canvas_);
        picture_->Set(u"Visible", true, {});
        Deliver();
        listener_.events.clear();
    }
    ~PictureControl() override {
        if (picture_ != nullptr) picture_->SetCanvas(nullptr);
    }

    RecordingListener windowListener_;
    RecordingListener listener_;
    Canvas canvas_{u"ピクチャー1", false};
    QtWindow window_{windowListener_};
    std::unique_ptr<QtPicture> picture_ = std::make_unique<QtPicture>(&window_.Client(), listener_);
};

TEST_F(PictureControl, TheCanvasIsWhatTheBorderLeaves) {
    EXPECT_EQ(MemberToInt(picture_->Get(u"BorderStyle", {})), 1);
    EXPECT_EQ(canvas_.Width(), 63);
    EXPECT_EQ(canvas_.Height(), 47);
    picture_->Set(u"BorderStyle", 0.0, {});
    EXPECT_EQ(canvas_.Width(), 65);
    EXPECT_EQ(canvas_.Height(), 49);
    EXPECT_EQ(picture_->Geometry(), (PixelBox{20, 30, 65, 49}));
    EXPECT_THROW(picture_->Set(u"BorderStyle", 2.0, {}), Failure);
}

TEST_F(PictureControl, ShowsItsCanvas) {
    canvas_.SetBackColor(0x0000FF);
    const QImage shown = window_.Client().grab().toImage();
    EXPECT_EQ(shown.pixel(21, 31), qRgb(0xFF, 0, 0));
    EXPECT_EQ(shown.pixel(83, 77), qRgb(0xFF, 0, 0));
    EXPECT_NE(shown.pixel(20, 30), qRgb(0xFF, 0, 0));
    EXPECT_NE(shown.pixel(84, 40), qRgb(0xFF, 0, 0));
}

TEST_F(PictureControl, TellsItsSizeOnceAndOnlyOnScreen) {
    picture_->SetGeometry({20, 30, 80, 60});
    picture_->SetGeometry({25, 30, 80, 60});
    EXPECT_EQ(listener_.Count(EventKind::kResize), 1);
    picture_->Set(u"Visible", false, {});
    picture_->SetGeometry({25, 30, 90, 70});
    EXPECT_EQ(listener_.Count(EventKind::kResize), 1);
    EXPECT_EQ(canvas_.Width(), 88);
}

TEST_F(PictureControl, PlacesAreThoseOfTheCanvas) {
    QTest::mouseClick(picture_->ChildArea(), Qt::LeftButton, {}, QPoint(3, 4));
    ASSERT_EQ(listener_.Count(EventKind::kMouseUp), 1);
    const ControlEvent& released = listener_.events[listener_.events.size() - 2];
    EXPECT_EQ(released.kind, EventKind::kMouseUp);
    EXPECT_EQ(released.x, 3);
    EXPECT_EQ(released.y, 4);
    EXPECT_EQ(listener_.events.back().kind, EventKind::kClick);
    EXPECT_EQ(windowListener_.Count(EventKind::kMouseDown), 0);
}

TEST_F(PictureControl, HoldsOtherControls) {
    RecordingListener turtleListener;
    QtTurtle turtle(&window_.Client(), turtleListener);
    turtle.SetPicture(Pixmap(8, 8, 0x008000));
    turtle.SetContainer(*picture_);
    turtle.SetGeometry({10, 10, 8, 8});
    turtle.Set(u"Visible", true, {});
    EXPECT_EQ(window_.Client().grab().toImage().pixel(20 + 1 + 12, 30 + 1 + 12), qRgb(0, 0x80, 0));
}

TEST_F(PictureControl, KeepsToASideOfItsContainer) {
    RecordingListener otherListener;
    QtPicture other(&window_.Client(), otherListener);
    other.SetGeometry({1, 2, 30, 40});
    other.Set(u"Visible", true, {});
    picture_->Set(u"Align", 3.0, {});
    EXPECT_EQ(picture_->Geometry(), (PixelBox{0, 0, 65, 100}));
    other.Set(u"Align", 2.0, {});
    EXPECT_EQ(other.Geometry(), (PixelBox{0, 60, 200, 40}));
    EXPECT_EQ(picture_->Geometry(), (PixelBox{0, 0, 65, 60}));
    window_.SetClientSize(300, 150);
    EXPECT_EQ(other.Geometry(), (PixelBox{0, 110, 300, 40}));
    EXPECT_EQ(picture_->Geometry(), (PixelBox{0, 0, 65, 110}));
    other.Set(u"Visible", false, {});
    EXPECT_EQ(picture_->Geometry(), (PixelBox{0, 0, 65, 150}));
    picture_->SetGeometry({9, 9, 20, 9});
    EXPECT_EQ(picture_->Geometry(), (PixelBox{0, 0, 20, 150}));
    picture_->Set(u"Align", 4.0, {});
    EXPECT_EQ(picture_->Geometry(), (PixelBox{280, 0, 20, 150}));
    picture_->Set(u"Align", 0.0, {});
    window_.SetClientSize(200, 100);
    EXPECT_EQ(picture_->Geometry(), (PixelBox{280, 0, 20, 150}));
    EXPECT_THROW(picture_->Set(u"Align", 5.0, {}), Failure);
}

TEST_F(PictureControl, MayEndWhileItKeepsToASide) {
    picture_->Set(u"Align", 1.0, {});
    listener_.answer = [&](const ControlEvent& event) {
        if (event.kind == EventKind::kResize) picture_.reset();
        return false;
    };
    window_.SetClientSize(300, 150);
    EXPECT_EQ(picture_, nullptr);
    Deliver();
}

TEST_F(PictureControl, MayEndWithinItsOwnResize) {
    listener_.answer = [&](const ControlEvent& event) {
        if (event.kind == EventKind::kResize) picture_.reset();
        return false;
    };
    picture_->SetGeometry({20, 30, 100, 60});
    EXPECT_EQ(picture_, nullptr);
    Deliver();
}

TEST_F(PictureControl, HasNoPictureOfItsOwn) {
    EXPECT_THROW(picture_->SetPicture(Pixmap(2, 2, 0)), Failure);
    picture_->Set(u"AutoSize", true, {});
    EXPECT_TRUE(MemberToBool(picture_->Get(u"AutoSize", {})));
}

}  // namespace
}  // namespace velm
