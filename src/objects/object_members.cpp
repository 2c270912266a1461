// The members of objects. Served here is what needs no toolkit: place and size, told in the unit of the
// container, the drawing surface, the tag.
#include <algorithm>
#include <cstddef>

#include "data/failure.h"
#include "data/numbers.h"
#include "data/width.h"
#include "objects/object.h"
#include "objects/object_canvas.h"
#include "objects/resolve.h"

namespace velm {

namespace {

constexpr double kPixelsInInch = 96;
constexpr double kPointsInInch = 72;
constexpr double kMillimetresInInch = 25.4;
constexpr double kLayoutUnitsInPixel = 15;

bool IsMember(std::u16string_view member, std::u16string_view name) {
    const auto lower = [](char16_t unit) {
        return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
    };
    return std::equal(member.begin(), member.end(), name.begin(), name.end(),
                      [lower](char16_t a, char16_t b) { return lower(a) == lower(b); });
}

// The side of a box that a member of place or size names; nullptr for any other member.
std::int32_t PixelBox::*SideOf(std::u16string_view member) {
    if (IsMember(member, u"Left")) return &PixelBox::left;
    if (IsMember(member, u"Top")) return &PixelBox::top;
    if (IsMember(member, u"Width")) return &PixelBox::width;
    if (IsMember(member, u"Height")) return &PixelBox::height;
    return nullptr;
}

// The ends of a line.
bool IsLineEnd(std::u16string_view member) {
    return member.size() == 2 &&
           (member[0] == u'X' || member[0] == u'x' || member[0] == u'Y' || member[0] == u'y') &&
           (member[1] == u'1' || member[1] == u'2');
}

bool IsHorizontal(std::u16string_view lineEnd) { return lineEnd[0] == u'X' || lineEnd[0] == u'x'; }

std::int32_t LineEnd(const PixelBox& box, std::u16string_view end) {
    const std::int32_t start = IsHorizontal(end) ? box.left : box.top;
    if (end[1] == u'1') return start;
    return start + (IsHorizontal(end) ? box.width : box.height);
}

// Moves one end; the other one stays.
void SetLineEnd(PixelBox& box, std::u16string_view end, std::int32_t place) {
    std::int32_t& start = IsHorizontal(end) ? box.left : box.top;
    std::int32_t& length = IsHorizontal(end) ? box.width : box.height;
    if (end[1] == u'1') {
        length += start - place;
        start = place;
    } else {
        length = place - start;
    }
}

}  // namespace

double UnitsInPixel(std::int32_t scaleMode) {
    switch (scaleMode) {
        case scale_mode::kLayoutUnit: return kLayoutUnitsInPixel;
        case scale_mode::kPoint: return kPointsInInch / kPixelsInInch;
        case scale_mode::kPixel: return 1;
        case scale_mode::kMillimetre: return kMillimetresInInch / kPixelsInInch;
        case scale_mode::kCentimetre: return kMillimetresInInch / 10 / kPixelsInInch;
        default: throw Failure(failure::kBadCall);
    }
}

double Object::OwnUnits() const {
    return UnitsInPixel(canvas_ != nullptr ? canvas_->scaleMode : scale_mode::kLayoutUnit);
}

double Object::ContainerUnits() const {
    const ObjectPtr container = Container();
    return container != nullptr ? container->OwnUnits() : kLayoutUnitsInPixel;
}

// Kept: a line has ends instead of a place, and a timer has none.
bool Object::HasPlace() const {
    switch (class_) {
        case ControlClass::kTimer:
        case ControlClass::kDialogs:
        case ControlClass::kPrinter:
        case ControlClass::kDrive:
        case ControlClass::kPlugin: return false;
        default: return true;
    }
}

std::int32_t Object::PixelsOf(const MemberValue& value) const {
    return ToInt32(MemberToNumber(value) / ContainerUnits());
}

bool Object::GetOwn(std::u16string_view member, MemberValue& value) {
    if (IsMember(member, u"Name")) {
        value = name_;
    } else if (IsMember(member, u"Index") && index_ >= 0) {
        value = static_cast<double>(index_);
    } else if (IsMember(member, u"Tag")) {
        value = tag;
    } else if (IsMember(member, u"Container") && Container() != nullptr) {
        value = ObjectKindName(*Container());
    } else if (IsMember(member, u"Visible") && !HasControl() && HasPlace()) {
        value = false;
    } else if (class_ == ControlClass::kLine && IsLineEnd(member)) {
        value = LineEnd(Geometry(), member) * ContainerUnits();
    } else if (const auto side = SideOf(member); side != nullptr && HasPlace()) {
        if (class_ == ControlClass::kLine) throw Failure(failure::kNoSuchMember);
        value = Geometry().*side * ContainerUnits();
    } else {
        return false;
    }
    return true;
}

void Object::SetSide(std::u16string_view member, const MemberValue& value) {
    if (class_ == ControlClass::kLine) throw Failure(failure::kNoSuchMember);
    const std::int32_t pixels = PixelsOf(value);
    PixelBox box = Geometry();
    box.*SideOf(member) = pixels;
    SetGeometry(box);
}

bool Object::SetOwn(std::u16string_view member, const MemberValue& value) {
    if (IsMember(member, u"Name") || IsMember(member, u"Index")) {
        throw Failure(failure::kNoSuchMember);
    }
    if (IsMember(member, u"Tag")) {
        tag = MemberToText(value);
    } else if (IsMember(member, u"Container") && !IsWindow()) {
        SetContainer(ResolveObject(MemberToText(value), true));
    } else if (IsMember(member, u"Visible") && isTemplate) {
        return true;
    } else if (class_ == ControlClass::kLine && IsLineEnd(member)) {
        PixelBox box = Geometry();
        SetLineEnd(box, member, PixelsOf(value));
        SetGeometry(box);
    } else if (SideOf(member) != nullptr && HasPlace()) {
        SetSide(member, value);
    } else {
        return false;
    }
    return true;
}

void Object::Move(const MemberArguments& arguments) {
    constexpr std::int32_t PixelBox::*kSides[] = {&PixelBox::left, &PixelBox::top, &PixelBox::width,
                                                  &PixelBox::height};
    if (arguments.empty() || arguments.size() > std::size(kSides)) {
        throw Failure(failure::kBadCall);
    }
    PixelBox box = Geometry();
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const bool isGiven = !std::holds_alternative<std::monostate>(arguments[i]);
        if (isGiven) box.*kSides[i] = PixelsOf(arguments[i]);
    }
    SetGeometry(box);
}

