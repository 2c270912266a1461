// The limit of the stack and the report when it is reached.
#include "core/stack_guard.h"

#include <algorithm>

#include "core/diagnostics.h"
#include "core/run_state.h"
#include "data/failure.h"
#include "platform/stack.h"

namespace velm {

char* NestingGuard::limit = nullptr;
std::size_t NestingGuard::nestedUnits = 0;

namespace {

constexpr std::size_t kWantedBytes = std::size_t{64} << 20;
// Kept free for the report itself, which may open a message box; a quarter of a small stack.
constexpr std::size_t kReserveBytes = std::size_t{1} << 20;
constexpr int kUnknownCause = 999;

}  // namespace

void InitStackGuard() {
    char* end = StackEnd(kWantedBytes);
    const auto size = static_cast<std::size_t>(StackPointer() - end);
    NestingGuard::limit = end + std::min(kReserveBytes, size / 4);
}

// While the report is up, events go on; their procedures come back here, and find no room either.
void NestingGuard::Report() {
    static bool isReporting = false;
    if (run.StopFlag || isReporting) return;
    isReporting = true;
    RaiseError(kUnknownCause, 16, FailureDescription(failure::kOutOfStack), u"", -1);
    isReporting = false;
    run.StopFlag = true;
    run.Exhausted = true;
}

}  // namespace velm
