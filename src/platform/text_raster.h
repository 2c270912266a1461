// Text as pixels: how wide a text is in a font, and which pixels it covers. The window face puts its
// toolkit's fonts in. Callers: the drawing surfaces.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace velm {

struct TextStyle {
    std::u16string font;  // a family; empty: the standard font
    double size = 9;      // points
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strikeOut = false;
};

// How much of each pixel a text covers, 0 to 255, row by row from the top.
struct TextCoverage {
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::vector<std::uint8_t> coverage;

    std::uint8_t At(std::int32_t x, std::int32_t y) const {
        return coverage[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                        static_cast<std::size_t>(x)];
    }
};

class TextRasterizer {
  public:
    virtual ~TextRasterizer() = default;

    // From the start of a text without line ends to where the next one would continue it, in pixels.
    virtual std::int32_t Width(std::u16string_view text, const TextStyle& style) = 0;
    // From one line to the next, in pixels.
    virtual std::int32_t LineHeight(const TextStyle& style) = 0;
    // A text without line ends. Columns from `widest` on may be left out.
    virtual TextCoverage Draw(std::u16string_view text, const TextStyle& style,
                              std::int32_t widest) = 0;
};

// The fonts in force; nullptr: there are none, and no text can be drawn. They must outlive their use.
TextRasterizer* TheTextRasterizer();
void SetTextRasterizer(TextRasterizer* rasterizer);

}  // namespace velm
