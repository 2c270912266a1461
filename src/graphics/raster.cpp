// Boxes, ellipses, polygons and stretched images; lines are in raster_lines.cpp.
#include "graphics/raster.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace velm {

namespace {

// No coordinate gets further out than this, so that sums and doubled ones stay within 32 bits.
constexpr std::int32_t kFarthest = 1 << 29;

// The first and last pixel of a row in a shape; none when first is behind last.
struct Run {
    std::int64_t first = 0;
    std::int64_t last = -1;

    bool IsEmpty() const { return first > last; }
};

Run EllipseRun(const PixelRect& box, std::int32_t y) {
    const double height = static_cast<double>(box.bottom) - box.top;
    const double width = static_cast<double>(box.right) - box.left;
    if (height <= 0 || width <= 0 || y < box.top || y >= box.bottom) return {};
    const double above = 2.0 * y + 1 - (static_cast<double>(box.top) + box.bottom);
    const double reach = width * std::sqrt((height - above) * (height + above)) / height;
    const double middle = static_cast<double>(box.left) + box.right - 1;
    return {static_cast<std::int64_t>(std::ceil((middle - reach) / 2)),
            static_cast<std::int64_t>(std::floor((middle + reach) / 2))};
}

PixelRect Grown(const PixelRect& box, std::int32_t by) {
    return {box.left - by, box.top - by, box.right + by, box.bottom + by};
}

// What of a row belongs to the inside when the outline is one pixel wide.
Run InnerRun(const PixelRect& box, std::int32_t y) {
    const Run here = EllipseRun(box, y);
    const Run above = EllipseRun(box, y - 1);
    const Run below = EllipseRun(box, y + 1);
    if (here.IsEmpty() || above.IsEmpty() || below.IsEmpty()) return {};
    return {std::max({here.first + 1, above.first, below.first}),
            std::min({here.last - 1, above.last, below.last})};
}

void PaintRing(PixelArea& area, std::int32_t y, const Run& outer, const Run& inner,
               std::uint32_t color) {
    if (inner.IsEmpty()) {
        area.Span(y, outer.first, outer.last, color);
        return;
    }
    area.Span(y, outer.first, inner.first - 1, color);
    area.Span(y, inner.last + 1, outer.last, color);
}

// Where an edge crosses the middle of a row, in sixteenths of a pixel, rounded up: the first place that
// is right of the edge or on it.
std::int64_t Crossing(const PixelPoint& upper, const PixelPoint& lower, std::int64_t middle) {
    const std::int64_t rise = std::int64_t{lower.y} - upper.y;
    const std::int64_t numerator = (std::int64_t{lower.x} - upper.x) * (middle - upper.y);
    const std::int64_t whole = numerator / rise;
    const bool isRoundedDown = numerator % rise > 0;
    return upper.x + whole + (isRoundedDown ? 1 : 0);
}

constexpr std::int64_t kParts = 16;  // sixteenths of a pixel

// The first pixel whose centre is not left of a place.
std::int64_t FirstCentre(std::int64_t place) {
    const std::int64_t shifted = place - kParts / 2;
    return shifted >= 0 ? (shifted + kParts - 1) / kParts : -(-shifted / kParts);
}

std::vector<std::int64_t> Crossings(std::span<const PixelPoint> corners, std::int64_t middle) {
    std::vector<std::int64_t> places;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        PixelPoint upper = corners[i];
        PixelPoint lower = corners[(i + 1) % corners.size()];
        if (upper.y > lower.y) std::swap(upper, lower);
        if (middle >= upper.y && middle < lower.y) {
            places.push_back(FirstCentre(Crossing(upper, lower, middle)));
        }
    }
    std::sort(places.begin(), places.end());
    return places;
}

// Along one axis, the pixel of the image that a pixel of the box from start to end shows.
std::int32_t SourceOf(std::int64_t pixel, std::int32_t start, std::int32_t end,
                      std::int32_t length) {
    const std::int64_t low = std::min(start, end);
    const std::int64_t size = std::int64_t{std::max(start, end)} - low;
    const auto place = static_cast<std::int32_t>((pixel - low) * length / size);
    return start < end ? place : length - 1 - place;
}

}  // namespace

void PixelArea::Span(std::int64_t y, std::int64_t first, std::int64_t last, std::uint32_t color) {
    first = std::max<std::int64_t>(first, 0);
    last = std::min<std::int64_t>(last, width_ - 1);
    if (y < 0 || y >= height_ || first > last) return;
    std::uint32_t* row = image_->Row(static_cast<std::int32_t>(y));
    std::fill(row + first, row + last + 1, color);
    Touch(first, y, last + 1, y + 1);
}

