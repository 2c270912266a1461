// The limit of the stack and the report when it is reached.
#include "core/stack_guard.h"

#include "core/diagnostics.h"
#include "core/run_state.h"
#include "data/failure.h"
#include "platform/stack.h"

namespace velm {

char* NestingGuard::limit = nullptr;

namespace {

constexpr std::size_t kWantedBytes = std::size_t{64} << 20;
// Kept free for the report itself, which may open a message box.
constexpr std::size_t kReserveBytes = std::size_t{1} << 20;
constexpr int kUnknownCause = 999;

}  // namespace

void InitStackGuard() { NestingGuard::limit = StackEnd(kWantedBytes) + kReserveBytes; }

void NestingGuard::Report() {
    if (run.StopFlag) return;
    RaiseError(kUnknownCause, 16, FailureDescription(failure::kOutOfStack), u"", -1);
    run.StopFlag = true;
}

}  // namespace velm
