// The drawing surface of a window or picture object: the canvas, with the members by which scripts and
// property rows reach it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "graphics/canvas.h"
#include "objects/object.h"
#include "objects/properties.h"

namespace velm {

class ObjectCanvas : public Canvas {
  public:
    explicit ObjectCanvas(Object& owner);

    std::u16string ObjectName() const override;

    // The surface's own members: CurrentX, CurrentY, DrawWidth, ForeColor, BackColor, FillColor,
    // FillStyle, ScaleMode, ScaleWidth, ScaleHeight, AutoRedraw, DrawMode, DrawStyle, FontName and the
    // others of the font; the calls Cls and Refresh. Return whether the member is one of them; throw
    // Failure as a surface does.
    bool GetMember(std::u16string_view member, MemberValue& value);
    bool SetMember(std::u16string_view member, const MemberValue& value);
    bool CallMember(std::u16string_view member);

    // In which unit the surface is drawn on and what stands in it is placed; see scale_mode. Throws
    // Failure(5) for another number.
    void SetScaleMode(std::int32_t mode);
    std::int32_t scaleMode = scale_mode::kPixel;  // changed by SetScaleMode alone

  private:
    Object& owner_;
};

// The image or picture that an object shows: its canvas with everything drawn, or its picture.
Pixmap ImageOf(Object& object);
// The picture that was put on an object, without what was drawn.
const Pixmap& PictureOf(Object& object);
// Puts a picture on an object: the background of a surface, the picture of another control. An image
// that doesn't stretch it, and a surface that adjusts itself, take its size.
void ShowPicture(Object& object, Pixmap picture, std::u16string_view file);

// What a word says of a picture: `file`, `file,index,size` for icons, or an object's name.
struct PictureWord {
    PictureWord() = default;
    explicit PictureWord(const PropertyRecord& record);
    // Of a text that has been evaluated.
    explicit PictureWord(std::u16string_view text);

    std::u16string file;
    std::int32_t index = 0;
    std::u16string size;  // 小 or 大
};

// Loads a picture file, or takes another object's picture, and shows it on the object; an empty name
// takes the picture away. Reports what fails (201, 204, 502, 999). Returns whether it is shown.
bool LoadImage(Object& target, const PictureWord& word);
// The same of a text that has been evaluated.
bool LoadImage(Object& target, std::u16string_view text);

}  // namespace velm
