// See qt_text_raster.h.
#include "platform/qt/qt_text_raster.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "platform/qt/qt_text.h"

namespace velm {

namespace {

constexpr double kPixelsAnInch = 96;
constexpr double kPointsAnInch = 72;
constexpr double kLargestPixels = 2000;
constexpr QRgb kWhite = 0xFFFFFFFF;

QFont FontOf(const TextStyle& style) {
    QFont font = QApplication::font();
    if (!style.font.empty()) {
        // The standard fonts behind it write what it can't.
        font.setFamilies(QStringList(ToQString(style.font)) + font.families());
    }
    const double pixels = std::round(style.size * kPixelsAnInch / kPointsAnInch);
    font.setPixelSize(static_cast<int>(std::clamp(pixels, 1.0, kLargestPixels)));
    font.setBold(style.bold);
    font.setItalic(style.italic);
    font.setUnderline(style.underline);
    font.setStrikeOut(style.strikeOut);
    font.setHintingPreference(QFont::PreferFullHinting);
    font.setStyleStrategy(QFont::StyleStrategy(QFont::NoAntialias | QFont::NoSubpixelAntialias));
    return font;
}

bool IsSame(const TextStyle& one, const TextStyle& other) {
    return one.font == other.font && one.size == other.size && one.bold == other.bold &&
           one.italic == other.italic && one.underline == other.underline &&
           one.strikeOut == other.strikeOut;
}

}  // namespace

QtTextRaster::QtTextRaster() : font_(FontOf(style_)), metrics_(font_) {}

void QtTextRaster::Use(const TextStyle& style) {
    if (IsSame(style, style_)) return;
    style_ = style;
    font_ = FontOf(style);
    metrics_ = QFontMetrics(font_);
}

std::int32_t QtTextRaster::Width(std::u16string_view text, const TextStyle& style) {
    Use(style);
    return metrics_.horizontalAdvance(ToQString(text));
}

std::int32_t QtTextRaster::LineHeight(const TextStyle& style) {
    Use(style);
    return metrics_.height();
}

TextCoverage QtTextRaster::Draw(std::u16string_view text, const TextStyle& style,
                                std::int32_t widest) {
    Use(style);
    const QString line = ToQString(text);
    // A slanted last letter leans over the place where the text ends.
    const int lean = metrics_.height();
    TextCoverage result;
    result.width = std::clamp(metrics_.horizontalAdvance(line) + lean, 0, std::max(widest, 0));
    result.height = metrics_.height();
    if (result.width == 0) return result;
    QImage image(result.width, result.height, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setFont(font_);
    painter.setPen(QColor::fromRgba(kWhite));
    painter.drawText(0, metrics_.ascent(), line);
    painter.end();
    result.coverage.reserve(static_cast<std::size_t>(result.width) *
                            static_cast<std::size_t>(result.height));
    for (int y = 0; y < result.height; ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        std::transform(row, row + result.width, std::back_inserter(result.coverage),
                       [](QRgb pixel) { return static_cast<std::uint8_t>(qAlpha(pixel)); });
    }
    return result;
}

}  // namespace velm
