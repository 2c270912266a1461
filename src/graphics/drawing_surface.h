// What the drawing commands draw on, and the turtle as they see it: interfaces, so that a window, a
// picture control, or a surface that only notes what is drawn can stand behind them. The commands know
// nothing of pixels; a surface knows nothing of the turtle.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "data/pixmap.h"

namespace velm {

enum class FillStyles : std::int16_t { kSolid = 0, kTransparent = 1 };

// Coordinates are the surface's own scale units, pixels in the normal case; y grows downward. Colours
// are 0x00BBGGRR, or the negative number of a system colour.
class DrawingSurface {
  public:
    virtual ~DrawingSurface() = default;

    // The current point: where the next line or text begins.
    float CurrentX = 0;
    float CurrentY = 0;
    std::int16_t DrawWidth = 1;  // of the pen, from 1 on
    std::int32_t ForeColor = 0;
    std::int32_t FillColor = 0;
    FillStyles FillStyle = FillStyles::kTransparent;
    bool AutoRedraw = true;  // the image is kept and shown again by itself

    // The name by which scripts know the object.
    virtual std::u16string ObjectName() const = 0;
    virtual bool IsWindow() const = 0;
    virtual float ScaleWidth() const = 0;
    virtual float ScaleHeight() const = 0;
    // How many of its units a pixel is long.
    virtual float UnitsInPixel() const { return 1; }

    // A line from the current point, which moves to its end.
    virtual void Line(float x, float y, std::int32_t color) = 0;
    // A box from the current point to the opposite corner, where the current point is left; filled with
    // the colour, or as FillStyle says.
    virtual void Box(float x, float y, std::int32_t color, bool isFilled) = 0;
    // A dot of the pen's width, where the current point is left.
    virtual void PSet(float x, float y, std::int32_t color) = 0;
    // Text in ForeColor from the current point on. A CR goes to the left edge, one line further down; the
    // text itself ends so as well.
    virtual void Print(std::u16string_view text) = 0;
    // Of a text, or its widest line.
    virtual float TextWidth(std::u16string_view text) const = 0;
    // Erases everything but the background picture; the current point goes to 0,0.
    virtual void Cls() = 0;
    virtual void RemovePicture() = 0;
    // Shows now what was drawn.
    virtual void Refresh() = 0;
    // An image stretched to a size; a negative size mirrors it.
    virtual void PaintPicture(const Pixmap& picture, float x, float y, float width,
                              float height) = 0;
    // The colour of a pixel, -1 outside the surface.
    virtual std::int32_t Point(float x, float y) const = 0;
    // An ellipse in a box: outline in ForeColor, inside as FillStyle says.
    virtual void Ellipse(float left, float top, float right, float bottom) = 0;
    // Fills with FillColor from a point on: mode 0 up to the colour, 1 as long as it continues.
    virtual void ExtFloodFill(float x, float y, std::int32_t color, std::int32_t mode) = 0;
};

// The small picture that floats over the surface. Lengths as those of the surface.
class TurtleSprite {
  public:
    virtual ~TurtleSprite() = default;

    virtual float Width() const = 0;
    virtual float Height() const = 0;
    virtual void Move(float left, float top) = 0;
    virtual bool Visible() const = 0;
    virtual void SetVisible(bool isVisible) = 0;
    virtual const Pixmap& Picture() const = 0;
    virtual void SetPicture(const Pixmap& picture) = 0;
};

// The objects that drawing is about. Each may be absent, before a window is there and after it closed;
// any of them may have changed after events were pumped.
struct DrawingState {
    DrawingSurface* DrawTarget = nullptr;
    DrawingSurface* MainWindow = nullptr;
    TurtleSprite* TurtleObject = nullptr;
    bool DrawLock = false;  // no Refresh after drawing
};

extern DrawingState drawing;

}  // namespace velm