bool Object::CallOwn(std::u16string_view member, const MemberArguments& arguments) {
    if (!IsMember(member, u"Move") || !HasPlace() || class_ == ControlClass::kLine) return false;
    Move(arguments);
    return true;
}

MemberSurface& Object::Outside() {
    if (isUnloaded_) throw Failure(failure::kNoSuchElement);
    if (surface_ != nullptr) return *surface_;
    if (class_ == ControlClass::kDialogs) {
        surface_ = TheToolkit().MakeDialogs();
    } else if (class_ == ControlClass::kPrinter) {
        surface_ = TheToolkit().MakePrinter();
    } else {
        return Control();
    }
    return *surface_;
}

MemberValue Object::Get(std::u16string_view member, const MemberArguments& arguments) {
    if (isUnloaded_) throw Failure(failure::kNoSuchElement);
    MemberValue value;
    if (GetOwn(member, value)) return value;
    if (canvas_ != nullptr && canvas_->GetMember(member, value)) return value;
    return Outside().Get(member, arguments);
}

// What is set may run a script that unloads the object: it is held here.
void Object::Set(std::u16string_view member, const MemberValue& value,
                 const MemberArguments& arguments) {
    if (isUnloaded_) throw Failure(failure::kNoSuchElement);
    const ObjectPtr self = shared_from_this();
    if (SetOwn(member, value)) return;
    if (canvas_ != nullptr && canvas_->SetMember(member, value)) return;
    if (IsWindow() && IsMember(member, u"Visible") && MemberToBool(value)) {
        static_cast<Window&>(*this).isShown = true;
    }
    Outside().Set(member, value, arguments);
}

MemberValue Object::Call(std::u16string_view member, const MemberArguments& arguments) {
    if (isUnloaded_) throw Failure(failure::kNoSuchElement);
    const ObjectPtr self = shared_from_this();
    if (CallOwn(member, arguments)) return {};
    if (canvas_ != nullptr && canvas_->CallMember(member)) return {};
    if (IsWindow() && IsMember(member, u"Show")) static_cast<Window&>(*this).isShown = true;
    return Outside().Call(member, arguments);
}

}  // namespace velm
