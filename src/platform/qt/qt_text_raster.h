// Text of canvases, drawn with the toolkit's fonts.
#pragma once

#include <QFont>
#include <QFontMetrics>

#include "platform/text_raster.h"

namespace velm {

// A point is 96/72 pixels, whatever the display; pixels are covered whole or not at all, by the font's
// own rules for small sizes, so that the same font gives the same picture on every machine.
class QtTextRaster : public TextRasterizer {
  public:
    QtTextRaster();

    std::int32_t Width(std::u16string_view text, const TextStyle& style) override;
    std::int32_t LineHeight(const TextStyle& style) override;
    TextCoverage Draw(std::u16string_view text, const TextStyle& style,
                      std::int32_t widest) override;

  private:
    // The font of the last call: a script asks for the same one again and again.
    TextStyle style_;
    QFont font_;
    QFontMetrics metrics_;

    void Use(const TextStyle& style);
};

}  // namespace velm
