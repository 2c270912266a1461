// The commands that put items into objects and take them out, and empty or remove the objects.
#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "core/diagnostics.h"
#include "core/eval.h"
#include "core/sentence.h"
#include "data/brackets.h"
#include "data/failure.h"
#include "data/numbers.h"
#include "data/text.h"
#include "data/width.h"
#include "graphics/turtle.h"
#include "objects/create.h"
#include "objects/list_items.h"
#include "objects/object_canvas.h"
#include "objects/object_commands.h"
#include "objects/object_settings.h"
#include "objects/resolve.h"

namespace velm {

namespace {

constexpr int kNoObject = 105;
constexpr std::u16string_view kTray = u"タスクトレイ";
constexpr std::u16string_view kAllObjects = u"オブジェクト";
constexpr std::u16string_view kRowsEnding = u"の一覧";

bool IsList(const Object& object) {
    switch (object.Class()) {
        case ControlClass::kList:
        case ControlClass::kDropDown:
        case ControlClass::kEditableDropDown: return true;
        default: return false;
    }
}

bool HasSelectedText(const Object& object) {
    switch (object.Class()) {
        case ControlClass::kText:
        case ControlClass::kMultiLineText:
        case ControlClass::kWrappedText:
        case ControlClass::kDropDown:
        case ControlClass::kEditableDropDown:
        case ControlClass::kRichText: return true;
        default: return false;
    }
}

// The object of 追加: a control of a window that stands in front of it is looked for there alone.
ObjectPtr FindTarget(std::u16string_view word) {
    std::u16string_view front;
    std::u16string_view back;
    if (CutAtOf(word, front, back)) {
        const ObjectPtr window = ResolveObject(front, true);
        if (window && window->IsWindow()) {
            return FindControl(static_cast<Window&>(*window), back);
        }
    }
    return ResolveObject(word, true);
}

// Without such an object, リスト1の一覧 is リスト1; a name that is none at all is made or reported.
ObjectPtr TargetOf(std::u16string_view word) {
    if (ObjectPtr object = FindTarget(word)) return object;
    if (word.ends_with(kRowsEnding)) word.remove_suffix(kRowsEnding.size());
    return ResolveObject(word, false);
}

void ClearSurface(Object& object) {
    ObjectCanvas& canvas = *object.Canvas();
    ShowPicture(object, Pixmap(), u"");
    if (!object.IsWindow()) canvas.DrawWidth = 1;
    canvas.Cls();
    if (object.IsWindow()) canvas.Refresh();
}

// Removes what the script made on the window, the last one first. What can't go ends it.
void ClearAllObjects() {
    const WindowPtr window = objects.CurrentWindow;
    const auto isMade = [](const ObjectPtr& control) {
        return !control->isTemplate && control->Class() != ControlClass::kTurtle;
    };
    while (true) {
        const auto last = std::find_if(window->Controls.rbegin(), window->Controls.rend(), isMade);
        if (last == window->Controls.rend()) return;
        const ObjectPtr control = *last;
        RemoveObject(control);
        if (!control->IsUnloaded()) return;
    }
}

}  // namespace

void CmdRemove(Statement& statement, Context& /*context*/) {
    const std::u16string word = statement.WoArg.Text();
    std::u16string_view name = word;
    std::u16string_view item;
    const bool hasItem = CutAtOf(word, name, item);
    if (name == kTray) {
        RemoveTrayIcon();
        return;
    }
    const ObjectPtr object = ResolveObject(name, false);
    if (!object) return;
    if (!hasItem) {
        RemoveObject(object);
    } else if (IsList(*object)) {
        object->Call(u"RemoveItem", {static_cast<double>(ToInt16(EvalNumber(Word(item))))});
    }
}

void CmdAddItem(Statement& statement, Context& /*context*/) {
    GetWords(statement, u"で", u"として");
    const std::u16string target = statement.HeArg.Text();
    if (target == kTray) {
        AddTrayIcon(*objects.CurrentWindow);
        return;
    }
    const ObjectPtr object = TargetOf(target);
    if (!object) return;
    const Value text = EvalWord(statement.WoArg);
    for (const std::u16string& line : LinesOf(text.Text())) object->Call(u"AddItem", {line});
}

void CmdInsert(Statement& statement, Context& /*context*/) {
    const ObjectPtr object = ResolveObject(statement.HeArg, false);
    if (!object) return;
    if (!HasSelectedText(*object)) {
        RaiseError(kNoObject, kIconStop, u"", u"", -1);
        return;
    }
    object->Set(u"SelText", EvalWord(statement.WoArg).Text());
}

void ClearObject(Statement& statement) {
    if (statement.WoArg.IsEmpty()) return ClearDrawing();
    if (statement.WoArg.Text() == kAllObjects) return ClearAllObjects();
    const ObjectPtr object = ResolveObject(statement.WoArg, false);
    if (!object) return;
    if (object->Canvas() != nullptr) {
        ClearSurface(*object);
    } else {
        object->Call(u"Clear");
    }
}

bool SearchInObject(std::u16string_view name, const Value& text) {
    const ObjectPtr object = ResolveObject(name, true);
    if (!object || object->Class() != ControlClass::kList) return false;
    const std::u16string wanted = ToLower(text.Text());
    const std::vector<std::u16string> items = ItemsOf(*object);
    const auto found = std::find_if(items.begin(), items.end(), [&](const std::u16string& item) {
        return ToLower(item) == wanted;
    });
    const bool isThere = found != items.end();
    object->Set(u"ListIndex", isThere ? static_cast<double>(found - items.begin()) : -1.0);
    return true;
}

}  // namespace velm
