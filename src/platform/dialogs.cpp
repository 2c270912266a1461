// The face in force.
#include "platform/dialogs.h"

#include "data/failure.h"

namespace velm {

namespace {
Dialogs* dialogsInForce = nullptr;
}  // namespace

Dialogs& TheDialogs() {
    if (dialogsInForce == nullptr) throw Failure(failure::kNothingThere);
    return *dialogsInForce;
}

void SetDialogs(Dialogs* dialogs) { dialogsInForce = dialogs; }

}  // namespace velm
