// Fonts for tests: each character is a cell of four by six pixels, inked three by five; what is inked
// follows from the character's code alone. Width and height don't depend on the style.
#pragma once

#include <algorithm>
#include <string_view>

#include "platform/text_raster.h"

namespace velm {

class FixedFonts : public TextRasterizer {
  public:
    FixedFonts() { SetTextRasterizer(this); }
    FixedFonts(const FixedFonts&) = delete;
    FixedFonts& operator=(const FixedFonts&) = delete;
    ~FixedFonts() override { SetTextRasterizer(nullptr); }

    std::int32_t Width(std::u16string_view text, const TextStyle&) override {
        return static_cast<std::int32_t>(text.size()) * kCellWidth;
    }
    std::int32_t LineHeight(const TextStyle&) override { return kCellHeight; }
    TextCoverage Draw(std::u16string_view text, const TextStyle& style,
                      std::int32_t widest) override {
        TextCoverage drawn;
        drawn.width = std::min(Width(text, style), widest);
        drawn.height = kCellHeight;
        for (std::int32_t y = 0; y < drawn.height; ++y) {
            for (std::int32_t x = 0; x < drawn.width; ++x) {
                const auto place = static_cast<std::size_t>(x / kCellWidth);
                drawn.coverage.push_back(Ink(text[place], x % kCellWidth, y));
            }
        }
        return drawn;
    }

  private:
    static constexpr std::int32_t kCellWidth = 4;
    static constexpr std::int32_t kCellHeight = 6;

    // "a" is a full block, "b" one that covers just half of its pixels, "c" a little less.
    static std::uint8_t Ink(char16_t unit, std::int32_t x, std::int32_t y) {
        if (x == kCellWidth - 1 || y == kCellHeight - 1 || unit == u' ') return 0;
        if (unit == u'b') return 128;
        return unit == u'c' ? 127 : 255;
    }
};

}  // namespace velm
