// Properties of buttons; see button_properties.h for their two forms.
#include "objects/button_properties.h"

#include <string_view>

#include "objects/create.h"
#include "objects/member_rows.h"

namespace velm {

namespace {

constexpr std::u16string_view kPlainArray = u"Command1";
constexpr std::u16string_view kPictureArray = u"Command2";

ObjectPtr ReplaceButton(const ObjectPtr& old, std::u16string_view array) {
    // Read first: it fails for a button that is unloaded, and has no window any more.
    const bool isVisible = old->GetBool(u"Visible");
    const WindowPtr window = old->Owner();
    bool isNew = false;
    ObjectPtr fresh = LoadElement(window, array, NextFreeElement(*window, array), isNew);
    fresh->Set(u"Caption", old->Get(u"Caption"));
    ReplaceControl(old, fresh);
    fresh->Set(u"Visible", isVisible);
    return fresh;
}

void SetBackground(Object& object, const PropertyRecord& record, PropertyResult& result) {
    SetCommonProperty(*ToPictureButton(object.shared_from_this()), record, result);
}

void SetPicture(Object& object, const PropertyRecord& record, PropertyResult& result) {
    if (record.Text.IsEmpty()) {
        ToPlainButton(object.shared_from_this());
        return;
    }
    SetBackground(object, record, result);
}

constexpr PropertyRow kButtonRows[] = {
    FlagRow<u"Default">(u"エンター"),
    FlagRow<u"Cancel">(u"キャンセル"),
    {u"背景", nullptr, SetBackground},
    {u"絵", nullptr, SetPicture},
};

}  // namespace

ObjectPtr ToPictureButton(const ObjectPtr& button) {
    if (button->Class() == ControlClass::kPictureButton) return button;
    return ReplaceButton(button, kPictureArray);
}

ObjectPtr ToPlainButton(const ObjectPtr& button) {
    if (button->Class() == ControlClass::kButton) return button;
    ObjectPtr plain = ReplaceButton(button, kPlainArray);
    plain->tag.clear();
    return plain;
}

const PropertyHandler kButtonProperties = {kButtonRows};

}  // namespace velm
