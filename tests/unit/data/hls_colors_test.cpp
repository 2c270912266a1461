// Colours by hue, luminance and saturation.
#include "data/hls_colors.h"

#include <gtest/gtest.h>

namespace velm {
namespace {

TEST(HlsColors, PrimaryAndMixedColors) {
    EXPECT_EQ(ColorOfHls(0, 120, 240), 0x0000FF);
    EXPECT_EQ(ColorOfHls(40, 120, 240), 0x00FFFF);
    EXPECT_EQ(ColorOfHls(80, 120, 240), 0x00FF00);
    EXPECT_EQ(ColorOfHls(120, 120, 240), 0xFFFF00);
    EXPECT_EQ(ColorOfHls(160, 120, 240), 0xFF0000);
    EXPECT_EQ(ColorOfHls(200, 120, 240), 0xFF00FF);
    EXPECT_EQ(ColorOfHls(240, 120, 240), 0x0000FF);
}

TEST(HlsColors, Greys) {
    EXPECT_EQ(ColorOfHls(0, 0, 0), 0x000000);
    EXPECT_EQ(ColorOfHls(160, 240, 0), 0xFFFFFF);
    // 120 * 255 / 240 is 127.5, and is cut.
    EXPECT_EQ(ColorOfHls(0, 120, 0), 0x7F7F7F);
}

// Luminance 60: high 120, low 0. Red is 120 * 255 / 240 = 127.5, rounded up.
TEST(HlsColors, DarkAndLight) {
    EXPECT_EQ(ColorOfHls(0, 60, 240), 0x000080);
    // Luminance 180: high 180 + 240 - 180 = 240, low 120.
    EXPECT_EQ(ColorOfHls(0, 180, 240), 0x8080FF);
    EXPECT_EQ(ColorOfHls(0, 240, 240), 0xFFFFFF);
    EXPECT_EQ(ColorOfHls(0, 0, 240), 0x000000);
}

// Hue 20 lies between red and yellow: green is 240 * 20 / 40 = 120 of 240.
TEST(HlsColors, BetweenPrimaries) { EXPECT_EQ(ColorOfHls(20, 120, 240), 0x0080FF); }

// Every colour's parts are bytes.
TEST(HlsColors, WholeRange) {
    for (int hue = 0; hue <= kHlsMost; hue += 3) {
        for (int luminance = 0; luminance <= kHlsMost; luminance += 3) {
            for (int saturation = 0; saturation <= kHlsMost; saturation += 3) {
                const std::int32_t color = ColorOfHls(hue, luminance, saturation);
                ASSERT_GE(color, 0);
                ASSERT_LE(color, 0xFFFFFF);
            }
        }
    }
}

}  // namespace
}  // namespace velm
