// Foreign windows where there is no way to them.
#include "platform/foreign_windows.h"

#include "data/failure.h"

namespace velm {

namespace {

ForeignWindows unreachable;
ForeignWindows* windowsInForce = &unreachable;

[[noreturn]] void FailUnreachable() { throw Failure(failure::kNoSuchMember); }

}  // namespace

void ForeignWindows::ActivateProcess(std::int32_t) { FailUnreachable(); }
void ForeignWindows::ActivateTitle(std::u16string_view) { FailUnreachable(); }
void ForeignWindows::TypeKeys(std::u16string_view) { FailUnreachable(); }
void ForeignWindows::TypeCharacters(std::u16string_view) { FailUnreachable(); }

ForeignWindows& TheForeignWindows() { return *windowsInForce; }

void SetForeignWindows(ForeignWindows* windows) {
    windowsInForce = windows != nullptr ? windows : &unreachable;
}

}  // namespace velm
