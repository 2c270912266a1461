// The canvas: its members, what survives resizing, and which part has changed.
#include "graphics/canvas.h"

#include <gtest/gtest.h>

#include "data/failure.h"
#include "graphics/colors.h"
#include "graphics/turtle_pictures.h"
#include "unit/graphics/fixed_fonts.h"
#include "unit/graphics/picture_text.h"
#include "unit/platform/fails_with.h"

namespace velm {
namespace {

constexpr std::int32_t kWhite = 0xFFFFFF;
constexpr std::int32_t kRed = 0x0000FF;
constexpr std::int32_t kBlue = 0xFF0000;
constexpr std::int32_t kGreen = 0x00FF00;

class CanvasTest : public testing::Test {
  protected:
    CanvasTest() { Start(8, 4); }

    void Start(std::int32_t width, std::int32_t height) {
        canvas.Resize(width, height);
        canvas.TakeChanges();
    }
    std::string Text() const {
        return PictureText(canvas.Image(), canvas.Width(), canvas.Height(),
                           {{kWhite, '.'}, {0, '#'}, {kRed, 'r'}, {kBlue, 'b'}, {kGreen, 'g'}});
    }
    void StandAt(float x, float y) {
        canvas.CurrentX = x;
        canvas.CurrentY = y;
    }

