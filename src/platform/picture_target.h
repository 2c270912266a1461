// What a picture can be painted on besides the canvases of windows: a printed page.
#pragma once

#include <cstdint>

#include "data/pixmap.h"

namespace velm {

class PictureTarget {
  public:
    virtual ~PictureTarget() = default;

    // Paints the picture with its upper left corner at a place, stretched to width and height; 0 as both
    // stands for the picture's own size. The printer object's units.
    virtual void PaintPicture(const Pixmap& picture, double left, double top, double width,
                              double height) = 0;
};

}  // namespace velm
