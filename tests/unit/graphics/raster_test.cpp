// The raster rules: small pictures, and each shape against its rule taken word by word.
#include "graphics/raster.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

#include "unit/graphics/picture_text.h"

namespace velm {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

class Sheet {
  public:
    Sheet(std::int32_t width, std::int32_t height)
        : image(width, height, 0), area(image, width, height) {}

    std::string Text() const {
        return PictureText(image, image.width, image.height, {{0, '.'}, {1, '#'}, {2, 'o'}});
    }

    Pixmap image;
    PixelArea area;
};

TEST(Raster, CoordinatesNameTheNearestPixel) {
    EXPECT_EQ(NearestPixel(2.49), 2);
    EXPECT_EQ(NearestPixel(2.5), 3);
    EXPECT_EQ(NearestPixel(-0.5), 0);
    EXPECT_EQ(NearestPixel(-0.51), -1);
    EXPECT_LT(NearestPixel(kNan), -1000000);
    EXPECT_LT(NearestPixel(-kInfinity), -1000000);
    EXPECT_GT(NearestPixel(1e300), 1000000);
}

TEST(Raster, ThinLines) {
    Sheet sheet(9, 5);
    DrawLine(sheet.area, 0, 0, 8, 4, 1, 1);
    EXPECT_EQ(sheet.Text(),
              "#........\n"
              ".##......\n"
              "...##....\n"
              ".....##..\n"
              ".......##\n");
    EXPECT_EQ(sheet.area.Changed(), (PixelRect{0, 0, 9, 5}));
}

TEST(Raster, SteepLinesAndPoints) {
    Sheet sheet(5, 5);
    DrawLine(sheet.area, 1, 4, 0, 0, 1, 1);
    DrawLine(sheet.area, 3, 3, 3, 3, 1, 2);
    DrawLine(sheet.area, 4, 0, 4, 2, 1, 1);
    EXPECT_EQ(sheet.Text(),
              "#...#\n"
              "#...#\n"
              ".#..#\n"
              ".#.o.\n"
              ".#...\n");
}

// The pixels of a thin line by its rule: for each step along the longer axis the nearest one across.
void PaintByRule(Pixmap& image, PixelPoint a, PixelPoint b) {
    const bool isSteep = std::abs(b.y - a.y) > std::abs(b.x - a.x);
    const int length = std::max(std::abs(b.x - a.x), std::abs(b.y - a.y));
    for (int i = 0; i <= length; ++i) {
        const double share = length == 0 ? 0 : static_cast<double>(i) / length;
        const double x = a.x + (b.x - a.x) * share;
        const double y = a.y + (b.y - a.y) * share;
        const int column = static_cast<int>(isSteep ? std::floor(x + 0.5 + 1e-9) : std::round(x));
        const int row = static_cast<int>(isSteep ? std::round(y) : std::floor(y + 0.5 + 1e-9));
        if (column >= 0 && row >= 0 && column < image.width && row < image.height) {
            image.Row(row)[column] = 1;
        }
    }
}

TEST(Raster, EveryThinLineFollowsTheRuleFromBothEndsAndOverTheBorder) {
    std::mt19937 random(4);
    std::uniform_int_distribution<int> place(-40, 60);
    for (int i = 0; i < 3000; ++i) {
        const PixelPoint a = {place(random), place(random)};
        const PixelPoint b = {place(random), place(random)};
        Sheet there(20, 15);
        Sheet back(20, 15);
        Sheet wanted(20, 15);
        DrawLine(there.area, a.x, a.y, b.x, b.y, 1, 1);
        DrawLine(back.area, b.x, b.y, a.x, a.y, 1, 1);
        PaintByRule(wanted.image, a, b);
        ASSERT_EQ(there.Text(), wanted.Text()) << a.x << ',' << a.y << ' ' << b.x << ',' << b.y;
        ASSERT_EQ(there.Text(), back.Text());
    }
}

TEST(Raster, LinesFromVeryFarAwayStillCross) {
    Sheet sheet(5, 5);
    DrawLine(sheet.area, -1e12, -1e12, 1e12, 1e12, 1, 1);
    DrawLine(sheet.area, -1e30, 2, 1e30, 2, 1, 2);
    EXPECT_EQ(sheet.Text(),
              "#....\n"
              ".#...\n"
              "ooooo\n"
              "...#.\n"
              "....#\n");
}

TEST(Raster, LinesWithoutPlaceAreNotThere) {
    Sheet sheet(4, 4);
    DrawLine(sheet.area, kNan, 0, 3, 3, 1, 1);
    DrawLine(sheet.area, 0, 0, kInfinity, 3, 5, 1);
    DrawLine(sheet.area, 1e10, 0, 1e11, 3, 1, 1);
    EXPECT_EQ(sheet.Text(), Sheet(4, 4).Text());
    EXPECT_TRUE(sheet.area.Changed().IsEmpty());
}

TEST(Raster, PensAreRound) {
    Sheet two(4, 4);
    DrawLine(two.area, 2, 2, 2, 2, 2, 1);
    EXPECT_EQ(two.Text(), "....\n.##.\n.##.\n....\n");
    Sheet four(5, 4);
    DrawLine(four.area, 2, 2, 2, 2, 4, 1);
    EXPECT_EQ(four.Text(), ".##..\n####.\n####.\n.##..\n");
    Sheet five(7, 5);
    DrawLine(five.area, 2, 2, 4, 2, 5, 1);
    EXPECT_EQ(five.Text(), ".#####.\n#######\n#######\n#######\n.#####.\n");
    EXPECT_EQ(five.area.Changed(), (PixelRect{0, 0, 7, 5}));
}

double DistanceToSegment(double x, double y, PixelPoint a, PixelPoint b, double shift) {
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    const double px = x - (a.x - shift);
    const double py = y - (a.y - shift);
    const double square = dx * dx + dy * dy;
    const double along = square == 0 ? 0 : std::clamp((px * dx + py * dy) / square, 0.0, 1.0);
    return std::hypot(px - along * dx, py - along * dy);
}

TEST(Raster, EveryWideLineIsWhatLiesWithinHalfItsWidth) {
    std::mt19937 random(5);
    std::uniform_int_distribution<int> place(-30, 50);
    std::uniform_int_distribution<int> width(2, 13);
    for (int i = 0; i < 2000; ++i) {
        const PixelPoint a = {place(random), place(random)};
        const PixelPoint b = {place(random), place(random)};
        const int pen = width(random);
        Sheet sheet(20, 15);
        DrawLine(sheet.area, a.x, a.y, b.x, b.y, pen, 1);
        for (int y = 0; y < 15; ++y) {
            for (int x = 0; x < 20; ++x) {
                const double away = DistanceToSegment(x, y, a, b, pen % 2 == 0 ? 0.5 : 0);
                if (std::abs(away - pen / 2.0) < 1e-9) continue;
                ASSERT_EQ(sheet.image.At(x, y) == 1, away < pen / 2.0)
                    << a.x << ',' << a.y << ' ' << b.x << ',' << b.y << ' ' << pen;
            }
        }
    }
}

TEST(Raster, APenWiderThanEverythingPaintsEverything) {
    Sheet sheet(6, 3);
    DrawLine(sheet.area, -100, 70, 50, 9, 2000000000, 1);
    EXPECT_EQ(sheet.Text(), "######\n######\n######\n");
}

TEST(Raster, Boxes) {
    Sheet sheet(6, 5);
    FillBox(sheet.area, {4, 3}, {1, 1}, 2);
    DrawBox(sheet.area, {1, 1}, {4, 3}, 1, 1);
    EXPECT_EQ(sheet.Text(), "......\n.####.\n.#oo#.\n.####.\n......\n");
    EXPECT_EQ(sheet.area.Changed(), (PixelRect{1, 1, 5, 4}));
    FillBox(sheet.area, {-1000000, -5}, {1000000, 0}, 2);
    EXPECT_EQ(sheet.Text().substr(0, 6), "oooooo");
}

TEST(Raster, AWideBoxHasRoundCorners) {
    Sheet sheet(8, 8);
    DrawBox(sheet.area, {2, 2}, {6, 6}, 4, 1);
    EXPECT_EQ(sheet.Text(),
              ".######.\n"
              "########\n"
              "########\n"
              "########\n"
              "########\n"
              "########\n"
              "########\n"
              ".######.\n");
}

TEST(Raster, Ellipses) {
    Sheet sheet(8, 8);
    DrawEllipse(sheet.area, {0, 0, 8, 8}, 1, 1, std::nullopt);
    EXPECT_EQ(sheet.Text(),
              "..####..\n"
              ".#....#.\n"
              "#......#\n"
              "#......#\n"
              "#......#\n"
              "#......#\n"
              ".#....#.\n"
              "..####..\n");
    Sheet flat(9, 3);
    DrawEllipse(flat.area, {0, 0, 9, 3}, 1, 1, 2);
    EXPECT_EQ(flat.Text(), ".#######.\n#ooooooo#\n.#######.\n");
    Sheet tiny(3, 3);
    DrawEllipse(tiny.area, {1, 1, 2, 2}, 1, 1, 2);
    EXPECT_EQ(tiny.Text(), "...\n.#.\n...\n");
}

TEST(Raster, EllipsesWithoutWidthOrHeightAreNotThere) {
    Sheet sheet(4, 4);
    DrawEllipse(sheet.area, {1, 1, 1, 4}, 1, 1, 2);
    DrawEllipse(sheet.area, {1, 1, 4, 1}, 3, 1, 2);
    EXPECT_EQ(sheet.Text(), Sheet(4, 4).Text());
}

bool IsInEllipse(int x, int y, const PixelRect& box) {
    const double a = (box.right - box.left) / 2.0;
    const double b = (box.bottom - box.top) / 2.0;
    if (a <= 0 || b <= 0) return false;
    const double dx = (x + 0.5 - box.left - a) / a;
    const double dy = (y + 0.5 - box.top - b) / b;
    return dx * dx + dy * dy <= 1 + 1e-12;
}

TEST(Raster, EveryEllipseFollowsTheRule) {
    std::mt19937 random(6);
    std::uniform_int_distribution<int> place(-20, 25);
    std::uniform_int_distribution<int> size(1, 40);
    for (int i = 0; i < 1500; ++i) {
        const int left = place(random);
        const int top = place(random);
        const PixelRect box = {left, top, left + size(random), top + size(random)};
        Sheet sheet(20, 20);
        DrawEllipse(sheet.area, box, 1, 1, 2);
        for (int y = 0; y < 20; ++y) {
            for (int x = 0; x < 20; ++x) {
                const bool isInside = IsInEllipse(x, y, box);
                const bool isEdge = !IsInEllipse(x - 1, y, box) || !IsInEllipse(x + 1, y, box) ||
                                    !IsInEllipse(x, y - 1, box) || !IsInEllipse(x, y + 1, box);
                const std::uint32_t wanted = !isInside ? 0U : isEdge ? 1U : 2U;
                ASSERT_EQ(sheet.image.At(x, y), wanted)
                    << box.left << ',' << box.top << ' ' << box.right << ',' << box.bottom;
            }
        }
    }
}

TEST(Raster, AWideOutlineLiesAroundTheEdge) {
    const PixelRect box = {3, 3, 17, 15};
    Sheet sheet(20, 20);
    DrawEllipse(sheet.area, box, 3, 1, 2);
    for (int y = 0; y < 20; ++y) {
        for (int x = 0; x < 20; ++x) {
            const bool isOuter = IsInEllipse(x, y, {2, 2, 18, 16});
            const bool isInner = IsInEllipse(x, y, {5, 5, 15, 13});
            EXPECT_EQ(sheet.image.At(x, y), isInner ? 2U : isOuter ? 1U : 0U);
        }
    }
}

TEST(Raster, HugeEllipsesCrossTheArea) {
    Sheet sheet(3, 3);
    DrawEllipse(sheet.area, {-500000000, -500000000, 500000000, 500000000}, 1, 1, 2);
    EXPECT_EQ(sheet.Text(), "ooo\nooo\nooo\n");
}

TEST(Raster, PolygonsHoldThePixelsWhoseCentreIsInside) {
    Sheet sheet(7, 5);
    const PixelPoint triangle[] = {{0, 0}, {7 * 16, 0}, {0, 5 * 16}};
    FillPolygon(sheet.area, triangle, 1);
    EXPECT_EQ(sheet.Text(),
              "######.\n"
              "#####..\n"
              "###....\n"
              "##.....\n"
              "#......\n");
}

TEST(Raster, NeighbouringPolygonsShareNoPixel) {
    const PixelPoint left[] = {{0, 0}, {53, 0}, {21, 96}, {0, 96}};
    const PixelPoint right[] = {{53, 0}, {128, 0}, {128, 96}, {21, 96}};
    Sheet one(8, 6);
    Sheet other(8, 6);
    FillPolygon(one.area, left, 1);
    FillPolygon(other.area, right, 1);
    for (int y = 0; y < 6; ++y) {
        for (int x = 0; x < 8; ++x) EXPECT_EQ(one.image.At(x, y) + other.image.At(x, y), 1U);
    }
}

TEST(Raster, CrossedPolygonsAreEvenOdd) {
    Sheet sheet(6, 6);
    const PixelPoint twice[] = {{0, 0},   {96, 0},  {96, 96}, {0, 96},  {0, 0},
                                {32, 32}, {64, 32}, {64, 64}, {32, 64}, {32, 32}};
    FillPolygon(sheet.area, twice, 1);
    EXPECT_EQ(sheet.Text(), "######\n######\n##..##\n##..##\n######\n######\n");
    FillPolygon(sheet.area, {}, 2);
    EXPECT_EQ(sheet.image.At(0, 0), 1U);
}

TEST(Raster, ImagesAreStretchedMirroredAndSeenThrough) {
    Pixmap stamp(2, 2, 1);
    stamp.Row(0)[1] = 2;
    stamp.Row(1)[1] = kTransparentPixel;
    Sheet plain(4, 3);
    PaintPixmap(plain.area, stamp, {1, 1, 3, 3});
    EXPECT_EQ(plain.Text(), "....\n.#o.\n.#..\n");
    EXPECT_EQ(plain.area.Changed(), (PixelRect{1, 1, 3, 3}));
    Sheet large(5, 4);
    PaintPixmap(large.area, stamp, {0, 0, 5, 4});
    EXPECT_EQ(large.Text(), "###oo\n###oo\n###..\n###..\n");
    Sheet mirrored(4, 2);
    PaintPixmap(mirrored.area, stamp, {4, 0, 0, 2});
    EXPECT_EQ(mirrored.Text(), "oo##\n..##\n");
    Sheet cut(2, 2);
    PaintPixmap(cut.area, stamp, {-1, -1, 1, 1});
    EXPECT_EQ(cut.Text(), "..\n..\n");
    PaintPixmap(cut.area, stamp, {-500000000, -500000000, 500000000, 500000000});
    EXPECT_EQ(cut.Text(), "..\n..\n");
    PaintPixmap(cut.area, Pixmap(), {0, 0, 2, 2});
    PaintPixmap(cut.area, stamp, {1, 0, 1, 2});
    EXPECT_EQ(cut.Text(), "..\n..\n");
}

TEST(Raster, FloodsStopAtAnotherColourButDontCrossCorners) {
    Sheet sheet(6, 5);
    DrawLine(sheet.area, 3, 0, 0, 3, 1, 1);
    FloodFill(sheet.area, {0, 0}, 0, FloodMode::kWithinColor, 2);
    EXPECT_EQ(sheet.Text(), "ooo#..\noo#...\no#....\n#.....\n......\n");
    EXPECT_EQ(sheet.area.Changed(), (PixelRect{0, 0, 4, 4}));
    FloodFill(sheet.area, {5, 4}, 1, FloodMode::kUntilColor, 1);
    EXPECT_EQ(sheet.Text(), "ooo###\noo####\no#####\n######\n######\n");
}

TEST(Raster, FloodsThatHaveNothingToFill) {
    Sheet sheet(3, 2);
    sheet.area.Dot(1, 0, 1);
    FloodFill(sheet.area, {-1, 0}, 0, FloodMode::kWithinColor, 2);
    FloodFill(sheet.area, {3, 0}, 0, FloodMode::kWithinColor, 2);
    FloodFill(sheet.area, {1, 0}, 0, FloodMode::kWithinColor, 2);
    FloodFill(sheet.area, {1, 0}, 1, FloodMode::kUntilColor, 2);
    EXPECT_EQ(sheet.Text(), ".#.\n...\n");
    FloodFill(sheet.area, {0, 0}, 0, FloodMode::kWithinColor, 0);
    EXPECT_EQ(sheet.Text(), ".#.\n...\n");
}

TEST(Raster, AFloodUntilAColourPassesItsOwnColour) {
    Sheet sheet(6, 1);
    sheet.area.Dot(2, 0, 2);
    sheet.area.Dot(4, 0, 1);
    FloodFill(sheet.area, {0, 0}, 1, FloodMode::kUntilColor, 2);
    EXPECT_EQ(sheet.Text(), "oooo#.\n");
}

// A maze of bars that leaves one long way through the whole area.
TEST(Raster, AFloodFindsItsWayThroughAMaze) {
    Sheet sheet(401, 401);
    for (int bar = 0; bar < 200; ++bar) {
        const int from = bar % 2;
        DrawLine(sheet.area, from, 2 * bar + 1, 399 + from, 2 * bar + 1, 1, 1);
    }
    FloodFill(sheet.area, {0, 0}, 0, FloodMode::kWithinColor, 2);
    EXPECT_EQ(std::count(sheet.image.pixels.begin(), sheet.image.pixels.end(), 0U), 0);
}

}  // namespace
}  // namespace velm
