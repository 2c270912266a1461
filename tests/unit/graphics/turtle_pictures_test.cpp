// The turtle's pictures beside the approved ones, and drawings of a turtle on a real canvas.
#include "graphics/turtle_pictures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <string>
#include <vector>

#include "data/failure.h"
#include "graphics/canvas.h"
#include "graphics/turtle.h"
#include "unit/graphics/fixed_fonts.h"
#include "unit/graphics/picture_text.h"
#include "unit/graphics/recording_surface.h"
#include "unit/platform/fails_with.h"

namespace velm {
namespace {

std::string SignsOf(const Pixmap& picture) {
    return PictureText(picture, picture.width, picture.height,
                       {{kTransparentPixel, '.'},
                        {0x50B070, 's'},
                        {0x205030, 'R'},
                        {0x309048, 'o'},
                        {0x48B868, 'p'},
                        {0, '#'}});
}

std::string TurtleText(std::int32_t identifier) { return SignsOf(TurtlePicture(identifier)); }

TEST(TurtlePictures, AreTheApprovedOnes) {
    for (const std::int32_t identifier : {101, 2015, 2045, 2070, 2090, 2180, 2330}) {
        const std::string name = "turtle_" + std::to_string(identifier) + ".txt";
        EXPECT_EQ(TurtleText(identifier), ApprovedPicture(name)) << name;
    }
}

// All directions in one picture: six in a row, 15 degrees clockwise from one to the next.
TEST(TurtlePictures, EveryDirectionIsTheApprovedOne) {
    constexpr std::int32_t kSide = 32;
    constexpr std::int32_t kInRow = 6;
    Pixmap sheet(kInRow * kSide, 4 * kSide, kTransparentPixel);
    for (std::int32_t i = 0; i < 24; ++i) {
        const Pixmap& turtle = TurtlePicture(i == 0 ? kTurtleFacingUp : kTurtleFirstAngle + i * 15);
        const std::int32_t left = i % kInRow * kSide;
        const std::int32_t top = i / kInRow * kSide;
        for (std::int32_t y = 0; y < turtle.height; ++y) {
            std::copy_n(turtle.Row(y), turtle.width, sheet.Row(top + y) + left);
        }
    }
    EXPECT_EQ(SignsOf(sheet), ApprovedPicture("turtles.txt"));
}

TEST(TurtlePictures, EveryDirectionLooksElseAndFits) {
    std::vector<std::string> seen;
    for (int angle = 0; angle < 360; angle += 15) {
        const std::string text =
            TurtleText(angle == 0 ? kTurtleFacingUp : kTurtleFirstAngle + angle);
        EXPECT_EQ(std::count(seen.begin(), seen.end(), text), 0) << angle;
        EXPECT_EQ(text.find('?'), std::string::npos);
        EXPECT_NE(text.find('#'), std::string::npos) << angle;
        seen.push_back(text);
    }
    EXPECT_EQ(seen.size(), 24U);
}

TEST(TurtlePictures, OtherNumbersAreNone) {
    for (const std::int32_t identifier : {0, 100, 2000, 2001, 2086, 2360, 2375, -2015}) {
        EXPECT_EQ(FailureOf([&] { TurtlePicture(identifier); }), failure::kNoSuchElement);
    }
}

// A canvas in place of the window that notes.
class TurtleOnCanvas : public DrawingTest {
  protected:
    void Start(std::int32_t width, std::int32_t height) {
        canvas.Resize(width, height);
        drawing.DrawTarget = drawing.MainWindow = &canvas;
        hooks.PumpEvents = nullptr;
        settings.TurtleIconOn = false;
        Done(u"1,1へ点");
        ClearDrawing();
    }
    std::string Text() const {
        return PictureText(
            canvas.Image(), canvas.Width(), canvas.Height(),
            {{0xFFFFFF, '.'}, {0, '#'}, {0x0000FF, 'r'}, {0xFF0000, 'b'}, {0x008000, 'g'}});
    }