void PixelArea::Touch(std::int64_t left, std::int64_t top, std::int64_t right,
                      std::int64_t bottom) {
    const PixelRect part = {static_cast<std::int32_t>(std::max<std::int64_t>(left, 0)),
                            static_cast<std::int32_t>(std::max<std::int64_t>(top, 0)),
                            static_cast<std::int32_t>(std::min<std::int64_t>(right, width_)),
                            static_cast<std::int32_t>(std::min<std::int64_t>(bottom, height_))};
    if (!part.IsEmpty()) changed_.Include(part);
}

std::int32_t NearestPixel(double coordinate) {
    if (!(coordinate > -kFarthest)) return -kFarthest;
    if (coordinate >= kFarthest) return kFarthest;
    return static_cast<std::int32_t>(std::floor(coordinate + 0.5));
}

void FillBox(PixelArea& area, PixelPoint one, PixelPoint other, std::uint32_t color) {
    const std::int32_t top = std::max(std::min(one.y, other.y), 0);
    const std::int32_t bottom = std::min(std::max(one.y, other.y), area.Height() - 1);
    for (std::int32_t y = top; y <= bottom; ++y) {
        area.Span(y, std::min(one.x, other.x), std::max(one.x, other.x), color);
    }
}

void DrawBox(PixelArea& area, PixelPoint one, PixelPoint other, std::int32_t width,
             std::uint32_t color) {
    DrawLine(area, one.x, one.y, other.x, one.y, width, color);
    DrawLine(area, one.x, other.y, other.x, other.y, width, color);
    DrawLine(area, one.x, one.y, one.x, other.y, width, color);
    DrawLine(area, other.x, one.y, other.x, other.y, width, color);
}

void DrawEllipse(PixelArea& area, const PixelRect& box, std::int32_t width, std::uint32_t outline,
                 std::optional<std::uint32_t> inside) {
    if (box.IsEmpty()) return;
    const PixelRect outer = Grown(box, width / 2);
    const PixelRect inner = Grown(box, width / 2 - width);
    const std::int32_t bottom = std::min(outer.bottom, area.Height());
    for (std::int32_t y = std::max(outer.top, 0); y < bottom; ++y) {
        const Run within = width == 1 ? InnerRun(box, y) : EllipseRun(inner, y);
        if (inside && !within.IsEmpty()) area.Span(y, within.first, within.last, *inside);
        PaintRing(area, y, EllipseRun(outer, y), within, outline);
    }
}

void FillPolygon(PixelArea& area, std::span<const PixelPoint> corners, std::uint32_t color) {
    if (corners.empty()) return;
    const auto [highest, lowest] =
        std::minmax_element(corners.begin(), corners.end(),
                            [](const PixelPoint& a, const PixelPoint& b) { return a.y < b.y; });
    const std::int64_t top = std::max<std::int64_t>(FirstCentre(highest->y), 0);
    const std::int64_t bottom = std::min<std::int64_t>(FirstCentre(lowest->y), area.Height());
    for (std::int64_t y = top; y < bottom; ++y) {
        const std::vector<std::int64_t> places = Crossings(corners, y * kParts + kParts / 2);
        for (std::size_t i = 0; i + 1 < places.size(); i += 2) {
            area.Span(y, places[i], places[i + 1] - 1, color);
        }
    }
}

void PaintPixmap(PixelArea& area, const Pixmap& image, const PixelRect& box) {
    if (image.width == 0 || image.height == 0) return;
    const std::int32_t left = std::max(std::min(box.left, box.right), 0);
    const std::int32_t right = std::min(std::max(box.left, box.right), area.Width());
    const std::int32_t top = std::max(std::min(box.top, box.bottom), 0);
    const std::int32_t bottom = std::min(std::max(box.top, box.bottom), area.Height());
    for (std::int32_t y = top; y < bottom; ++y) {
        const std::uint32_t* row = image.Row(SourceOf(y, box.top, box.bottom, image.height));
        for (std::int32_t x = left; x < right; ++x) {
            const std::uint32_t color = row[SourceOf(x, box.left, box.right, image.width)];
            if (color != kTransparentPixel) area.Dot(x, y, color);
        }
    }
    area.Touch(left, top, right, bottom);
}

}  // namespace velm
