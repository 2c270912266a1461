// Making controls: elements of the control arrays of a window, and run-time controls.
#include "core/diagnostics.h"
#include "core/eval.h"
#include "data/failure.h"
#include "data/numbers.h"
#include "data/text.h"
#include "data/width.h"
#include "objects/create.h"
#include "objects/font_members.h"
#include "objects/kinds.h"
#include "objects/menus.h"
#include "objects/object_canvas.h"
#include "objects/resolve.h"

namespace velm {

namespace {

constexpr int kNoSuchKind = 103;
constexpr std::u16string_view kMenu = u"メニュー";
constexpr std::u16string_view kSubMenu = u"サブメニュー";

// A name as the maker reads it.
struct MakerWord {
    const MakerRow* row = nullptr;
    std::int32_t number = 0;
};

// Kept: a line is made by its word alone, and so is always the template.
bool IsMadeBy(std::u16string_view name, const MakerRow& row) {
    return row.kind == MakerKind::kLine ? name == kLineWord : name.starts_with(row.word);
}

MakerWord ReadMakerWord(std::u16string_view name) {
    for (const MakerRow& row : MakerRows()) {
        if (!IsMadeBy(name, row)) continue;
        const std::u16string_view rest = name.substr(row.word.size());
        MakerWord word = {&row, 0};
        if (row.kind == MakerKind::kTimer) {
            Attempt([&] { word.number = ToInt16(TextToNumber(rest)); });
        } else if (row.kind != MakerKind::kLater) {
            word.number = NumberBehind(rest, false);
        }
        return word;
    }
    return {};
}

// The kind word with the number's value: ボタン番 is ボタン2 where 番 is 2. A line's is the word that its
// name is looked up by.
std::u16string CanonicalName(const MakerWord& word) {
    const bool isLine = word.row->kind == MakerKind::kLine;
    const std::u16string_view kind = isLine ? ShownWord(ControlClass::kLine) : word.row->word;
    return std::u16string(kind) + FormatNumber(word.number);
}

// Kept: a shape is found by the word that made it and shown by another one. A line is found by both.
void EnterName(Window& window, const ObjectPtr& control, const MakerWord& word) {
    const std::u16string name = CanonicalName(word);
    RegisterName(window, control, name);
    if (word.row->kind == MakerKind::kLine) window.CollObj[ObjectKey(kLineWord)] = control;
    if (control->Class() != ControlClass::kShape) return;
    std::u16string& shown = window.CollObAlias[control->Identity()];
    if (!SameName(shown, name)) return;
    shown = ToFullWidth(ShownWord(ControlClass::kShape)) + ToFullWidth(FormatNumber(word.number));
}

// Loads a control in its template's look.
ObjectPtr Load(const WindowPtr& window, const ControlTemplate& look, std::u16string name,
               std::int32_t index) {
    auto control = std::make_shared<Object>(look.which, std::move(name), index, window);
    control->isTemplate = index == 0;
    control->Control();
    window->Controls.push_back(control);
    return control;
}

// The highest number that a run-time kind has had on the window. Kept: it only grows.
void NoteNumber(Window& window, const MakerRow& row, std::int32_t number) {
    Value& highest = window.Prop[std::u16string(row.propKey)];
    if (number > NumberOf(highest)) highest = Value::OfInteger(number);
}

ObjectPtr AddDynamicControl(const WindowPtr& window, const MakerRow& row, std::int32_t number,
                            bool& isNew) {
    std::u16string name = std::u16string(row.prefix) + FormatNumber(number);
    ObjectPtr control = window->RunTimeControl(name);
    isNew = control == nullptr;
    if (!isNew) return control;
    control = Load(window, *FindTemplate(row.array), std::move(name), -1);
    Attempt([&] { control->Set(u"OLEDropMode", 1.0); });
    Attempt([&] { control->Set(u"OLEDragMode", 1.0); });
    return control;
}

bool IsPlain(const TextStyle& font) {
    const TextStyle plain;
    return font.font == plain.font && font.size == plain.size && font.bold == plain.bold &&
           font.italic == plain.italic && font.underline == plain.underline &&
           font.strikeOut == plain.strikeOut;
}

// What every new control gets from its window: the drawing position as its place, font, colour.
void TakeWindowLook(Window& window, const ObjectPtr& control) {
    const ObjectCanvas& canvas = *window.Canvas();
    const double x = canvas.CurrentX;
    const double y = canvas.CurrentY;
    Attempt([&] { control->Call(u"Move", {x, y}); });
    if (!IsPlain(canvas.Font)) CopyFont(window, *control);
    if (control->Class() == ControlClass::kPicture) {
        Attempt([&] { control->Set(u"BackColor", static_cast<double>(canvas.BackColor())); });
    }
    if (control->Class() == ControlClass::kTimer) {
        Attempt([&] { control->Set(u"Enabled", false); });
    }
}

// The control of a maker's word, made or there already; nullptr when it can't be made.
ObjectPtr MakeByWord(const WindowPtr& window, const MakerWord& word) {
    if (word.row == nullptr || word.row->kind == MakerKind::kLater) return nullptr;
    bool isNew = false;
    ObjectPtr control;
    Attempt([&] {
        if (word.row->kind == MakerKind::kRunTime) NoteNumber(*window, *word.row, word.number);
        control = word.row->kind == MakerKind::kRunTime && !objects.HostedMode
                      ? AddDynamicControl(window, *word.row, word.number, isNew)
                      : LoadElement(window, word.row->array, word.number, isNew);
    });
    // Kept: what was there before stays where it is.
    if (isNew && control != nullptr) TakeWindowLook(*window, control);
    pendingFailure.Clear();
    return control;
}

void CopyBackColor(const WindowPtr& window, Object& control) {
    switch (control.Class()) {
        case ControlClass::kPicture:
        case ControlClass::kCheck:
        case ControlClass::kOption: break;
        default: return;
    }
    Attempt([&] { control.Set(u"BackColor", window->Get(u"BackColor")); });
}

// A control that is made while a picture or frame is the place of drawing goes into it, in a picture to
// the drawing position.
void MoveToDrawTarget(const ObjectPtr& control) {
    const ObjectPtr target = objects.DrawTarget;
    if (target == nullptr || target->IsWindow()) return;
    if (!Attempt([&] { control->SetContainer(target); }) || target->Canvas() == nullptr) return;
    const double x = target->Canvas()->CurrentX;
    const double y = target->Canvas()->CurrentY;
    Attempt([&] { control->Call(u"Move", {x, y}); });
}

bool MakeControlObject(std::u16string_view word, std::u16string_view alias, bool show) {
    const ObjectPtr control = NewObject(word, alias, true);
    if (control == nullptr) return false;
    if (show) Attempt([&] { control->Set(u"Visible", true); });
    if (const WindowPtr window = control->Owner(); window != nullptr && !objects.HostedMode) {
        CopyBackColor(window, *control);
    }
    MoveToDrawTarget(control);
    pendingFailure.Clear();
    if (!control->IsUnloaded()) objects.ThatObject = control;
    return true;
}

}  // namespace

ObjectPtr LoadElement(const WindowPtr& window, std::u16string_view array, std::int32_t index,
                      bool& isNew) {
    isNew = false;
    if (ObjectPtr there = window->Element(array, index)) return there;
    const ControlTemplate* look = FindTemplate(array);
    if (look == nullptr || index < 0) throw Failure(failure::kNoSuchElement);
    ObjectPtr control = Load(window, *look, std::u16string(array), index);
    isNew = index != 0;
    return control;
}

std::int32_t NextFreeElement(const Window& window, std::u16string_view array) {
    std::int32_t index = 1;
    while (window.Element(array, index) != nullptr) ++index;
    return index;
}

ObjectPtr NewObject(std::u16string_view name, std::u16string_view alias, bool doRegister) {
    const WindowPtr window = objects.CurrentWindow;
    const MakerWord word = ReadMakerWord(name);
    const ObjectPtr control = window != nullptr ? MakeByWord(window, word) : nullptr;
    if (control == nullptr) {
        RaiseError(kNoSuchKind, kIconStop, name, u"", -1);
        return nullptr;
    }
    objects.ThatObject = control;
    if (doRegister && alias.empty()) EnterName(*window, control, word);
    if (doRegister && !alias.empty()) RegisterName(*window, control, alias);
    return control;
}

bool MakeObject(std::u16string_view word, std::u16string_view alias, bool show) {
    if (SplitWindowName(word).kind >= 0) {
        const WindowPtr window = CreateWindowObject(word, alias, show);
        if (window != nullptr) SetCurrentWindow(window);
        return window != nullptr;
    }
    if (word.starts_with(kMenu)) {
        AddMenu(word.substr(kMenu.size()));
        return true;
    }
    if (word.starts_with(kSubMenu)) {
        AddSubMenu(word.substr(kSubMenu.size()));
        return true;
    }
    return MakeControlObject(word, alias, show);
}

}  // namespace velm
