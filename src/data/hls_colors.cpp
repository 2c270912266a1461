// The double-hexcone model of hue, lightness and saturation (Foley and van Dam, "Fundamentals of
// Interactive Computer Graphics", 1982), in whole numbers: each division rounds to the nearest.
#include "data/hls_colors.h"

namespace velm {

namespace {

constexpr int kByteMost = 255;
constexpr int kSixth = kHlsMost / 6;

int DivideRounded(int number, int divisor) { return (number + divisor / 2) / divisor; }

// The share of one primary colour, 0 to kHlsMost; hue is counted from that primary's own range.
int ShareOf(int low, int high, int hue) {
    hue = (hue + kHlsMost) % kHlsMost;
    if (hue < kSixth) return low + DivideRounded((high - low) * hue, kSixth);
    if (hue < 3 * kSixth) return high;
    if (hue < 4 * kSixth) return low + DivideRounded((high - low) * (4 * kSixth - hue), kSixth);
    return low;
}

std::int32_t ByteOf(int share) { return DivideRounded(share * kByteMost, kHlsMost); }

}  // namespace

std::int32_t ColorOfHls(int hue, int luminance, int saturation) {
    if (saturation == 0) {
        // Kept: a grey is cut where the parts of a colour are rounded.
        const std::int32_t grey = luminance * kByteMost / kHlsMost;
        return grey | grey << 8 | grey << 16;
    }
    const int high = luminance <= kHlsMost / 2
                         ? DivideRounded(luminance * (kHlsMost + saturation), kHlsMost)
                         : luminance + saturation - DivideRounded(luminance * saturation, kHlsMost);
    const int low = 2 * luminance - high;
    const std::int32_t red = ByteOf(ShareOf(low, high, hue + 2 * kSixth));
    const std::int32_t green = ByteOf(ShareOf(low, high, hue));
    const std::int32_t blue = ByteOf(ShareOf(low, high, hue - 2 * kSixth));
    return red | green << 8 | blue << 16;
}

}  // namespace velm
