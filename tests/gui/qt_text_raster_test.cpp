// Text of canvases.
#include "platform/qt/qt_text_raster.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace velm {
namespace {

constexpr std::int32_t kWide = 10'000;

int Covered(const TextCoverage& text) {
    return static_cast<int>(std::count(text.coverage.begin(), text.coverage.end(), 255));
}

// The columns from the first covered one to behind the last.
std::int32_t InkWidth(const TextCoverage& text) {
    std::int32_t first = text.width;
    std::int32_t behind = 0;
    for (std::int32_t y = 0; y < text.height; ++y) {
        for (std::int32_t x = 0; x < text.width; ++x) {
            if (text.At(x, y) == 0) continue;
            first = std::min(first, x);
            behind = std::max(behind, x + 1);
        }
    }
    return behind - first;
}

TextStyle OfSize(double points) {
    TextStyle style;
    style.size = points;
    return style;
}

TEST(TextRaster, APointIsFourThirdsOfAPixel) {
    QtTextRaster fonts;
    // A kanji is as wide as the font is high.
    EXPECT_EQ(fonts.Width(u"漢", OfSize(9)), 12);
    EXPECT_EQ(fonts.Width(u"漢字", OfSize(12)), 32);
    EXPECT_EQ(fonts.Width(u"", OfSize(12)), 0);
}

TEST(TextRaster, PixelsAreCoveredWholeOrNotAtAll) {
    QtTextRaster fonts;
    const TextCoverage text = fonts.Draw(u"日本語 abc", OfSize(12), kWide);
    EXPECT_EQ(text.height, fonts.LineHeight(OfSize(12)));
    EXPECT_GE(text.width, fonts.Width(u"日本語 abc", OfSize(12)));
    EXPECT_EQ(text.coverage.size(),
              static_cast<std::size_t>(text.width) * static_cast<std::size_t>(text.height));
    EXPECT_TRUE(std::all_of(text.coverage.begin(), text.coverage.end(),
                            [](std::uint8_t part) { return part == 0 || part == 255; }));
    EXPECT_GT(Covered(text), 100);
    EXPECT_GT(InkWidth(text), 60);
}

TEST(TextRaster, DrawsNoWiderThanAsked) {
    QtTextRaster fonts;
    EXPECT_EQ(fonts.Draw(u"とても長い文章", OfSize(9), 20).width, 20);
    EXPECT_EQ(fonts.Draw(u"とても長い文章", OfSize(9), 0).width, 0);
    EXPECT_EQ(fonts.Draw(u"とても長い文章", OfSize(9), -3).width, 0);
    const TextCoverage whole = fonts.Draw(u"漢字", OfSize(9), kWide);
    const TextCoverage part = fonts.Draw(u"漢字", OfSize(9), 10);
    for (std::int32_t y = 0; y < part.height; ++y) {
        for (std::int32_t x = 0; x < part.width; ++x) ASSERT_EQ(part.At(x, y), whole.At(x, y));
    }
}

TEST(TextRaster, StylesChangeThePicture) {
    QtTextRaster fonts;
    const int plain = Covered(fonts.Draw(u"太い文字", OfSize(18), kWide));
    TextStyle bold = OfSize(18);
    bold.bold = true;
    EXPECT_GT(Covered(fonts.Draw(u"太い文字", bold, kWide)), plain);
    TextStyle underlined = OfSize(18);
    underlined.underline = true;
    EXPECT_GT(Covered(fonts.Draw(u"太い文字", underlined, kWide)), plain);
    TextStyle struck = OfSize(18);
    struck.strikeOut = true;
    EXPECT_NE(Covered(fonts.Draw(u"太い文字", struck, kWide)), plain);
    EXPECT_EQ(Covered(fonts.Draw(u"太い文字", OfSize(18), kWide)), plain);
}

TEST(TextRaster, AnUnknownFontIsTheStandardOne) {
    QtTextRaster fonts;
    TextStyle unknown = OfSize(9);
    unknown.font = u"そんな書体はない";
    EXPECT_EQ(fonts.Width(u"漢字", unknown), 24);
    EXPECT_GT(Covered(fonts.Draw(u"漢字", unknown, kWide)), 20);
}

TEST(TextRaster, SizesWithoutSenseAreDrawnToo) {
    QtTextRaster fonts;
    EXPECT_GE(fonts.LineHeight(OfSize(0)), 1);
    EXPECT_GE(fonts.LineHeight(OfSize(-4)), 1);
    EXPECT_LT(fonts.LineHeight(OfSize(1e9)), 10'000);
}

}  // namespace
}  // namespace velm
