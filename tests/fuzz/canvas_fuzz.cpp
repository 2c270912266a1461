// Any operations on a canvas, with any coordinates, sizes and pens: no crash, and nothing painted that the
// canvas doesn't say has changed.
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "fuzz_input.h"
#include "graphics/canvas.h"
#include "graphics/turtle_pictures.h"

namespace {

using velm::fuzz::Require;

class Input {
  public:
    Input(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

    bool IsAtEnd() const { return size_ == 0; }
    template <class Number>
    Number Take() {
        Number number{};
        const std::size_t count = size_ < sizeof number ? size_ : sizeof number;
        std::memcpy(&number, data_, count);
        data_ += count;
        size_ -= count;
        return number;
    }
    // Near the canvas, or any bits at all: infinite, no number, tiny, huge.
    float Place() {
        if (Take<std::uint8_t>() % 4 == 0) return Take<float>();
        return static_cast<float>(Take<std::int16_t>()) / 256;
    }

  private:
    const std::uint8_t* data_;
    std::size_t size_;
};

// Arguments are taken one by one, in their order.
void Paint(velm::Canvas& canvas, Input& input) {
    const float x = input.Place();
    const float y = input.Place();
    const auto color = static_cast<std::int32_t>(input.Take<std::uint8_t>());
    switch (input.Take<std::uint8_t>() % 7) {
        case 0: canvas.Line(x, y, color); break;
        case 1: canvas.Box(x, y, color, color % 2 == 0); break;
        case 2: canvas.PSet(x, y, color); break;
        case 3: canvas.Ellipse(canvas.CurrentX, canvas.CurrentY, x, y); break;
        case 4: canvas.ExtFloodFill(x, y, color, color % 2); break;
        case 5: canvas.PaintPicture(velm::TurtlePicture(2015), 3, 4, x, y); break;
        default: canvas.PaintPicture(velm::TurtlePicture(2090), x, y, 40, 9); break;
    }
}

void Change(velm::Canvas& canvas, Input& input) {
    canvas.CurrentX = input.Place();
    canvas.CurrentY = input.Place();
    canvas.DrawWidth = input.Take<std::int16_t>();
    if (canvas.DrawWidth < 1) canvas.DrawWidth = 1;
    canvas.ForeColor = input.Take<std::int32_t>();
    canvas.FillColor = input.Take<std::int32_t>();
    canvas.FillStyle = static_cast<velm::FillStyles>(input.Take<std::uint8_t>() % 2);
    if (input.Take<std::uint8_t>() % 8 == 0) canvas.Cls();
    if (input.Take<std::uint8_t>() % 8 == 0) {
        canvas.Resize(input.Take<std::uint8_t>(), input.Take<std::int8_t>());
    }
}

void RequireChangesAreTold(const velm::Pixmap& before, const velm::Canvas& canvas,
                           const velm::PixelRect& changed) {
    const velm::Pixmap& after = canvas.Image();
    Require(changed.right <= canvas.Width() && changed.bottom <= canvas.Height());
    for (std::int32_t y = 0; y < after.height; ++y) {
        for (std::int32_t x = 0; x < after.width; ++x) {
            const bool isTold =
                x >= changed.left && x < changed.right && y >= changed.top && y < changed.bottom;
            Require(isTold || before.At(x, y) == after.At(x, y));
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    velm::Canvas canvas(u"a", true);
    canvas.Resize(61, 43);
    for (int step = 0; step < 100 && !input.IsAtEnd(); ++step) {
        Change(canvas, input);
        canvas.TakeChanges();
        const velm::Pixmap before = canvas.Image();
        Paint(canvas, input);
        RequireChangesAreTold(before, canvas, canvas.TakeChanges());
    }
    return 0;
}
