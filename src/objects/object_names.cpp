// From an object to its name, and the tables of names.
#include <algorithm>

#include "core/diagnostics.h"
#include "data/numbers.h"
#include "data/width.h"
#include "objects/kinds.h"
#include "objects/resolve.h"

namespace velm {

namespace {

constexpr int kNameTaken = 90;
constexpr std::u16string_view kNameTakenText = u"%1は、すでに使われています。";
constexpr std::u16string_view kFirstWindow = u"ウィンドウ０";
constexpr std::u16string_view kDialogs = u"選択ウィンドウ";
constexpr std::u16string_view kPrinter = u"プリンタ";
constexpr std::u16string_view kDrive = u"ドライブ";
constexpr std::size_t kPrefixLength = 4;  // of the name of a run-time control

// Whether the object is known by a name in the window.
bool IsKnownBy(const Window& window, const ObjectPtr& object, std::u16string_view name) {
    const auto alias = window.CollObAlias.find(object->Identity());
    return alias != window.CollObAlias.end() && SameName(alias->second, name);
}

std::u16string WindowName(const Window& window) {
    if (!window.tag.empty()) return window.tag;
    if (!window.WindowType.empty()) return window.WindowType;
    return std::u16string(kFirstWindow);
}

std::u16string NameByClass(const Object& object) {
    switch (object.Class()) {
        case ControlClass::kWindow: return WindowName(static_cast<const Window&>(object));
        case ControlClass::kDialogs: return std::u16string(kDialogs);
        case ControlClass::kPrinter: return std::u16string(kPrinter);
        case ControlClass::kDrive: return std::u16string(kDrive);
        default: break;
    }
    std::u16string name(ShownWord(object.Class()));
    if (name.empty()) return name;
    if (object.Name().starts_with(u"Ex") && object.Index() < 0) {
        return name + object.Name().substr(std::min(kPrefixLength, object.Name().size()));
    }
    return name + FormatNumber(object.Index());
}

}  // namespace

void RegisterName(Window& window, const ObjectPtr& object, std::u16string_view name) {
    const std::u16string wide = ToFullWidth(name);
    const ObjectPtr before = FindControl(window, wide);
    window.CollObj.erase(ObjectKey(wide));
    if (object == nullptr) return;
    window.CollObj.emplace(ObjectKey(wide), object);
    if (before != nullptr && before != object && IsKnownBy(window, before, wide)) {
        RaiseMessage(kNameTakenText, kNameTaken, kIconStop, wide, u"", -1);
        return;
    }
    window.CollObAlias.emplace(object->Identity(), wide);
    window.CollObjType.emplace(object->Identity(), std::u16string());
}

void RegisterGlobalName(const ObjectPtr& object, std::u16string_view name) {
    objects.ObjectTable.emplace(ObjectKey(name), object);
}

std::u16string ObjectKindName(Object& object) {
    WindowPtr window = object.Owner();
    if (window == nullptr) window = objects.CurrentWindow;
    if (window != nullptr) {
        const auto alias = window->CollObAlias.find(object.Identity());
        if (alias != window->CollObAlias.end()) return alias->second;
    }
    return ToFullWidth(NameByClass(object));
}

std::u16string ObjectCount(Object& object) {
    const WindowPtr window = object.Owner();
    if (window == nullptr || object.IsWindow()) return {};
    for (const MakerRow& row : MakerRows()) {
        if (row.kind != MakerKind::kRunTime || !object.Name().starts_with(row.prefix)) continue;
        const auto count = window->Prop.find(std::u16string(row.propKey));
        return count == window->Prop.end() ? std::u16string() : count->second.Text();
    }
    // The template isn't counted.
    const auto count = std::count_if(
        window->Controls.begin(), window->Controls.end(), [&object](const ObjectPtr& control) {
            return control->Name() == object.Name() && control->Index() != 0;
        });
    return FormatNumber(static_cast<double>(count));
}

}  // namespace velm
