// The objects that a run is about, and the turtle as the drawing commands see it.
#include "data/failure.h"
#include "graphics/drawing_surface.h"
#include "objects/object.h"
#include "objects/object_canvas.h"

namespace velm {

ObjectState objects;

namespace {

// The turtle object as a picture over the surface. What fails of it is passed over: it isn't seen.
class ObjectTurtle : public TurtleSprite {
  public:
    float Width() const override { return SideInUnits(&PixelBox::width); }
    float Height() const override { return SideInUnits(&PixelBox::height); }
    void Move(float left, float top) override {
        Attempt([&] { Turtle().Call(u"Move", {double{left}, double{top}}); });
    }
    bool Visible() const override {
        bool isVisible = false;
        Attempt([&] { isVisible = Turtle().HasControl() && Turtle().GetBool(u"Visible"); });
        return isVisible;
    }
    void SetVisible(bool isVisible) override {
        if (isVisible || Turtle().HasControl()) Turtle().Set(u"Visible", isVisible);
    }
    const Pixmap& Picture() const override { return Turtle().Picture(); }
    void SetPicture(const Pixmap& picture) override {
        Attempt([&] { Turtle().SetPicture(picture); });
    }

  private:
    static Object& Turtle() { return *objects.TurtleObject; }
    static float SideInUnits(std::int32_t PixelBox::*side) {
        double length = 0;
        Attempt([&] { length = Turtle().Geometry().*side * Turtle().ContainerUnits(); });
        return static_cast<float>(length);
    }
};

ObjectTurtle objectTurtle;

DrawingSurface* SurfaceOf(const ObjectPtr& object) {
    return object != nullptr ? object->Canvas() : nullptr;
}

bool IsGone(const ObjectPtr& object) { return object != nullptr && object->IsUnloaded(); }

template <class Pointer>
void Drop(Pointer& held, const Object& object) {
    if (held.get() == &object) held = nullptr;
}

}  // namespace

void SetCurrentWindow(const WindowPtr& window) {
    if (IsGone(window)) return;
    objects.CurrentWindow = window;
    drawing.MainWindow = SurfaceOf(window);
}

void SetDrawTarget(const ObjectPtr& target) {
    if (IsGone(target)) return;
    objects.DrawTarget = target;
    drawing.DrawTarget = SurfaceOf(target);
}

void SetTurtleObject(const ObjectPtr& turtle) {
    if (IsGone(turtle)) return;
    objects.TurtleObject = turtle;
    drawing.TurtleObject = turtle != nullptr ? &objectTurtle : nullptr;
}

void ForgetObject(const Object& object) {
    Drop(objects.ThatObject, object);
    Drop(objects.ThisObject, object);
    Drop(objects.SavedThisObject, object);
    Drop(objects.Dialogs, object);
    Drop(objects.Printer, object);
    Drop(objects.FirstWindow, object);
    const WindowPtr next = objects.Windows.empty() ? nullptr : objects.Windows.front();
    if (objects.CurrentWindow.get() == &object) SetCurrentWindow(next);
    if (objects.DrawTarget.get() == &object) SetDrawTarget(objects.CurrentWindow);
    const bool isTurtle = objects.TurtleObject.get() == &object;
    if (isTurtle || (object.IsWindow() && objects.TurtleObject == nullptr)) {
        const WindowPtr window = objects.CurrentWindow;
        SetTurtleObject(window != nullptr ? window->MainIcon() : nullptr);
    }
}

}  // namespace velm
