// See toolkit.h.
#include "platform/toolkit.h"

#include "data/failure.h"

namespace velm {

namespace {

Toolkit* (*startToolkit)() = nullptr;
Toolkit* started = nullptr;
bool (*isWaitOver)() = nullptr;

}  // namespace

Toolkit& TheToolkit() {
    if (started == nullptr && startToolkit != nullptr) started = startToolkit();
    if (started == nullptr) throw Failure(failure::kNoSuchMember);
    return *started;
}

bool HasToolkit() { return started != nullptr; }

void SetToolkitStarter(Toolkit* (*starter)()) {
    startToolkit = starter;
    started = nullptr;
}

bool IsWaitOver() { return isWaitOver != nullptr && isWaitOver(); }

void SetWaitCheck(bool (*isOver)()) { isWaitOver = isOver; }

}  // namespace velm
