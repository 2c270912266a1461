// The persistent image of a window or picture control, with the members that scripts draw by. What a
// toolkit must do is to show the image: it asks once a frame which part has changed. No toolkit here.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "data/pixmap.h"
#include "graphics/drawing_surface.h"
#include "graphics/pen_modes.h"
#include "graphics/raster.h"
#include "platform/text_raster.h"
#include "platform/toolkit.h"

namespace velm {

class Canvas : public DrawingSurface, public CanvasImage {
  public:
    Canvas(std::u16string name, bool isWindow) : name_(std::move(name)), isWindow_(isWindow) {}

    // Width and height in pixels; less than 0 is 0. What is cut off comes back when the canvas grows
    // again; new places have the background colour. Throws Failure(7) for more than 2^26 pixels; the
    // canvas is then as it was.
    void Resize(std::int32_t width, std::int32_t height) override;
    std::int32_t Width() const override { return width_; }
    std::int32_t Height() const override { return height_; }

    // The image; the canvas is its upper left part. It is made when it is first asked for or drawn on.
    const Pixmap& Image() const override { return Pixels(); }
    // What has changed since this was asked the last time; empty when nothing has.
    PixelRect TakeChanges() override;
    // Whether somebody asked to show the changes at once; the question clears it.
    bool TakeRefresh() override;

    std::int32_t BackColor() const { return backColor_; }
    // Erases all drawing, but leaves the current point.
    void SetBackColor(std::int32_t color);
    // An image that lies at 0,0 below everything that is drawn. Erases all drawing.
    void SetPicture(Pixmap picture);
    const Pixmap& Picture() const { return picture_; }
    TextStyle Font;
    // How lines, boxes, ellipses and dots meet what is there; see pen_modes.h. Text, pictures and flood
    // fills always cover it.
    std::int16_t DrawMode = draw_mode::kCopy;
    // Lines and boxes of width 1 may be broken; ellipses are drawn whole, or without an outline.
    std::int16_t DrawStyle = draw_style::kSolid;

    // How many units of the surface a pixel is long: coordinates and lengths are told in these units, the
    // pen's width stays in pixels. The current point stays where it is. units: above 0.
    void SetUnitsInPixel(double units);
    float UnitsInPixel() const override { return static_cast<float>(units_); }

    std::u16string ObjectName() const override { return name_; }
    bool IsWindow() const override { return isWindow_; }
    float ScaleWidth() const override { return static_cast<float>(width_ * units_); }
    float ScaleHeight() const override { return static_cast<float>(height_ * units_); }
    void Line(float x, float y, std::int32_t color) override;
    void Box(float x, float y, std::int32_t color, bool isFilled) override;
    void PSet(float x, float y, std::int32_t color) override;
    void Print(std::u16string_view text) override;
    float TextWidth(std::u16string_view text) const override;
    void Cls() override;
    void RemovePicture() override { SetPicture(Pixmap()); }
    void Refresh() override { isRefreshAsked_ = true; }
    void PaintPicture(const Pixmap& picture, float x, float y, float width, float height) override;
    std::int32_t Point(float x, float y) const override;
    void Ellipse(float left, float top, float right, float bottom) override;
    void ExtFloodFill(float x, float y, std::int32_t color, std::int32_t mode) override;

  private:
    std::u16string name_;
    bool isWindow_;
    std::int32_t width_ = 0;
    std::int32_t height_ = 0;
    std::int32_t backColor_ = 0xFFFFFF;
    // As large as the canvas ever was. Without pixels it is blank: the pixel below everywhere, with the
    // picture on it.
    mutable Pixmap image_;
    std::uint32_t blankPixel_ = 0xFFFFFF;
    Pixmap picture_;
    Pixmap
        stroke_;  // where a stroke is drawn by itself before it is mixed in; empty between strokes
    PixelRect changed_;
    double units_ = 1;
    bool isRefreshAsked_ = false;

    // Runs a raster operation on the visible part and notes what it changed.
    template <class Operation>
    void Paint(Operation&& operation);
    // The same for what the pen draws: DrawMode counts.
    template <class Operation>
    void Stroke(Operation&& operation);
    template <class Operation>
    PixelRect DrawByItself(Operation&& operation);
    template <class Keep>
    void MixIn(const PixelRect& part, Keep&& keep);
    // A line between places in pixels in the pen's mode and style.
    void StrokeLine(double fromX, double fromY, double toX, double toY, std::uint32_t color);
    void StrokeBox(PixelPoint one, PixelPoint other, std::uint32_t color);
    double InPixels(double length) const { return length / units_; }
    PixelPoint PixelAt(double x, double y) const {
        return {NearestPixel(InPixels(x)), NearestPixel(InPixels(y))};
    }
    bool IsBlank() const { return image_.pixels.empty(); }
    // The image with its pixels.
    Pixmap& Pixels() const;
    void Grow(std::int32_t width, std::int32_t height);
    void Erase();
    void MoveTo(float x, float y);
    void PrintLine(std::u16string_view line, TextRasterizer& fonts);
};

}  // namespace velm
