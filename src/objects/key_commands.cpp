// The commands that reach other programs' windows: typing keys, and bringing one to the front.
#include <optional>

#include "core/eval.h"
#include "core/hooks.h"
#include "data/numbers.h"
#include "objects/object_commands.h"
#include "platform/foreign_windows.h"

namespace velm {

namespace {

// A number is a process, any other text a title.
void Activate(const Value& target) {
    if (const std::optional<double> number = target.Number()) {
        TheForeignWindows().ActivateProcess(ToInt32(*number));
    } else {
        TheForeignWindows().ActivateTitle(target.Text());
    }
}

// Brings the target of the sentence to the front. A target that isn't there ends the command: nothing
// may be typed into another window.
Value PrepareTyping(Statement& statement) {
    Value keys = EvalWord(statement.WoArg);
    const bool hasTarget = !statement.HeArg.IsEmpty();
    const Value target = hasTarget ? EvalWord(statement.HeArg) : Value();
    PumpEvents();
    if (hasTarget) Activate(target);
    return keys;
}

}  // namespace

void CmdTypeKeys(Statement& statement, Context& /*context*/) {
    TheForeignWindows().TypeKeys(PrepareTyping(statement).Text());
    PumpEvents();
}

void CmdTypeKeysSingly(Statement& statement, Context& /*context*/) {
    TheForeignWindows().TypeCharacters(PrepareTyping(statement).Text());
}

void CmdActivate(Statement& statement, Context& /*context*/) {
    Activate(EvalWord(statement.WoArg));
}

}  // namespace velm
