// Lines of any width.
#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "graphics/raster.h"

namespace velm {

namespace {

// Lines are cut off this far out, so that products of two lengths are exact in 64 bits and in a double.
constexpr double kFar = 1 << 24;

// A pen can't be wider; it covers any area then.
constexpr std::int32_t kWidestPen = 1 << 16;

struct Segment {
    double fromX, fromY, toX, toY;
};

// Cuts what lies beyond a border of one axis: `near` is the end that may be moved.
void CutAt(double border, double& near, double& nearOther, double far, double farOther) {
    nearOther += (farOther - nearOther) * ((border - near) / (far - near));
    near = border;
}

// Brings both ends of one axis within the far borders. False when nothing is left.
bool CutAxis(double& a, double& aOther, double& b, double& bOther) {
    for (const double border : {-kFar, kFar}) {
        const bool isOutA = border < 0 ? a < border : a > border;
        const bool isOutB = border < 0 ? b < border : b > border;
        if (isOutA && isOutB) return false;
        if (isOutA) CutAt(border, a, aOther, b, bOther);
        if (isOutB) CutAt(border, b, bOther, a, aOther);
    }
    return true;
}

bool CutFarParts(Segment& line) {
    for (const double end : {line.fromX, line.fromY, line.toX, line.toY}) {
        if (!std::isfinite(end)) return false;
    }
    return CutAxis(line.fromX, line.fromY, line.toX, line.toY) &&
           CutAxis(line.fromY, line.fromX, line.toY, line.toX);
}

std::int64_t FloorDivide(std::int64_t a, std::int64_t b) {
    const std::int64_t quotient = a / b;
    return a % b < 0 ? quotient - 1 : quotient;
}

// One pixel for each step along the longer axis, which is x unless the axes are swapped.
void DrawThinLine(PixelArea& area, PixelPoint a, PixelPoint b, std::uint32_t color) {
    const bool isSteep = std::abs(b.y - a.y) > std::abs(b.x - a.x);
    if (isSteep) {
        std::swap(a.x, a.y);
        std::swap(b.x, b.y);
    }
    if (a.x > b.x) std::swap(a, b);
    const std::int64_t length = std::int64_t{b.x} - a.x;
    const std::int64_t rise = std::int64_t{b.y} - a.y;
    const std::int32_t limit = isSteep ? area.Height() : area.Width();
    const std::int64_t first = std::max<std::int64_t>(0, -std::int64_t{a.x});
    const std::int64_t last = std::min<std::int64_t>(length, std::int64_t{limit} - 1 - a.x);
    // The place across is floor(part / whole); it is carried along from step to step.
    const std::int64_t whole = std::max<std::int64_t>(2 * length, 1);
    const std::int64_t start = 2 * rise * first + length;
    std::int64_t across = a.y + FloorDivide(start, whole);
    std::int64_t rest = start - FloorDivide(start, whole) * whole;
    for (std::int64_t i = first; i <= last; ++i) {
        isSteep ? area.Dot(across, a.x + i, color) : area.Dot(a.x + i, across, color);
        rest += 2 * rise;
        if (rest >= whole) {
            rest -= whole;
            ++across;
        } else if (rest < 0) {
            rest += whole;
            --across;
        }
    }
}

struct Range {
    double low = -std::numeric_limits<double>::infinity();
    double high = std::numeric_limits<double>::infinity();

    bool IsEmpty() const { return low > high; }
    // Keeps the part where low <= slope * x + offset <= high.
    void Restrict(double slope, double offset, double lowest, double highest) {
        if (slope == 0) {
            if (offset < lowest || offset > highest) high = low - 1;
            return;
        }
        double from = (lowest - offset) / slope;
        double to = (highest - offset) / slope;
        if (slope < 0) std::swap(from, to);
        low = std::max(low, from);
        high = std::min(high, to);
    }
};

// A wide line in half pixels: the middle of the pen at both ends, and half its width.
struct WideLine {
    double ax, ay, bx, by, radius;

    // The part of a row that one of the round ends covers.
    Range End(double x, double y, double row) const {
        const double away = row - y;
        if (std::abs(away) > radius) return {0, -1};
        const double reach = std::sqrt((radius - away) * (radius + away));
        return {x - reach, x + reach};
    }
    // The part that the straight piece between them covers.
    Range Middle(double row) const {
        const double dx = bx - ax;
        const double dy = by - ay;
        const double square = dx * dx + dy * dy;
        if (square == 0) return {0, -1};
        const double reach = radius * std::sqrt(square);
        Range part;
        part.low = std::min(ax, bx) - radius;
        part.high = std::max(ax, bx) + radius;
        part.Restrict(dx, (row - ay) * dy - ax * dx, 0, square);
        part.Restrict(dy, -ax * dy - (row - ay) * dx, -reach, reach);
        return part;
    }
    // All of them meet, so that the whole is one range.
    Range Row(double row) const {
        Range whole = {0, -1};
        for (const Range& part : {End(ax, ay, row), End(bx, by, row), Middle(row)}) {
            if (part.IsEmpty()) continue;
            whole = whole.IsEmpty()
                        ? part
                        : Range{std::min(whole.low, part.low), std::max(whole.high, part.high)};
        }
        return whole;
    }
};

void DrawWideLine(PixelArea& area, PixelPoint a, PixelPoint b, std::int32_t width,
                  std::uint32_t color) {
    const double shift = width % 2 == 0 ? 1 : 0;
    const WideLine line = {2.0 * a.x - shift, 2.0 * a.y - shift, 2.0 * b.x - shift,
                           2.0 * b.y - shift, static_cast<double>(width)};
    const double top = std::ceil((std::min(line.ay, line.by) - line.radius) / 2);
    const double bottom = std::floor((std::max(line.ay, line.by) + line.radius) / 2);
    const auto last = static_cast<std::int32_t>(std::min(bottom, area.Height() - 1.0));
    for (auto y = static_cast<std::int32_t>(std::max(top, 0.0)); y <= last; ++y) {
        const Range part = line.Row(2.0 * y);
        if (part.IsEmpty()) continue;
        area.Span(y, static_cast<std::int64_t>(std::ceil(part.low / 2)),
                  static_cast<std::int64_t>(std::floor(part.high / 2)), color);
    }
}

}  // namespace

void DrawLine(PixelArea& area, double fromX, double fromY, double toX, double toY,
              std::int32_t width, std::uint32_t color) {
    Segment line = {fromX, fromY, toX, toY};
    if (!CutFarParts(line)) return;
    const PixelPoint a = {NearestPixel(line.fromX), NearestPixel(line.fromY)};
    const PixelPoint b = {NearestPixel(line.toX), NearestPixel(line.toY)};
    if (width > 1) {
        DrawWideLine(area, a, b, std::min(width, kWidestPen), color);
        return;
    }
    if (a.y == b.y) {
        area.Span(a.y, std::min(a.x, b.x), std::max(a.x, b.x), color);
        return;
    }
    DrawThinLine(area, a, b, color);
    area.Touch(std::min(a.x, b.x), std::min(a.y, b.y), std::int64_t{std::max(a.x, b.x)} + 1,
               std::int64_t{std::max(a.y, b.y)} + 1);
}

}  // namespace velm
