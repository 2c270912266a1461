// The canvas in other units than pixels, with other ways of mixing and with broken lines.
#include <gtest/gtest.h>

#include "graphics/canvas.h"
#include "graphics/pen_modes.h"
#include "unit/graphics/fixed_fonts.h"
#include "unit/graphics/picture_text.h"

namespace velm {
namespace {

constexpr std::int32_t kWhite = 0xFFFFFF;
constexpr std::int32_t kRed = 0x0000FF;
constexpr std::int32_t kCyan = 0xFFFF00;

class CanvasModes : public testing::Test {
  protected:
    CanvasModes() { Start(8, 4); }

    void Start(std::int32_t width, std::int32_t height) {
        canvas.Resize(width, height);
        canvas.TakeChanges();
    }
    void StandAt(float x, float y) {
        canvas.CurrentX = x;
        canvas.CurrentY = y;
    }
    std::string Text() const {
        return PictureText(canvas.Image(), canvas.Width(), canvas.Height(),
                           {{kWhite, '.'}, {0, '#'}, {kRed, 'r'}, {kCyan, 'c'}});
    }

    Canvas canvas{u"ピクチャー１", false};
};

TEST_F(CanvasModes, UnitsScaleLengthsAndPlaces) {
    canvas.SetUnitsInPixel(0.5);
    EXPECT_EQ(canvas.UnitsInPixel(), 0.5F);
    EXPECT_EQ(canvas.ScaleWidth(), 4);
    EXPECT_EQ(canvas.ScaleHeight(), 2);
    StandAt(0.5F, 0.5F);
    canvas.Line(2, 0.5F, kRed);
    EXPECT_EQ(canvas.CurrentX, 2);
    canvas.PSet(3.5F, 1.5F, 0);
    EXPECT_EQ(Text(), "........\n.rrrr...\n........\n.......#\n");
    EXPECT_EQ(canvas.Point(3.5F, 1.5F), 0);
    EXPECT_EQ(canvas.Point(4, 0), -1);
}

TEST_F(CanvasModes, TheCurrentPointStaysInItsPlace) {
    StandAt(6, 2);
    canvas.SetUnitsInPixel(0.5);
    EXPECT_EQ(canvas.CurrentX, 3);
    EXPECT_EQ(canvas.CurrentY, 1);
    canvas.SetUnitsInPixel(15);
    EXPECT_EQ(canvas.CurrentX, 90);
    canvas.SetUnitsInPixel(1);
    EXPECT_EQ(canvas.CurrentX, 6);
}

TEST_F(CanvasModes, ShapesPicturesAndFillsFollowTheUnits) {
    canvas.SetUnitsInPixel(2);
    StandAt(2, 2);
    canvas.Box(6, 6, 0, false);
    EXPECT_EQ(Text(), "........\n.###....\n.#.#....\n.###....\n");
    canvas.FillColor = kRed;
    canvas.ExtFloodFill(4, 4, kWhite, 1);
    canvas.PaintPicture(Pixmap(1, 1, kCyan), 10, 2, 4, 4);
    EXPECT_EQ(Text(), "........\n.###.cc.\n.#r#.cc.\n.###....\n");
    canvas.Cls();
    canvas.FillStyle = FillStyles::kSolid;
    canvas.Ellipse(0, 0, 4, 4);
    EXPECT_EQ(Text(), "##......\n##......\n........\n........\n");
}

TEST_F(CanvasModes, TextIsMeasuredInUnits) {
    const FixedFonts fonts;
    canvas.SetUnitsInPixel(0.5);
    EXPECT_EQ(canvas.TextWidth(u"aa"), 4);
    canvas.Print(u"a");
    EXPECT_EQ(canvas.CurrentY, 3);
    EXPECT_EQ(Text(), "###.....\n###.....\n###.....\n###.....\n");
}

TEST_F(CanvasModes, EveryModeMixesBitByBit) {
    constexpr std::uint32_t pen = 0x0F0F0F;
    constexpr std::uint32_t below = 0x333333;
    constexpr std::uint32_t expected[] = {
        0x000000, 0xC0C0C0, 0x303030, 0xF0F0F0, 0x0C0C0C, 0xCCCCCC, 0x3C3C3C, 0xFCFCFC,
        0x030303, 0xC3C3C3, 0x333333, 0xF3F3F3, 0x0F0F0F, 0xCFCFCF, 0x3F3F3F, 0xFFFFFF};
    for (std::int16_t mode = 1; mode <= 16; ++mode) {
        EXPECT_EQ(MixPixel(mode, pen, below), expected[mode - 1]) << mode;
    }
}

TEST_F(CanvasModes, InvertingTwiceBringsThePictureBack) {
    canvas.DrawMode = draw_mode::kInvert;
    StandAt(1, 1);
    canvas.Box(6, 3, kRed, false);
    EXPECT_EQ(Text(), "........\n.######.\n.#....#.\n.######.\n");
    EXPECT_EQ(canvas.TakeChanges(), (PixelRect{1, 1, 7, 4}));
    StandAt(1, 1);
    canvas.Box(6, 3, kRed, false);
    EXPECT_EQ(Text(), "........\n........\n........\n........\n");
}

TEST_F(CanvasModes, ExclusiveOrOfAFilledBoxTakesEachPixelOnce) {
    canvas.DrawMode = draw_mode::kXor;
    StandAt(0, 0);
    canvas.Box(2, 2, kRed, true);
    EXPECT_EQ(Text(), "ccc.....\nccc.....\nccc.....\n........\n");
    canvas.DrawWidth = 3;
    canvas.PSet(1, 1, kRed);
    EXPECT_EQ(canvas.Point(1, 1), kWhite);
}

TEST_F(CanvasModes, TheModeThatDoesNothingChangesNothing) {
    canvas.DrawMode = draw_mode::kNothing;
    canvas.Line(7, 3, 0);
    EXPECT_EQ(Text(), "........\n........\n........\n........\n");
    EXPECT_TRUE(canvas.TakeChanges().IsEmpty());
    EXPECT_EQ(canvas.CurrentX, 7);
}

TEST_F(CanvasModes, BrokenLinesHaveTheirPatterns) {
    Start(40, 1);
    const auto line = [&](std::int16_t style) {
        canvas.Cls();
        canvas.DrawStyle = style;
        canvas.Line(39, 0, 0);
        return Text();
    };
    EXPECT_EQ(line(draw_style::kSolid), std::string(40, '#') + "\n");
    EXPECT_EQ(line(draw_style::kDash), "##################......################\n");
    EXPECT_EQ(line(draw_style::kDot), "###...###...###...###...###...###...###.\n");
    EXPECT_EQ(line(draw_style::kDashDot), "#########......###......#########......#\n");
    EXPECT_EQ(line(draw_style::kDashDotDot), "#########...###...###...#########...###.\n");
    EXPECT_EQ(line(draw_style::kNone), std::string(40, '.') + "\n");
    EXPECT_EQ(line(draw_style::kInsideSolid), std::string(40, '#') + "\n");
    canvas.DrawWidth = 2;
    EXPECT_EQ(line(draw_style::kDot), std::string(40, '#') + "\n");
}

TEST_F(CanvasModes, ABrokenLineIsCountedFromItsStartAlongItsLongerSide) {
    Start(4, 8);
    canvas.DrawStyle = draw_style::kDot;
    StandAt(1, 7);
    canvas.Line(1, 0, 0);
    EXPECT_EQ(Text(), ".#..\n.#..\n....\n....\n....\n.#..\n.#..\n.#..\n");
}

TEST_F(CanvasModes, WithoutAnOutlineOnlyTheInsideIsDrawn) {
    canvas.DrawStyle = draw_style::kNone;
    canvas.FillColor = kRed;
    StandAt(0, 0);
    canvas.Ellipse(0, 0, 3, 3);
    canvas.Box(3, 3, 0, false);
    EXPECT_EQ(Text(), "........\n........\n........\n........\n");
    canvas.FillStyle = FillStyles::kSolid;
    canvas.Ellipse(5, 0, 7, 2);
    StandAt(0, 0);
    canvas.Box(2, 2, 0, false);
    EXPECT_EQ(Text(), "rrr..rr.\nrrr..rr.\nrrr.....\n........\n");
}

}  // namespace
}  // namespace velm
