// Windows as records.
#include <algorithm>

#include "data/failure.h"
#include "graphics/colors.h"
#include "graphics/turtle_pictures.h"
#include "objects/create.h"
#include "objects/object.h"
#include "objects/object_canvas.h"

namespace velm {

namespace {

constexpr std::u16string_view kWindowName = u"VelmWindow";
constexpr std::u16string_view kTurtleArray = u"MainIcon";
constexpr std::u16string_view kCaption = u"Velmrun";

// What is drawn on a window has the colours of the controls beside it.
void TakeSystemColors() {
    for (std::int32_t number = 0; number < kSystemColorCount; ++number) {
        SetSystemColor(number, TheToolkit().SystemColor(number));
    }
}

}  // namespace

Window::Window() : Object(ControlClass::kWindow, std::u16string(kWindowName), -1, nullptr) {}

ObjectPtr Window::Element(std::u16string_view array, std::int32_t index) const {
    const auto found =
        std::find_if(Controls.begin(), Controls.end(), [&](const ObjectPtr& control) {
            return control->Index() == index && control->Name() == array;
        });
    return found == Controls.end() ? nullptr : *found;
}

ObjectPtr Window::RunTimeControl(std::u16string_view name) const { return Element(name, -1); }

ObjectPtr Window::MainIcon() const { return Element(kTurtleArray, 0); }

std::unique_ptr<ToolkitControl> Window::MakeControl() {
    TakeSystemColors();
    std::unique_ptr<ToolkitWindow> frame = TheToolkit().MakeWindow(*this);
    frame->Set(u"Caption", std::u16string(kCaption), {});
    frame->SetPicture(TurtlePicture(kTurtleFacingUp));
    frame->SetClientSize(canvas_->Width(), canvas_->Height());
    return frame;
}

// The controls go first: each takes itself out of the tables, while the frame they stand on is there.
void Window::Unload() {
    if (IsUnloaded()) return;
    const WindowPtr self = Self();
    CollObj.clear();
    CollObAlias.clear();
    CollObjType.clear();
    while (!Controls.empty()) {
        const ObjectPtr last = Controls.back();
        last->Unload();
    }
    MenuInfo.clear();
    openMenus.clear();
    std::erase(objects.Windows, self);
    std::erase_if(objects.ObjectTable, [&](const auto& entry) { return entry.second == self; });
    Object::Unload();
}

}  // namespace velm