    Canvas canvas{u"ウィンドウ１", true};
};

TEST_F(TurtleOnCanvas, ATree) {
    Start(60, 50);
    SetPosition(Word(u"30,48"));
    Tree(24, 4, 60);
    EXPECT_EQ(Text(), ApprovedPicture("tree.txt"));
}

TEST_F(TurtleOnCanvas, AStarOfThickLines) {
    Start(48, 44);
    canvas.DrawWidth = 3;
    settings.TurtleColor = 0x0000FF;
    SetPosition(Word(u"4,16"));
    Turn(-90);
    for (int side = 0; side < 5; ++side) {
        Forward(40);
        Turn(-144);
    }
    EXPECT_EQ(Text(), ApprovedPicture("star.txt"));
}

TEST_F(TurtleOnCanvas, AScene) {
    Start(64, 40);
    for (const std::u16string_view sentence :
         {u"色は 緑", u"64,10で0,30から塗りつぶして四角形", u"色は 赤", u"20,16で6,6から円",
          u"16,14へ青で塗れ", u"色は 黒", u"22,18で34,14から四角形", u"34,14から45,4で線",
          u"56,14で線", u"45,10へ赤で塗れ"}) {
        Done(sentence);
    }
    EXPECT_EQ(Text(), ApprovedPicture("scene.txt"));
}

// Texts go on behind each other and begin anew at the left edge; one leaves the canvas.
TEST_F(TurtleOnCanvas, Writing) {
    const FixedFonts fonts;
    Start(48, 26);
    for (const std::u16string_view sentence :
         {u"「aa b」を3,2へ赤で書け", u"「ca」を青で書け", u"「a」＆改行＆「aa」を9,9へ黒で書け",
          u"「aaaaaaaa」を30,19へ緑で書け"}) {
        Done(sentence);
    }
    EXPECT_EQ(Text(), ApprovedPicture("writing.txt"));
}

// A red box with a black left edge and a hole through which the ground shows.
Pixmap HollowBox() {
    Pixmap box(32, 20, 0x0000FF);
    for (std::int32_t y = 0; y < box.height; ++y) {
        box.Row(y)[0] = 0;
        if (y >= 4 && y < 12) std::fill_n(box.Row(y) + 8, 20, kTransparentPixel);
    }
    return box;
}

TEST_F(TurtleOnCanvas, Stamps) {
    Start(80, 48);
    turtle.SetPicture(HollowBox());
    Done(u"色は 緑");
    Done(u"80,8で0,4から塗りつぶして四角形");
    Done(u"2,1へスタンプ");
    SetPosition(Word(u"60,12"));
    Done(u"スタンプ");
    Done(u"2,24へ1.5,1で大きくスタンプ");
    SetPosition(Word(u"80,40"));
    Done(u"0.5,0.25で大きくスタンプ");
    EXPECT_EQ(Text(), ApprovedPicture("stamps.txt"));
}

TEST_F(TurtleOnCanvas, AWalkOfTenThousandStepsTakesNoTime) {
    Start(800, 600);
    settings.TurtleIconOn = true;
    const auto start = std::chrono::steady_clock::now();
    for (int step = 0; step < 10000; ++step) {
        Forward(step % 40);
        Turn(-71);
    }
    const std::chrono::duration<double, std::milli> taken =
        std::chrono::steady_clock::now() - start;
    RecordProperty("milliseconds", std::to_string(taken.count()));
    // Far above what it needs, so that a busy machine passes as well.
    EXPECT_LT(taken.count(), 500);
    EXPECT_FALSE(canvas.TakeChanges().IsEmpty());
}

TEST_F(TurtleOnCanvas, HugeShapesCostNoMoreThanTheCanvas) {
    Start(800, 600);
    const auto start = std::chrono::steady_clock::now();
    canvas.DrawWidth = 32767;
    for (const float far : {1e9F, -1e38F, 3e38F}) {
        canvas.Line(far, -far, 0);
        canvas.Box(-far, far, 0, true);
        canvas.Ellipse(-far, -far, far, far);
        canvas.PaintPicture(TurtlePicture(kTurtleFacingUp), -far, -far, far, far);
        canvas.ExtFloodFill(1, 1, canvas.Point(1, 1), 1);
    }
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    EXPECT_LT(taken.count(), 2);
}

}  // namespace
}  // namespace velm
