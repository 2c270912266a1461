// Flood fill by runs: a stack of places, one for each run of a row, in place of recursion.
#include <cstddef>
#include <vector>

#include "graphics/raster.h"

namespace velm {

namespace {

class Filler {
  public:
    Filler(PixelArea& area, std::uint32_t given, FloodMode mode, std::uint32_t color)
        : area_(area),
          given_(given),
          mode_(mode),
          color_(color),
          isDone_(static_cast<std::size_t>(area.Width()) *
                  static_cast<std::size_t>(area.Height())) {}

    void Run(PixelPoint seed) {
        waiting_.push_back(seed);
        while (!waiting_.empty()) {
            const PixelPoint place = waiting_.back();
            waiting_.pop_back();
            if (IsOpen(place.x, place.y)) FillRun(place);
        }
    }

  private:
    PixelArea& area_;
    std::uint32_t given_;
    FloodMode mode_;
    std::uint32_t color_;
    // Filled pixels may look like those that are still to be filled.
    std::vector<bool> isDone_;
    std::vector<PixelPoint> waiting_;

    std::size_t Index(std::int32_t x, std::int32_t y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(area_.Width()) +
               static_cast<std::size_t>(x);
    }
    bool IsOpen(std::int32_t x, std::int32_t y) const {
        const bool isGiven = area_.At(x, y) == given_;
        return isGiven == (mode_ == FloodMode::kWithinColor) && !isDone_[Index(x, y)];
    }
    void FillRun(PixelPoint place) {
        std::int32_t first = place.x;
        std::int32_t last = place.x;
        while (first > 0 && IsOpen(first - 1, place.y)) --first;
        while (last + 1 < area_.Width() && IsOpen(last + 1, place.y)) ++last;
        for (std::int32_t x = first; x <= last; ++x) isDone_[Index(x, place.y)] = true;
        area_.Span(place.y, first, last, color_);
        if (place.y > 0) NoteRuns(place.y - 1, first, last);
        if (place.y + 1 < area_.Height()) NoteRuns(place.y + 1, first, last);
    }
    // Keeps the end of each open run between two columns for later.
    void NoteRuns(std::int32_t y, std::int32_t first, std::int32_t last) {
        for (std::int32_t x = first; x <= last; ++x) {
            if (IsOpen(x, y) && (x == last || !IsOpen(x + 1, y))) waiting_.push_back({x, y});
        }
    }
};

}  // namespace

void FloodFill(PixelArea& area, PixelPoint seed, std::uint32_t given, FloodMode mode,
               std::uint32_t color) {
    if (!area.Holds(seed.x, seed.y)) return;
    Filler(area, given, mode, color).Run(seed);
}

}  // namespace velm
