// Objects as records: what they are, where they stand, and their end. Their members are served in
// object_members.cpp.
#include "objects/object.h"

#include <algorithm>
#include <utility>

#include "data/failure.h"
#include "data/width.h"
#include "graphics/turtle_pictures.h"
#include "objects/events.h"
#include "objects/kinds.h"
#include "objects/object_canvas.h"

namespace velm {

namespace {

std::uint64_t NextIdentity() {
    static std::uint64_t last = 0;
    return ++last;
}

bool HasSurface(ControlClass which) {
    return which == ControlClass::kWindow || which == ControlClass::kPicture;
}

bool CanHoldControls(ControlClass which) {
    return HasSurface(which) || which == ControlClass::kFrame;
}

// Whether an object is another one or stands in it, at whatever depth.
bool IsWithin(ObjectPtr object, const Object* outer) {
    while (object != nullptr && object.get() != outer) object = object->Container();
    return object != nullptr;
}

}  // namespace

std::u16string ObjectKey(std::u16string_view name) { return FoldName(name); }

Object::Object(ControlClass which, std::u16string name, std::int32_t index, const WindowPtr& owner)
    : class_(which),
      name_(std::move(name)),
      index_(index),
      identity_(NextIdentity()),
      owner_(owner),
      container_(owner) {
    if (HasSurface(which)) canvas_ = std::make_unique<ObjectCanvas>(*this);
    if (const ControlTemplate* look = FindTemplate(name_)) {
        box_.width = look->width;
        box_.height = look->height;
    }
}

Object::~Object() = default;

WindowPtr Object::Owner() const {
    if (IsWindow()) {
        return std::static_pointer_cast<Window>(
            std::const_pointer_cast<Object>(shared_from_this()));
    }
    return owner_.lock();
}

ObjectPtr Object::Container() const { return IsWindow() ? nullptr : container_.lock(); }

void Object::SetContainer(const ObjectPtr& container) {
    if (IsWindow()) throw Failure(failure::kNoSuchMember);
    if (container == nullptr || container->IsUnloaded()) throw Failure(failure::kNothingThere);
    if (!CanHoldControls(container->Class()) || container->Owner() != Owner() ||
        IsWithin(container, this)) {
        throw Failure(failure::kBadCall);
    }
    if (HasControl() || container->HasControl()) Control().SetContainer(container->Control());
    container_ = container;
}

PixelBox Object::Geometry() {
    if (class_ == ControlClass::kTurtle && !HasControl()) return box_;
    return Control().Geometry();
}

void Object::SetGeometry(const PixelBox& box) {
    if (class_ != ControlClass::kTurtle || HasControl()) Control().SetGeometry(box);
    box_ = box;
}

const Pixmap& Object::Picture() const {
    static const Pixmap none;
    if (picture_) return *picture_;
    return class_ == ControlClass::kTurtle ? TurtlePicture(kTurtleFacingUp) : none;
}

void Object::SetPicture(const Pixmap& picture) {
    if (class_ != ControlClass::kTurtle || HasControl()) Control().SetPicture(picture);
    picture_ = picture;
    if (class_ != ControlClass::kTurtle) return;
    PixelBox box = Geometry();
    if (box.width == picture.width && box.height == picture.height) return;
    box.width = picture.width;
    box.height = picture.height;
    SetGeometry(box);
}

ToolkitControl& Object::Control() {
    if (isUnloaded_) throw Failure(failure::kNoSuchElement);
    if (control_ == nullptr) {
        control_ = MakeControl();
        if (canvas_ != nullptr) control_->SetCanvas(canvas_.get());
    }
    return *control_;
}

std::unique_ptr<ToolkitControl> Object::MakeControl() {
    const WindowPtr window = Owner();
    if (window == nullptr) throw Failure(failure::kNoSuchMember);
    ToolkitWindow& frame = window->Frame();
    std::unique_ptr<ToolkitControl> control = TheToolkit().MakeControl(class_, frame, *this);
    const ObjectPtr container = Container();
    if (container != nullptr && container != window) control->SetContainer(container->Control());
    if (HasPlace()) control->SetGeometry(box_);
    if (class_ == ControlClass::kTurtle) control->SetPicture(Picture());
    const ControlTemplate* look = FindTemplate(name_);
    if (look != nullptr && !look->caption.empty()) {
        control->Set(u"Caption", std::u16string(look->caption), {});
    }
    return control;
}

void Object::SetSurface(std::unique_ptr<MemberSurface> surface) { surface_ = std::move(surface); }

// Out of its window's tables, with what stands in it.
void Object::LeaveWindow() {
    const WindowPtr window = Owner();
    if (window == nullptr) return;
    const ObjectPtr self = shared_from_this();
    const std::vector<ObjectPtr> controls =
        CanHoldControls(class_) ? window->Controls : std::vector<ObjectPtr>();
    for (const ObjectPtr& control : controls) {
        if (control->Container() != self) continue;
        if (control->Class() == ControlClass::kTurtle) {
            Attempt([&] { control->SetContainer(window); });
        } else {
            control->Unload();
        }
    }
    std::erase(window->Controls, self);
    std::erase_if(window->CollObj, [&](const auto& entry) { return entry.second == self; });
    window->CollObAlias.erase(identity_);
    window->CollObjType.erase(identity_);
}

void Object::Unload() {
    if (isUnloaded_) return;
    const ObjectPtr self = shared_from_this();
    if (!IsWindow()) LeaveWindow();
    isUnloaded_ = true;
    ForgetObject(*this);
    if (control_ != nullptr && canvas_ != nullptr) control_->SetCanvas(nullptr);
    const std::unique_ptr<ToolkitControl> gone = std::move(control_);
    surface_.reset();
}

// A control that is still being made tells nothing. No failure may cross the toolkit that tells.
bool Object::OnEvent(const ControlEvent& event) {
    const ObjectPtr self = weak_from_this().lock();
    if (self == nullptr || control_ == nullptr) return false;
    bool answer = false;
    if (!Attempt([&] { answer = DispatchEvent(self, event); })) pendingFailure.Clear();
    return answer;
}

}  // namespace velm
