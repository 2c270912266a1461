// Canvases on the screen: the pixels, their pace, and the size.
#include "platform/qt/qt_canvas_view.h"

#include <gtest/gtest.h>

#include <QThread>

#include "data/failure.h"
#include "graphics/canvas.h"
#include "gui/recording_listener.h"

namespace velm {
namespace {

constexpr int kLongerThanAFrame = 40;  // milliseconds
constexpr std::int32_t kRed = 0x0000FF;
constexpr std::int32_t kBlue = 0xFF0000;

// A view of 40 by 30 pixels that is on the screen.
class CanvasView : public testing::Test {
  protected:
    CanvasView() : canvas_(u"絵", false) {
        view_.resize(40, 30);
        view_.SetCanvas(&canvas_);
        view_.show();
        Deliver();
    }

    QtCanvasView view_;
    Canvas canvas_;
};

QRgb Shown(QtCanvasView& view, int x, int y) { return view.grab().toImage().pixel(x, y); }

// How many pixels of the view aren't those of its canvas.
int Differences(QtCanvasView& view) {
    const QImage shown = view.grab().toImage();
    const CanvasImage& canvas = *view.Canvas();
    int different = 0;
    for (int y = 0; y < canvas.Height(); ++y) {
        for (int x = 0; x < canvas.Width(); ++x) {
            const std::uint32_t pixel = canvas.Image().At(x, y);
            const QRgb color = shown.pixel(x, y);
            const bool same = qRed(color) == static_cast<int>(pixel & 0xFF) &&
                              qGreen(color) == static_cast<int>(pixel >> 8 & 0xFF) &&
                              qBlue(color) == static_cast<int>(pixel >> 16 & 0xFF);
            different += same ? 0 : 1;
        }
    }
    return different;
}

TEST_F(CanvasView, GivesTheCanvasItsSize) {
    EXPECT_EQ(canvas_.Width(), 40);
    EXPECT_EQ(canvas_.Height(), 30);
    view_.resize(50, 20);
    EXPECT_EQ(canvas_.Width(), 50);
    EXPECT_EQ(canvas_.Height(), 20);
}

TEST_F(CanvasView, ShowsEveryPixelInItsColour) {
    canvas_.SetBackColor(0x123456);
    canvas_.CurrentX = 3;
    canvas_.CurrentY = 4;
    canvas_.Line(30, 25, kRed);
    canvas_.Line(5, 25, kBlue);
    EXPECT_EQ(Shown(view_, 0, 0), qRgb(0x56, 0x34, 0x12));
    EXPECT_EQ(Shown(view_, 3, 4), qRgb(0xFF, 0, 0));
    EXPECT_EQ(Shown(view_, 10, 25), qRgb(0, 0, 0xFF));
    EXPECT_EQ(Differences(view_), 0);
}

TEST_F(CanvasView, ShowsACanvasThatWasOnceLarger) {
    view_.resize(90, 70);
    view_.resize(33, 21);
    canvas_.CurrentX = 0;
    canvas_.CurrentY = 0;
    canvas_.Line(32, 20, kRed);
    EXPECT_EQ(Differences(view_), 0);
    EXPECT_EQ(Shown(view_, 32, 20), qRgb(0xFF, 0, 0));
}

TEST_F(CanvasView, WithoutACanvasItIsAnEmptyWidget) {
    canvas_.SetBackColor(kRed);
    view_.SetCanvas(nullptr);
    EXPECT_EQ(Shown(view_, 5, 5), view_.palette().window().color().rgb());
}

// Each pixel of the script is four on a display of 200 %, and none is mixed.
TEST_F(CanvasView, IsCrispOnADisplayOfTwiceTheDensity) {
    canvas_.SetBackColor(0xFFFFFF);
    for (int x = 0; x < 40; x += 2) canvas_.PSet(static_cast<float>(x), 7, kRed);
    QImage large(80, 60, QImage::Format_RGB32);
    large.setDevicePixelRatio(2);
    view_.render(&large);
    for (int x = 0; x < 80; ++x) {
        for (int y = 14; y < 16; ++y) {
            const QRgb expected = x / 2 % 2 == 0 ? qRgb(0xFF, 0, 0) : qRgb(0xFF, 0xFF, 0xFF);
            ASSERT_EQ(large.pixel(x, y), expected) << x << ',' << y;
        }
        ASSERT_EQ(large.pixel(x, 13), qRgb(0xFF, 0xFF, 0xFF));
    }
}

TEST_F(CanvasView, TellsARealChangeOfSizeOnce) {
    int told = 0;
    view_.onResized = [&] { ++told; };
    view_.resize(60, 50);
    view_.resize(60, 50);
    view_.FitCanvas();
    Deliver();
    EXPECT_EQ(told, 1);
}

TEST(HiddenCanvasView, FitsTheCanvasWhenItIsAsked) {
    Canvas canvas(u"絵", false);
    QtCanvasView view;
    view.SetCanvas(&canvas);
    view.resize(12, 34);
    view.FitCanvas();
    EXPECT_EQ(canvas.Width(), 12);
    EXPECT_EQ(canvas.Height(), 34);
}

// Counts what the screen asks of it.
class CountingCanvas : public Canvas {
  public:
    CountingCanvas() : Canvas(u"絵", false) {}
    PixelRect TakeChanges() override {
        ++asked;
        return Canvas::TakeChanges();
    }
    int asked = 0;
};

TEST(Frames, AThousandChangesInAMomentAreOneFrame) {
    CountingCanvas canvas;
    QtCanvasView view;
    view.resize(40, 30);
    view.SetCanvas(&canvas);
    view.show();
    QThread::msleep(kLongerThanAFrame);
    ShowDueFrame();
    canvas.asked = 0;
    for (int i = 0; i < 1000; ++i) {
        canvas.PSet(static_cast<float>(i % 40), 3, kRed);
        ShowDueFrame();
    }
    EXPECT_LT(canvas.asked, 10);
    QThread::msleep(kLongerThanAFrame);
    ShowDueFrame();
    EXPECT_GT(canvas.asked, 0);
    EXPECT_TRUE(canvas.TakeChanges().IsEmpty());
}

TEST(Frames, ARefreshPaintsWithoutWaitingForTheToolkit) {
    CountingCanvas canvas;
    QtCanvasView view;
    view.resize(40, 30);
    view.SetCanvas(&canvas);
    view.show();
    Deliver();
    QThread::msleep(kLongerThanAFrame);
    canvas.PSet(1, 1, kRed);
    canvas.Refresh();
    ShowDueFrame();
    EXPECT_FALSE(canvas.TakeRefresh());
    EXPECT_TRUE(canvas.TakeChanges().IsEmpty());
}

// A canvas that can't hold its view's size stays as it was, and nothing is reported.
class SmallCanvas : public Canvas {
  public:
    SmallCanvas() : Canvas(u"絵", false) {}
    void Resize(std::int32_t width, std::int32_t height) override {
        if (width > 50) throw Failure(failure::kOutOfMemory);
        Canvas::Resize(width, height);
    }
};

TEST(LargeCanvasView, LeavesTheRestEmpty) {
    SmallCanvas canvas;
    QtCanvasView view;
    view.resize(50, 20);
    view.SetCanvas(&canvas);
    view.show();
    canvas.SetBackColor(kRed);
    view.resize(80, 20);
    EXPECT_EQ(canvas.Width(), 50);
    EXPECT_EQ(pendingFailure.number, 0);
    EXPECT_EQ(Shown(view, 49, 5), qRgb(0xFF, 0, 0));
    EXPECT_EQ(Shown(view, 50, 5), view.palette().window().color().rgb());
}

}  // namespace
}  // namespace velm
