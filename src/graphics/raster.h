// Raster operations with rules of our own, so that a drawing is the same on every machine. No
// antialiasing: a pixel is painted whole or not at all. The rules:
//
//   place     A coordinate names the pixel whose number is the nearest to it, a half going up.
//   line      Width 1: one pixel in each column (row) of the longer axis, the nearest to the line, a tie
//             going down (right); both ends are painted. A line looks the same drawn from either end.
//             Wider: all pixels whose centre is within half the width of the line, the ends being round.
//             The middle of a pen of even width lies half a pixel up and left of the pixel's centre.
//   box       The corners are pixels of the box; an outline is four lines.
//   ellipse   All pixels whose centre lies in the ellipse that fits the box of pixels. The outline of
//             width 1 is those of them that have a neighbour above, below or beside outside; a wider
//             one lies around the edge, the larger half outside.
//   polygon   All pixels whose centre lies inside by the even-odd rule.
//
// Coordinates can be anything: what lies outside the area costs nothing, and each operation ends after
// work that is bounded by the area's size. Callers: the canvas and the turtle's pictures.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "data/pixmap.h"

namespace velm {

// Where to paint: the upper left part of an image, and what was changed of it.
class PixelArea {
  public:
    // The image must be at least as large as the area, and must outlive it.
    PixelArea(Pixmap& image, std::int32_t width, std::int32_t height)
        : width_(width), height_(height), image_(&image) {}

    std::int32_t Width() const { return width_; }
    std::int32_t Height() const { return height_; }
    bool Holds(std::int64_t x, std::int64_t y) const {
        return x >= 0 && y >= 0 && x < width_ && y < height_;
    }
    // Of a place within the area.
    std::uint32_t At(std::int32_t x, std::int32_t y) const { return image_->At(x, y); }

    // Paints the pixels of a row from first to last; the part outside is left out.
    void Span(std::int64_t y, std::int64_t first, std::int64_t last, std::uint32_t color);
    void Dot(std::int64_t x, std::int64_t y, std::uint32_t color) {
        if (!Holds(x, y)) return;
        image_->Row(static_cast<std::int32_t>(y))[x] = color;
    }
    // Says that pixels were changed by Dot. The part outside is left out.
    void Touch(std::int64_t left, std::int64_t top, std::int64_t right, std::int64_t bottom);

    const PixelRect& Changed() const { return changed_; }

  private:
    std::int32_t width_;
    std::int32_t height_;
    Pixmap* image_;
    PixelRect changed_;
};

struct PixelPoint {
    std::int32_t x = 0;
    std::int32_t y = 0;
};

// The pixel that a coordinate names. What is far out, infinite or no number gives a pixel far out.
std::int32_t NearestPixel(double coordinate);

// A line in coordinates; width in pixels, from 1 on.
void DrawLine(PixelArea& area, double fromX, double fromY, double toX, double toY,
              std::int32_t width, std::uint32_t color);

// The outline of a box between two corners, and the box itself.
void DrawBox(PixelArea& area, PixelPoint one, PixelPoint other, std::int32_t width,
             std::uint32_t color);
void FillBox(PixelArea& area, PixelPoint one, PixelPoint other, std::uint32_t color);

// An ellipse in a box of pixels. One without width or height is not there at all.
void DrawEllipse(PixelArea& area, const PixelRect& box, std::int32_t width, std::uint32_t outline,
                 std::optional<std::uint32_t> inside);

// A polygon that closes itself; its corners are in sixteenths of a pixel, each within 2^24.
void FillPolygon(PixelArea& area, std::span<const PixelPoint> corners, std::uint32_t color);

// Paints an image stretched to a box: each pixel takes the one of the image that covers its upper left
// corner. A box whose right is left of its left (or bottom above its top) mirrors the image.
void PaintPixmap(PixelArea& area, const Pixmap& image, const PixelRect& box);

enum class FloodMode : std::uint8_t {
    kUntilColor = 0,   // everything up to pixels of the colour
    kWithinColor = 1,  // as long as pixels have the colour
};

// Fills from a place on to all sides, but not over corners. Does nothing from a place that is outside
// the area or not to be filled itself. Looks at no pixel more than a few times.
void FloodFill(PixelArea& area, PixelPoint seed, std::uint32_t given, FloodMode mode,
               std::uint32_t color);

}  // namespace velm
