// Settings sentences whose target is an object.
#include "objects/object_settings.h"

#include "core/settings_state.h"
#include "data/failure.h"
#include "graphics/turtle.h"
#include "objects/object_canvas.h"
#include "objects/resolve.h"
#include "platform/desktop.h"

namespace velm {

namespace {

constexpr std::int32_t kPointerOfFile = 99;

// The named object becomes the surface, and the turtle stands in it. A frame can't be drawn on, but new
// controls go into it.
void SetPlaceOfDrawing(const std::u16string& name) {
    const ObjectPtr object = ResolveObject(name, true);
    if (!object) return;
    const ControlClass which = object->Class();
    const bool isSurface = object->Canvas() != nullptr;
    if (!isSurface && which != ControlClass::kFrame) return;
    if (which == ControlClass::kPicture) object->Canvas()->SetScaleMode(scale_mode::kPixel);
    SetDrawTarget(object);
    if (isSurface && objects.TurtleObject) objects.TurtleObject->SetContainer(object);
}

void SetBackground() {
    if (!objects.CurrentWindow) return;
    if (ObjectCanvas* canvas = objects.CurrentWindow->Canvas()) {
        canvas->SetBackColor(settings.backColor);
    }
}

void SetTurtlePicture(const Value& word) {
    if (objects.TurtleObject) LoadImage(*objects.TurtleObject, word.Text());
}

// A pointer of the script's own is shown by each window, since the screen knows none.
void SetPointer() {
    if (settings.mousePointer != kPointerOfFile) {
        SetScreenPointer(settings.mousePointer);
        return;
    }
    for (const WindowPtr& window : objects.Windows) {
        if (!window->HasControl()) continue;
        window->Set(u"MouseIcon", settings.mousePointerFile);
        window->Set(u"MousePointer", double{kPointerOfFile});
    }
}

}  // namespace

void ApplyObjectSetting(std::u16string_view word, const Value& value) {
    if (ApplyTurtleSetting(word, value)) return;
    if (word == u"場所" || word == u"ばしょ") {
        SetPlaceOfDrawing(value.Text());
    } else if (word == u"背景" || word == u"はいけい") {
        SetBackground();
    } else if (word == u"形" || word == u"かたち") {
        SetTurtlePicture(value);
    } else if (word == u"マウスカーソル") {
        SetPointer();
    }
}

void SetScreenPointer(int pointer) { TheDesktop().SetScreenPointer(pointer); }

}  // namespace velm
