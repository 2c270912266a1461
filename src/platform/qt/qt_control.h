// Controls on a window: a surface with the widget of its class behind the toolkit's interface.
#pragma once

#include <memory>

#include "platform/qt/qt_surface.h"
#include "platform/toolkit.h"

namespace velm {

// What controls can stand in: windows, frames, picture controls.
class QtContainer {
  public:
    virtual ~QtContainer() = default;
    // The parent of the widgets; nullptr for a control that can hold none.
    virtual QWidget* ChildArea() = 0;
};

// What the controls of one class have of their own.
struct QtControlClass {
    QWidget* (*make)(QWidget* parent);
    // Tells its events; may be nullptr.
    void (*start)(QtSurface& surface);
    QtMemberTable members;
    bool hasCommonMembers = true;
    bool isContainer = false;
    QWidget* (*inner)(QWidget& widget) = nullptr;
    void (*setPicture)(QtSurface& surface, const Pixmap& picture) = nullptr;
    // Where the place of the widget isn't that of the control.
    PixelBox (*geometry)(const QtSurface& surface) = nullptr;
    void (*setGeometry)(QtSurface& surface, const PixelBox& box) = nullptr;
    // Colours that it has at first.
    std::int32_t foreColor = system_color::kButtonText;
    std::int32_t backColor = system_color::kButtonFace;
    QtMemberTable moreMembers = {};
};

class QtControl : public ToolkitControl, public QtContainer {
  public:
    QtControl(const QtControlClass& kind, QWidget* parent, ControlListener& listener);

    MemberValue Get(std::u16string_view member, const MemberArguments& arguments) override;
    void Set(std::u16string_view member, const MemberValue& value,
             const MemberArguments& arguments) override;
    MemberValue Call(std::u16string_view member, const MemberArguments& arguments) override;

    PixelBox Geometry() const override;
    void SetGeometry(const PixelBox& box) override;
    // Throws Failure(5) for a container that can hold no controls.
    void SetContainer(ToolkitControl& container) override;
    void SetPicture(const Pixmap& picture) override;
    void SetCanvas(CanvasImage* canvas) override;
    QWidget* ChildArea() override;

    QtSurface& Surface() { return surface_; }

  private:
    struct Parts {
        QWidget* widget;
        QWidget* inner;
    };

    const QtControlClass& kind_;
    QtSurface surface_;

    QtControl(const QtControlClass& kind, Parts parts, ControlListener& listener);
    static Parts Make(const QtControlClass& kind, QWidget* parent);
};

// A control of a class that needs no more than its members: not the window, picture and turtle. It is
// hidden and has no size yet. Throws Failure(5) for another class.
std::unique_ptr<ToolkitControl> MakeQtControl(ControlClass which, QWidget* parentOfControls,
                                              ControlListener& listener);

// Moves a widget into another one, where it keeps its place.
void MoveIntoContainer(QWidget& widget, ToolkitControl& container);

}  // namespace velm
