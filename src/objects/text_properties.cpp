// Properties of text boxes. Whether lines wrap can't change on a text that is there: the wrapping text
// is a control of another array, which takes the place of the first.
#include <cstddef>
#include <string>

#include "data/failure.h"
#include "data/text.h"
#include "objects/create.h"
#include "objects/text_rows.h"

namespace velm {

namespace {

constexpr std::u16string_view kPlainArray = u"Text2";
constexpr std::u16string_view kWrappedArray = u"Text3";

std::u16string TextLeftOfCaret(Object& object) {
    const std::u16string text = object.GetText(u"Text");
    return text.substr(0, static_cast<std::size_t>(MemberToInt(object.Get(u"SelStart"))));
}

// The text before its caret: a caret is cut to the text that is there.
void CopyText(Object& old, Object& fresh) {
    for (const std::u16string_view member : {u"Text", u"SelStart", u"ForeColor", u"IMEMode"}) {
        Attempt([&] { fresh.Set(member, old.Get(member)); });
    }
    pendingFailure.Clear();
}

void SwitchArray(const ObjectPtr& old, std::u16string_view array) {
    // Read first: it fails for a text that is unloaded, and has no window any more.
    const bool isVisible = old->GetBool(u"Visible");
    bool isNew = false;
    const ObjectPtr fresh = LoadElement(old->Owner(), array, old->Index(), isNew);
    CopyText(*old, *fresh);
    ReplaceControl(old, fresh);
    fresh->Set(u"Visible", isVisible);
}

void GetWrap(Object& object, const PropertyRecord& /*record*/, PropertyResult& result) {
    result.Text = Value::OfBool(object.Class() == ControlClass::kWrappedText);
}

void SetWrap(Object& object, const PropertyRecord& record, PropertyResult& /*result*/) {
    if (object.Class() == ControlClass::kText) return;
    const std::u16string_view wanted = record.Number != 0 ? kWrappedArray : kPlainArray;
    if (object.Name() != wanted) SwitchArray(object.shared_from_this(), wanted);
}

constexpr PropertyRow kWrapRows[] = {{u"折り返し", GetWrap, SetWrap}};
constexpr auto kTextRows = JoinRows(kEditRows, kWrapRows);

}  // namespace

void GetCaretLine(Object& object, const PropertyRecord& /*record*/, PropertyResult& result) {
    const std::size_t lines = CountOf(TextLeftOfCaret(object), kCrLf) + 1;
    result.Text = Value::OfInteger(static_cast<std::int64_t>(lines));
}

void GetCaretColumn(Object& object, const PropertyRecord& /*record*/, PropertyResult& result) {
    const std::u16string text = TextLeftOfCaret(object);
    const std::size_t end = text.rfind(kCrLf);
    const std::size_t start = end == kNotFound ? 0 : end + kCrLf.size();
    result.Text = Value::OfInteger(static_cast<std::int64_t>(text.size() - start));
}

const PropertyHandler kTextProperties = {kTextRows};

}  // namespace velm
