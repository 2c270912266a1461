// The picture control: a surface to draw on, with or without a border, in which other controls can stand.
#pragma once

#include <memory>

#include "platform/qt/qt_control.h"
#include "platform/qt/qt_surface.h"
#include "platform/toolkit.h"

namespace velm {

class QtPictureFrame;

// Members beside the common ones: BorderStyle (0 none, 1 sunken) and AutoSize, which is only kept here: who
// puts pictures on the canvas sizes the control.
class QtPicture : public ToolkitControl, public QtContainer {
  public:
    QtPicture(QWidget* parent, ControlListener& listener);
    ~QtPicture() override;

    MemberValue Get(std::u16string_view member, const MemberArguments& arguments) override;
    void Set(std::u16string_view member, const MemberValue& value,
             const MemberArguments& arguments) override;
    MemberValue Call(std::u16string_view member, const MemberArguments& arguments) override;

    PixelBox Geometry() const override;
    void SetGeometry(const PixelBox& box) override;
    void SetContainer(ToolkitControl& container) override;
    // Throws Failure(438): pictures are drawn on the canvas.
    void SetPicture(const Pixmap& picture) override;
    void SetCanvas(CanvasImage* canvas) override;
    QWidget* ChildArea() override;

  private:
    QPointer<QtPictureFrame> frame_;  // the surface owns it, its parent may end it
    std::unique_ptr<QtSurface> surface_;

    QtPictureFrame& Frame() const;
};

}  // namespace velm