    Canvas canvas{u"ウィンドウ１", true};
};

TEST_F(CanvasTest, BeginsEmptyWithAThinPen) {
    EXPECT_EQ(Text(), "........\n........\n........\n........\n");
    EXPECT_EQ(canvas.DrawWidth, 1);
    EXPECT_EQ(canvas.FillStyle, FillStyles::kTransparent);
    EXPECT_TRUE(canvas.AutoRedraw);
    EXPECT_EQ(canvas.ScaleWidth(), 8);
    EXPECT_EQ(canvas.ScaleHeight(), 4);
    EXPECT_EQ(canvas.ObjectName(), u"ウィンドウ１");
    EXPECT_TRUE(canvas.IsWindow());
}

TEST_F(CanvasTest, LinesLeaveTheirEndAsTheCurrentPoint) {
    StandAt(1, 1);
    canvas.Line(4.4F, 1, kRed);
    canvas.Line(4, 3.5F, kBlue);
    EXPECT_EQ(Text(), "........\n.rrrb...\n....b...\n....b...\n");
    EXPECT_EQ(canvas.CurrentX, 4);
    EXPECT_EQ(canvas.CurrentY, 3.5F);
    EXPECT_EQ(canvas.TakeChanges(), (PixelRect{1, 1, 5, 4}));
    EXPECT_TRUE(canvas.TakeChanges().IsEmpty());
}

TEST_F(CanvasTest, BoxesAreOutlinedOrFilled) {
    canvas.Box(2, 2, kRed, false);
    EXPECT_EQ(canvas.CurrentX, 2);
    EXPECT_EQ(canvas.CurrentY, 2);
    StandAt(6, 3);
    canvas.Box(4, 1, kBlue, true);
    EXPECT_EQ(Text(), "rrr.....\nr.r.bbb.\nrrr.bbb.\n....bbb.\n");
    canvas.FillStyle = FillStyles::kSolid;
    canvas.FillColor = kGreen;
    StandAt(0, 0);
    canvas.Box(2, 2, kRed, false);
    EXPECT_EQ(Text(), "rrr.....\nrgr.bbb.\nrrr.bbb.\n....bbb.\n");
}

TEST_F(CanvasTest, DotsAreAsWideAsThePen) {
    canvas.PSet(1, 1, kRed);
    canvas.DrawWidth = 3;
    canvas.PSet(5, 2, 0);
    EXPECT_EQ(Text(), "........\n.r..###.\n....###.\n....###.\n");
    EXPECT_EQ(canvas.CurrentX, 5);
}

TEST_F(CanvasTest, EllipsesTakeTheirColoursFromTheCanvas) {
    canvas.ForeColor = kRed;
    canvas.Ellipse(0, 0, 8, 4);
    EXPECT_EQ(Text(), ".rrrrrr.\nr......r\nr......r\n.rrrrrr.\n");
    canvas.FillStyle = FillStyles::kSolid;
    canvas.FillColor = kBlue;
    canvas.Ellipse(8, 4, 0, 0);
    EXPECT_EQ(Text(), ".rrrrrr.\nrbbbbbbr\nrbbbbbbr\n.rrrrrr.\n");
}

TEST_F(CanvasTest, FloodsAndPixels) {
    StandAt(3, 0);
    canvas.Line(3, 3, kRed);
    canvas.FillColor = kBlue;
    canvas.ExtFloodFill(0, 0, canvas.Point(0, 0), 1);
    EXPECT_EQ(Text(), "bbbr....\nbbbr....\nbbbr....\nbbbr....\n");
    canvas.ExtFloodFill(0, 0, kGreen, 0);
    EXPECT_EQ(Text(), "bbbbbbbb\nbbbbbbbb\nbbbbbbbb\nbbbbbbbb\n");
    EXPECT_EQ(canvas.Point(3, 3), kBlue);
    EXPECT_EQ(canvas.Point(3, 3.5F), -1);
    EXPECT_EQ(canvas.Point(-1, 0), -1);
    EXPECT_EQ(canvas.Point(8, 0), -1);
}

TEST_F(CanvasTest, WhatIsCutOffComesBack) {
    StandAt(0, 0);
    canvas.Line(7, 3, kRed);
    canvas.Resize(3, 2);
    EXPECT_EQ(Text(), "rr.\n..r\n");
    EXPECT_EQ(canvas.TakeChanges(), (PixelRect{0, 0, 3, 2}));
    canvas.FillColor = kBlue;
    canvas.ExtFloodFill(2, 0, kWhite, 1);
    EXPECT_EQ(Text(), "rrb\n..r\n");
    EXPECT_EQ(canvas.Point(6, 3), -1);
    canvas.Resize(9, 4);
    EXPECT_EQ(Text(), "rrb......\n..rr.....\n....rr...\n......rr.\n");
    canvas.Resize(-4, 2);
    EXPECT_EQ(canvas.Width(), 0);
    canvas.Line(2, 2, kRed);
    canvas.ExtFloodFill(0, 0, 0, 1);
    EXPECT_TRUE(canvas.TakeChanges().IsEmpty());
}

TEST_F(CanvasTest, ACanvasTooLargeIsRefusedAndStays) {
    EXPECT_EQ(FailureOf([&] { canvas.Resize(100000, 100000); }), failure::kOutOfMemory);
    EXPECT_EQ(canvas.Width(), 8);
    EXPECT_EQ(Text(), "........\n........\n........\n........\n");
}

TEST_F(CanvasTest, ClearingKeepsTheBackgroundPictureAndGoesToTheCorner) {
    canvas.SetPicture(Pixmap(2, 2, kGreen));
    StandAt(0, 0);
    canvas.Line(7, 0, kRed);
    EXPECT_EQ(Text(), "rrrrrrrr\ngg......\n........\n........\n");
    canvas.Cls();
    EXPECT_EQ(Text(), "gg......\ngg......\n........\n........\n");
    EXPECT_EQ(canvas.CurrentX, 0);
    canvas.RemovePicture();
    EXPECT_EQ(Text(), "........\n........\n........\n........\n");
    EXPECT_EQ(canvas.TakeChanges(), (PixelRect{0, 0, 8, 4}));
}

TEST_F(CanvasTest, APictureLargerThanTheCanvasShowsWhenItGrows) {
    canvas.SetPicture(Pixmap(10, 1, kGreen));
    canvas.Resize(9, 2);
    EXPECT_EQ(Text(), "ggggggggg\n.........\n");
}

TEST_F(CanvasTest, ANewBackgroundErases) {
    StandAt(2, 2);
    canvas.Line(7, 2, kRed);
    canvas.SetBackColor(kBlue);
    EXPECT_EQ(Text(), "bbbbbbbb\nbbbbbbbb\nbbbbbbbb\nbbbbbbbb\n");
    EXPECT_EQ(canvas.CurrentX, 7);
    EXPECT_EQ(canvas.BackColor(), kBlue);
    canvas.Resize(9, 1);
    EXPECT_EQ(Text(), "bbbbbbbbb\n");
}

TEST_F(CanvasTest, ARefreshIsAskedForOnce) {
    EXPECT_FALSE(canvas.TakeRefresh());
    canvas.Refresh();
    EXPECT_TRUE(canvas.TakeRefresh());
    EXPECT_FALSE(canvas.TakeRefresh());
}

TEST_F(CanvasTest, PicturesAreStretchedToTheirSize) {
    Pixmap stamp(2, 1, kRed);
    stamp.Row(0)[1] = kTransparentPixel;
    canvas.PaintPicture(stamp, 1, 1, 4, 2);
    EXPECT_EQ(Text(), "........\n.rr.....\n.rr.....\n........\n");
    canvas.PaintPicture(stamp, 7, 3, -2, 1);
    EXPECT_EQ(Text(), "........\n.rr.....\n.rr.....\n......r.\n");
}

TEST_F(CanvasTest, WithoutFontsNothingIsWritten) {
    StandAt(2, 1);
    canvas.Print(u"a");
    EXPECT_EQ(canvas.TextWidth(u"a"), 0);
    EXPECT_EQ(canvas.CurrentX, 2);
    EXPECT_TRUE(canvas.TakeChanges().IsEmpty());
}

TEST_F(CanvasTest, TextIsInkedWhereItCoversHalf) {
    const FixedFonts fonts;
    Start(14, 8);
    canvas.ForeColor = kRed;
    StandAt(1, 1);
    canvas.Print(u"abca");
    EXPECT_EQ(Text(),
              "..............\n"
              ".rrr.rrr.....r\n"
              ".rrr.rrr.....r\n"
              ".rrr.rrr.....r\n"
              ".rrr.rrr.....r\n"
              ".rrr.rrr.....r\n"
              "..............\n"
              "..............\n");
    EXPECT_EQ(canvas.CurrentX, 0);
    EXPECT_EQ(canvas.CurrentY, 7);
    EXPECT_EQ(canvas.TakeChanges(), (PixelRect{1, 1, 14, 7}));
}

TEST_F(CanvasTest, ACarriageReturnGoesToTheLeftEdge) {
    const FixedFonts fonts;
    Start(8, 14);
    StandAt(5, 0);
    canvas.Print(u"a\ra");
    EXPECT_EQ(Text().substr(0, 9), ".....###\n");
    EXPECT_EQ(Text().substr(6 * 9, 9), "###.....\n");
    EXPECT_EQ(canvas.CurrentX, 0);
    EXPECT_EQ(canvas.CurrentY, 12);
    EXPECT_EQ(canvas.TextWidth(u"ab\rabc\ra"), 12);
}

TEST_F(CanvasTest, TextFarOutsideIsOnlyMeasured) {
    const FixedFonts fonts;
    for (const float far : {-1e30F, 1e30F}) {
        StandAt(far, 0);
        canvas.Print(u"aaaa");
        StandAt(0, far);
        canvas.Print(u"aaaa");
    }
    EXPECT_TRUE(canvas.TakeChanges().IsEmpty());
}

// Nothing is drawn or looked at between the steps, so that no pixel is there yet.
TEST_F(CanvasTest, ABlankCanvasTakesColourPictureAndSizeInAnyOrder) {
    canvas.Resize(2, 1);
    canvas.SetPicture(Pixmap(2, 1, kRed));
    canvas.SetBackColor(kBlue);
    canvas.Resize(4, 2);
    EXPECT_EQ(canvas.TakeChanges(), (PixelRect{0, 0, 4, 2}));
    EXPECT_EQ(canvas.Image().width, 8);
    EXPECT_EQ(canvas.Image().height, 4);
    EXPECT_EQ(canvas.Point(1, 0), kRed);
    EXPECT_EQ(Text(), "rrbb\nbbbb\n");
}

TEST_F(CanvasTest, ABlankCanvasOfNoSizeCanGrowAndBeDrawnOn) {
    Canvas small(u"ピクチャー１", false);
    small.Line(3, 3, kRed);
    EXPECT_TRUE(small.Image().pixels.empty());
    EXPECT_EQ(small.Point(0, 0), -1);
    small.Resize(2, 1);
    small.CurrentX = small.CurrentY = 0;
    small.PSet(1, 0, kBlue);
    EXPECT_EQ(PictureText(small.Image(), 2, 1, {{kWhite, '.'}, {kBlue, 'b'}}), ".b\n");
}

// A system colour is looked up when places get it, not when they are first seen.
TEST_F(CanvasTest, BlankPlacesKeepTheSystemColourTheyGot) {
    constexpr std::int32_t kNumber = 5;
    canvas.SetBackColor(static_cast<std::int32_t>(0x80000005));
    SetSystemColor(kNumber, kRed);
    canvas.Resize(10, 4);
    SetSystemColor(kNumber, kBlue);
    canvas.Resize(11, 4);
    SetSystemColor(kNumber, kWhite);
    EXPECT_EQ(Text().substr(0, 12), "........rrb\n");
}

TEST(Colors, SystemColoursHaveNumbers) {
    EXPECT_EQ(PixelOfColor(0x123456), 0x123456U);
    const auto window = static_cast<std::int32_t>(0x80000005);
    EXPECT_EQ(PixelOfColor(window), 0xFFFFFFU);
    EXPECT_EQ(PixelOfColor(static_cast<std::int32_t>(0x80000019)), 0U);
    SetSystemColor(5, 0x99112233);
    EXPECT_EQ(PixelOfColor(window), 0x112233U);
    SetSystemColor(5, 0xFFFFFF);
}

}  // namespace
}  // namespace velm
