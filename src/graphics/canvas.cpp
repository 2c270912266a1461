// See canvas.h. The rules of the pixels are those of raster.h.
#include "graphics/canvas.h"

#include <algorithm>
#include <cstdlib>
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

void PaintCoverage(PixelArea& area, const TextCoverage& text, PixelPoint corner,
                   std::uint32_t color) {
    const std::int64_t left = corner.x;
    const std::int64_t top = corner.y;
    for (std::int32_t y = 0; y < text.height; ++y) {
        for (std::int32_t x = 0; x < text.width; ++x) {
            if (text.At(x, y) >= kHalfCovered) {
                area.Dot(left + x, top + y, color);
            }
        }
    }
    area.Touch(left, top, left + text.width, top + text.height);
}

}  // namespace

// Until somebody draws on it or looks at it, an image needs no memory: the hidden first window, which
// every run has, is seldom one of those that are seen.
Pixmap& Canvas::Pixels() const {
    if (IsBlank()) {
        Pixmap made(image_.width, image_.height, blankPixel_);
        PixelArea area(made, made.width, made.height);
        PaintPixmap(area, picture_, {0, 0, picture_.width, picture_.height});
        image_ = std::move(made);
    }
    return image_;
}

template <class Operation>
void Canvas::Paint(Operation&& operation) {
    PixelArea area(Pixels(), width_, height_);
    operation(area);
    changed_.Include(area.Changed());
}

// A stroke of another mode is drawn by itself first, so that no pixel of it is mixed in twice.
template <class Operation>
void Canvas::Stroke(Operation&& operation) {
    if (DrawMode == draw_mode::kCopy) {
        Paint(operation);
        return;
    }
    if (DrawMode == draw_mode::kNothing) return;
    const PixelRect drawn = DrawByItself(operation);
    MixIn(drawn, [](std::int32_t, std::int32_t) { return true; });
}

// Leaves the drawing in stroke_, all other pixels of which are kTransparentPixel.
template <class Operation>
PixelRect Canvas::DrawByItself(Operation&& operation) {
    if (stroke_.width != image_.width || stroke_.height != image_.height) {
        stroke_ = Pixmap(image_.width, image_.height, kTransparentPixel);
    }
    PixelArea area(stroke_, width_, height_);
    operation(area);
    return area.Changed();
}

// Brings the pixels of stroke_ into the image that keep(x, y) wants, and empties it.
template <class Keep>
void Canvas::MixIn(const PixelRect& part, Keep&& keep) {
    if (part.IsEmpty()) return;
    Pixmap& image = Pixels();
    for (std::int32_t y = part.top; y < part.bottom; ++y) {
        std::uint32_t* const drawn = stroke_.Row(y);
        std::uint32_t* const below = image.Row(y);
        for (std::int32_t x = part.left; x < part.right; ++x) {
            if (drawn[x] == kTransparentPixel) continue;
            if (keep(x, y)) below[x] = MixPixel(DrawMode, drawn[x], below[x]);
            drawn[x] = kTransparentPixel;
        }
    }
    changed_.Include(part);
}

