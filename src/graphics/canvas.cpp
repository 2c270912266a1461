// See canvas.h. The rules of the pixels are those of raster.h.
#include "graphics/canvas.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "data/failure.h"
#include "graphics/colors.h"

namespace velm {

namespace {

constexpr std::int64_t kMostPixels = std::int64_t{1} << 26;

// A pixel that text covers by half or more is painted.
constexpr std::uint8_t kHalfCovered = 128;

// Calls use(line) for each piece of a text between its CRs.
template <class Use>
void ForEachLine(std::u16string_view text, Use&& use) {
    std::size_t from = 0;
    while (true) {
        const std::size_t end = std::min(text.find(u'\r', from), text.size());
        use(text.substr(from, end - from));
        if (end == text.size()) return;
        from = end + 1;
    }
}

void PaintCoverage(PixelArea& area, const TextCoverage& text, std::int32_t left, std::int32_t top,
                   std::uint32_t color) {
    for (std::int32_t y = 0; y < text.height; ++y) {
        for (std::int32_t x = 0; x < text.width; ++x) {
            if (text.At(x, y) >= kHalfCovered) {
                area.Dot(std::int64_t{left} + x, std::int64_t{top} + y, color);
            }
        }
    }
    area.Touch(left, top, std::int64_t{left} + text.width, std::int64_t{top} + text.height);
}

}  // namespace

template <class Operation>
void Canvas::Paint(Operation&& operation) {
    PixelArea area(image_, width_, height_);
    operation(area);
    changed_.Include(area.Changed());
}

void Canvas::Resize(std::int32_t width, std::int32_t height) {
    width = std::max(width, 0);
    height = std::max(height, 0);
    Grow(std::max(width, image_.width), std::max(height, image_.height));
    width_ = width;
    height_ = height;
    changed_ = {0, 0, width, height};
}

void Canvas::Grow(std::int32_t width, std::int32_t height) {
    if (width == image_.width && height == image_.height) return;
    if (std::int64_t{width} * height > kMostPixels) throw Failure(failure::kOutOfMemory);
    Pixmap grown(width, height, PixelOfColor(backColor_));
    PixelArea area(grown, width, height);
    PaintPixmap(area, picture_, {0, 0, picture_.width, picture_.height});
    for (std::int32_t y = 0; y < image_.height; ++y) {
        std::copy_n(image_.Row(y), image_.width, grown.Row(y));
    }
    image_ = std::move(grown);
}

PixelRect Canvas::TakeChanges() {
    PixelRect part = std::exchange(changed_, PixelRect());
    part.right = std::min(part.right, width_);
    part.bottom = std::min(part.bottom, height_);
    return part.IsEmpty() ? PixelRect() : part;
}

bool Canvas::TakeRefresh() { return std::exchange(isRefreshAsked_, false); }

// The hidden part as well, so that a larger canvas shows nothing of old.
void Canvas::Erase() {
    std::fill(image_.pixels.begin(), image_.pixels.end(), PixelOfColor(backColor_));
    PixelArea area(image_, image_.width, image_.height);
    PaintPixmap(area, picture_, {0, 0, picture_.width, picture_.height});
    changed_ = {0, 0, width_, height_};
}

void Canvas::SetBackColor(std::int32_t color) {
    backColor_ = color;
    Erase();
}

void Canvas::SetPicture(Pixmap picture) {
    picture_ = std::move(picture);
    Erase();
}

void Canvas::MoveTo(float x, float y) {
    CurrentX = x;
    CurrentY = y;
}

void Canvas::Line(float x, float y, std::int32_t color) {
    Paint([&](PixelArea& area) {
        DrawLine(area, CurrentX, CurrentY, x, y, DrawWidth, PixelOfColor(color));
    });
    MoveTo(x, y);
}

void Canvas::Box(float x, float y, std::int32_t color, bool isFilled) {
    const PixelPoint corner = {NearestPixel(CurrentX), NearestPixel(CurrentY)};
    const PixelPoint opposite = {NearestPixel(x), NearestPixel(y)};
    const bool hasInside = isFilled || FillStyle == FillStyles::kSolid;
    const std::int32_t inside = isFilled ? color : FillColor;
    Paint([&](PixelArea& area) {
        if (hasInside) FillBox(area, corner, opposite, PixelOfColor(inside));
        DrawBox(area, corner, opposite, DrawWidth, PixelOfColor(color));
    });
    MoveTo(x, y);
}

void Canvas::PSet(float x, float y, std::int32_t color) {
    MoveTo(x, y);
    Line(x, y, color);
}

void Canvas::Print(std::u16string_view text) {
    TextRasterizer* fonts = TheTextRasterizer();
    if (fonts == nullptr) return;
    const auto step = static_cast<float>(fonts->LineHeight(Font));
    ForEachLine(text, [&](std::u16string_view line) {
        PrintLine(line, *fonts);
        MoveTo(0, CurrentY + step);
    });
}

void Canvas::PrintLine(std::u16string_view line, TextRasterizer& fonts) {
    const std::int32_t left = NearestPixel(CurrentX);
    const std::int32_t top = NearestPixel(CurrentY);
    const bool isInside = left < width_ && top < height_ && top + fonts.LineHeight(Font) > 0;
    if (line.empty() || !isInside) return;
    const TextCoverage covered = fonts.Draw(line, Font, width_ - left);
    Paint(
        [&](PixelArea& area) { PaintCoverage(area, covered, left, top, PixelOfColor(ForeColor)); });
}

float Canvas::TextWidth(std::u16string_view text) const {
    TextRasterizer* fonts = TheTextRasterizer();
    std::int32_t widest = 0;
    if (fonts == nullptr) return 0;
    ForEachLine(text, [&](std::u16string_view line) {
        widest = std::max(widest, fonts->Width(line, Font));
    });
    return static_cast<float>(widest);
}

void Canvas::Cls() {
    Erase();
    MoveTo(0, 0);
}

void Canvas::PaintPicture(const Pixmap& picture, float x, float y, float width, float height) {
    const PixelRect box = {NearestPixel(x), NearestPixel(y), NearestPixel(double{x} + width),
                           NearestPixel(double{y} + height)};
    Paint([&](PixelArea& area) { PaintPixmap(area, picture, box); });
}

std::int32_t Canvas::Point(float x, float y) const {
    const std::int32_t column = NearestPixel(x);
    const std::int32_t row = NearestPixel(y);
    const bool isInside = column >= 0 && row >= 0 && column < width_ && row < height_;
    return isInside ? static_cast<std::int32_t>(image_.At(column, row)) : -1;
}

void Canvas::Ellipse(float left, float top, float right, float bottom) {
    const PixelRect box = {NearestPixel(std::min(left, right)), NearestPixel(std::min(top, bottom)),
                           NearestPixel(std::max(left, right)),
                           NearestPixel(std::max(top, bottom))};
    std::optional<std::uint32_t> inside;
    if (FillStyle == FillStyles::kSolid) inside = PixelOfColor(FillColor);
    Paint([&](PixelArea& area) {
        DrawEllipse(area, box, DrawWidth, PixelOfColor(ForeColor), inside);
    });
}

void Canvas::ExtFloodFill(float x, float y, std::int32_t color, std::int32_t mode) {
    const PixelPoint seed = {NearestPixel(x), NearestPixel(y)};
    Paint([&](PixelArea& area) {
        FloodFill(area, seed, PixelOfColor(color),
                  mode == 0 ? FloodMode::kUntilColor : FloodMode::kWithinColor,
                  PixelOfColor(FillColor));
    });
}

}  // namespace velm
