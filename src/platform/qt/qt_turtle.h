// The turtle: a small picture with transparent places that floats over everything else in its container.
#pragma once

#include <memory>

#include "platform/qt/qt_surface.h"
#include "platform/toolkit.h"

namespace velm {

class QtTurtleView;

class QtTurtle : public ToolkitControl {
  public:
    QtTurtle(QWidget* parent, ControlListener& listener);
    ~QtTurtle() override;

    MemberValue Get(std::u16string_view member, const MemberArguments& arguments) override;
    void Set(std::u16string_view member, const MemberValue& value,
             const MemberArguments& arguments) override;
    MemberValue Call(std::u16string_view member, const MemberArguments& arguments) override;

    PixelBox Geometry() const override;
    void SetGeometry(const PixelBox& box) override;
    void SetContainer(ToolkitControl& container) override;
    // The size becomes that of the picture.
    void SetPicture(const Pixmap& picture) override;
    // Throws Failure(438): nothing is drawn on a turtle.
    void SetCanvas(CanvasImage* canvas) override;

  private:
    QtTurtleView* view_;  // the surface owns it
    std::unique_ptr<QtSurface> surface_;
};

}  // namespace velm
