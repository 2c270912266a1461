// An image in memory: what canvases, stamps and the turtle's pictures consist of. It knows nothing of
// files, nor of how anything is drawn.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace velm {

// A pixel is a colour 0x00BBGGRR, as the language has them. This one shows what lies below; a stamp of
// the image leaves its place as it is.
inline constexpr std::uint32_t kTransparentPixel = 0xFF000000;

struct Pixmap {
    Pixmap() = default;
    // Width and height in pixels, 0 or more.
    Pixmap(std::int32_t w, std::int32_t h, std::uint32_t color)
        : width(w),
          height(h),
          pixels(static_cast<std::size_t>(w) * static_cast<std::size_t>(h), color) {}

    std::uint32_t* Row(std::int32_t y) {
        return pixels.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(width);
    }
    const std::uint32_t* Row(std::int32_t y) const {
        return pixels.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(width);
    }
    // Of a place within the image.
    std::uint32_t At(std::int32_t x, std::int32_t y) const { return Row(y)[x]; }

    std::int32_t width = 0;
    std::int32_t height = 0;
    std::vector<std::uint32_t> pixels;  // row by row from the top
};

// A rectangle of pixels; right and bottom are the first column and row behind it.
struct PixelRect {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;
    std::int32_t bottom = 0;

    bool IsEmpty() const { return left >= right || top >= bottom; }
    bool operator==(const PixelRect&) const = default;
    // Grows until it holds the other one as well.
    void Include(const PixelRect& other) {
        if (IsEmpty()) {
            *this = other;
            return;
        }
        if (other.left < left) left = other.left;
        if (other.top < top) top = other.top;
        if (other.right > right) right = other.right;
        if (other.bottom > bottom) bottom = other.bottom;
    }
};

}  // namespace velm