void Canvas::SetUnitsInPixel(double units) {
    MoveTo(static_cast<float>(InPixels(CurrentX) * units),
           static_cast<float>(InPixels(CurrentY) * units));
    units_ = units;
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
    const std::uint32_t pixel = PixelOfColor(backColor_);
    if (IsBlank() && pixel == blankPixel_) {
        image_.width = width;
        image_.height = height;
        return;
    }
    // What was there keeps its colour, also where a system colour is another one now.
    const Pixmap& old = Pixels();
    Pixmap grown(width, height, pixel);
    PixelArea area(grown, width, height);
    PaintPixmap(area, picture_, {0, 0, picture_.width, picture_.height});
    for (std::int32_t y = 0; y < old.height; ++y) {
        std::copy_n(old.Row(y), old.width, grown.Row(y));
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
    blankPixel_ = PixelOfColor(backColor_);
    if (!IsBlank()) {
        std::fill(image_.pixels.begin(), image_.pixels.end(), blankPixel_);
        PixelArea area(image_, image_.width, image_.height);
        PaintPixmap(area, picture_, {0, 0, picture_.width, picture_.height});
    }
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

void Canvas::StrokeLine(double fromX, double fromY, double toX, double toY, std::uint32_t color) {
    if (DrawStyle == draw_style::kNone) return;
    const auto draw = [&](PixelArea& area) {
        DrawLine(area, fromX, fromY, toX, toY, DrawWidth, color);
    };
    if (DrawWidth != 1 || !IsBrokenStyle(DrawStyle)) {
        Stroke(draw);
        return;
    }
    // A thin line has one pixel for each step of its longer axis.
    const bool isSteep = std::abs(toY - fromY) > std::abs(toX - fromX);
    const std::int64_t start = NearestPixel(isSteep ? fromY : fromX);
    MixIn(DrawByItself(draw), [&](std::int32_t x, std::int32_t y) {
        return IsInDash(DrawStyle, std::abs((isSteep ? y : x) - start));
    });
}

void Canvas::StrokeBox(PixelPoint one, PixelPoint other, std::uint32_t color) {
    if (DrawWidth == 1 && IsBrokenStyle(DrawStyle)) {
        StrokeLine(one.x, one.y, other.x, one.y, color);
        StrokeLine(other.x, one.y, other.x, other.y, color);
        StrokeLine(other.x, other.y, one.x, other.y, color);
        StrokeLine(one.x, other.y, one.x, one.y, color);
    } else if (DrawStyle != draw_style::kNone) {
        Stroke([&](PixelArea& area) { DrawBox(area, one, other, DrawWidth, color); });
    }
}

void Canvas::Line(float x, float y, std::int32_t color) {
    StrokeLine(InPixels(CurrentX), InPixels(CurrentY), InPixels(x), InPixels(y),
               PixelOfColor(color));
    MoveTo(x, y);
}

void Canvas::Box(float x, float y, std::int32_t color, bool isFilled) {
    const PixelPoint corner = PixelAt(CurrentX, CurrentY);
    const PixelPoint opposite = PixelAt(x, y);
    const std::uint32_t pixel = PixelOfColor(color);
    if (isFilled) {
        // One stroke, so that its edge isn't mixed in twice.
        Stroke([&](PixelArea& area) {
            FillBox(area, corner, opposite, pixel);
            DrawBox(area, corner, opposite, DrawWidth, pixel);
        });
    } else {
        if (FillStyle == FillStyles::kSolid) {
            Stroke(
                [&](PixelArea& area) { FillBox(area, corner, opposite, PixelOfColor(FillColor)); });
        }
        StrokeBox(corner, opposite, pixel);
    }
    MoveTo(x, y);
}

// A dot isn't broken, whatever the style.
void Canvas::PSet(float x, float y, std::int32_t color) {
    MoveTo(x, y);
    Stroke([&](PixelArea& area) {
        DrawLine(area, InPixels(x), InPixels(y), InPixels(x), InPixels(y), DrawWidth,
                 PixelOfColor(color));
    });
}

void Canvas::Print(std::u16string_view text) {
    TextRasterizer* fonts = TheTextRasterizer();
    if (fonts == nullptr) return;
    const auto step = static_cast<float>(fonts->LineHeight(Font) * units_);
    ForEachLine(text, [&](std::u16string_view line) {
        PrintLine(line, *fonts);
        MoveTo(0, CurrentY + step);
    });
}

void Canvas::PrintLine(std::u16string_view line, TextRasterizer& fonts) {
    const auto [left, top] = PixelAt(CurrentX, CurrentY);
    const bool isInside = left < width_ && top < height_ && top + fonts.LineHeight(Font) > 0;
    if (line.empty() || !isInside) return;
    const TextCoverage covered = fonts.Draw(line, Font, width_ - left);
    const PixelPoint corner = {left, top};
    Paint([&](PixelArea& area) { PaintCoverage(area, covered, corner, PixelOfColor(ForeColor)); });
}

float Canvas::TextWidth(std::u16string_view text) const {
    TextRasterizer* fonts = TheTextRasterizer();
    std::int32_t widest = 0;
    if (fonts == nullptr) return 0;
    ForEachLine(text, [&](std::u16string_view line) {
        widest = std::max(widest, fonts->Width(line, Font));
    });
    return static_cast<float>(widest * units_);
}

void Canvas::Cls() {
    Erase();
    MoveTo(0, 0);
}

void Canvas::PaintPicture(const Pixmap& picture, float x, float y, float width, float height) {
    const PixelPoint corner = PixelAt(x, y);
    const PixelPoint opposite = PixelAt(double{x} + width, double{y} + height);
    const PixelRect box = {corner.x, corner.y, opposite.x, opposite.y};
    Paint([&](PixelArea& area) { PaintPixmap(area, picture, box); });
}

std::int32_t Canvas::Point(float x, float y) const {
    const auto [column, row] = PixelAt(x, y);
    const bool isInside = column >= 0 && row >= 0 && column < width_ && row < height_;
    return isInside ? static_cast<std::int32_t>(Pixels().At(column, row)) : -1;
}

void Canvas::Ellipse(float left, float top, float right, float bottom) {
    const PixelPoint corner = PixelAt(std::min(left, right), std::min(top, bottom));
    const PixelPoint opposite = PixelAt(std::max(left, right), std::max(top, bottom));
    const PixelRect box = {corner.x, corner.y, opposite.x, opposite.y};
    std::optional<std::uint32_t> inside;
    if (FillStyle == FillStyles::kSolid) inside = PixelOfColor(FillColor);
    if (DrawStyle == draw_style::kNone) {
        if (!inside) return;
        Stroke([&](PixelArea& area) { DrawEllipse(area, box, 1, *inside, inside); });
        return;
    }
    Stroke([&](PixelArea& area) {
        DrawEllipse(area, box, DrawWidth, PixelOfColor(ForeColor), inside);
    });
}

void Canvas::ExtFloodFill(float x, float y, std::int32_t color, std::int32_t mode) {
    const PixelPoint seed = PixelAt(x, y);
    Paint([&](PixelArea& area) {
        FloodFill(area, seed, PixelOfColor(color),
                  mode == 0 ? FloodMode::kUntilColor : FloodMode::kWithinColor,
                  PixelOfColor(FillColor));
    });
}

}  // namespace velm
