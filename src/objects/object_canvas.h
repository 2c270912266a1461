// The drawing surface of a window or picture object: the canvas, with the members by which scripts and
// property rows reach it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "graphics/canvas.h"
#include "objects/object.h"

namespace velm {

class ObjectCanvas : public Canvas {
  public:
    explicit ObjectCanvas(Object& owner);

    std::u16string ObjectName() const override;

    // The surface's own members: CurrentX, CurrentY, DrawWidth, ForeColor, BackColor, FillColor,
    // FillStyle, ScaleMode, ScaleWidth, ScaleHeight, AutoRedraw, DrawMode, DrawStyle, Font…, Picture,
    // Image, Cls, Refresh. Return whether the member is one of them; throw Failure as a surface does.
    bool GetMember(std::u16string_view member, MemberValue& value);
    bool SetMember(std::u16string_view member, const MemberValue& value);
    bool CallMember(std::u16string_view member);

    std::int32_t scaleMode = scale_mode::kPixel;
    std::int32_t drawMode = 13;  // the pen simply paints
    std::int32_t drawStyle = 0;  // unbroken lines

  private:
    Object& owner_;
};

// The image or picture that an object shows: its canvas with everything drawn, or its picture.
const Pixmap& ImageOf(Object& object);
// Puts a picture on an object: the background of a surface, the picture of another control.
void ShowPicture(Object& object, Pixmap picture, std::u16string_view file);
// Loads a picture file or takes another object's picture, as a word of the script says (`file`,
// `file,index,size` for icons, or an object's name), and shows it on the object. Reports what fails (201,
// 204, 999). Returns whether it is shown.
bool LoadImage(Object& target, std::u16string_view word);

}  // namespace velm
