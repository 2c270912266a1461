// The commands that act on an object as a whole: changing, closing, redrawing, moving it.
#include "objects/object_commands.h"

#include <cstdint>
#include <memory>
#include <string_view>

#include "core/eval.h"
#include "core/hooks.h"
#include "core/sentence.h"
#include "data/failure.h"
#include "data/text.h"
#include "graphics/turtle.h"
#include "objects/create.h"
#include "objects/object_canvas.h"
#include "objects/object_settings.h"
#include "objects/properties.h"
#include "objects/resolve.h"

namespace velm {

namespace {

constexpr std::u16string_view kActiveWindow = u"アクティブウィンドウ";

// The window that has the keyboard; the current one while another program has it.
ObjectPtr ActiveWindow() {
    if (!HasToolkit()) return objects.CurrentWindow;
    const ObjectPtr active = ResolveObject(kActiveWindow, true);
    return active ? active : objects.CurrentWindow;
}

// Moves the object itself, in the unit of its container.
void MoveObject(Object& object, double distance) {
    const WalkStep step = StepOf(distance);
    object.Set(u"Left", object.GetNumber(u"Left") + step.x);
    object.Set(u"Top", object.GetNumber(u"Top") + step.y);
    PumpEvents();
}

}  // namespace

void CmdChange(Statement& statement, Context& /*context*/) {
    SetProperty(statement.WoArg, statement.HeArg);
}

void CmdClose(Statement& statement, Context& /*context*/) {
    const ObjectPtr object =
        statement.WoArg.IsEmpty() ? ActiveWindow() : ResolveObject(statement.WoArg, false);
    if (!object) return;
    if (object->IsWindow()) {
        CloseWindow(std::static_pointer_cast<Window>(object), false);
    } else {
        RemoveObject(object);
    }
    PumpEvents();
}

void CmdKeepOpen(Statement& /*statement*/, Context& /*context*/) { objects.KeepOpen = true; }

void CmdRedraw(Statement& statement, Context& /*context*/) {
    const ObjectPtr object = ResolveObject(statement.WoArg, false);
    if (!object) return;
    if (object->Canvas() != nullptr) ShowPicture(*object, ImageOf(*object), object->pictureFile);
    object->Call(u"Refresh");
}

void CmdStartMove(Statement& statement, Context& /*context*/) {
    if (const ObjectPtr object = ResolveObject(statement.WoArg, false)) object->Call(u"StartMove");
}

void CmdKeepOnTop(Statement& statement, Context& /*context*/) {
    const ObjectPtr object = ResolveObject(statement.WoArg, false);
    if (!object || !object->IsWindow()) return;
    SetTopMost(static_cast<Window&>(*object), !Contains(statement.Verb, u"しない"));
}

void CmdGoBack(Statement& statement, Context& /*context*/) {
    const ObjectPtr object = ResolveObject(statement.WoArg, false);
    if (!object || statement.HeArg.Text() != u"元") return;
    switch (object->Class()) {
        case ControlClass::kText:
        case ControlClass::kMultiLineText:
        case ControlClass::kWrappedText: object->Call(u"Undo"); break;
        default: break;
    }
}

void CmdAdvance(Statement& statement, Context& /*context*/) {
    constexpr double kQuarter = 90;
    const Word distanceWord = GetWord(statement, u"だけ");
    const ObjectPtr object = ResolveObject(statement.WoArg, false);
    if (!object) return;
    const std::u16string& direction = statement.HeArg.Text();
    const bool isBack = direction == u"後ろ";
    const bool isRight = direction == u"右";
    const bool isLeft = direction == u"左";
    if (!isBack && !isRight && !isLeft && direction != u"前") return;
    const double distance = EvalNumber(distanceWord);
    if (isRight) Turn(-kQuarter);
    if (isLeft) Turn(kQuarter);
    MoveObject(*object, isBack ? -distance : distance);
}

}  // namespace velm
