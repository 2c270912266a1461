// Telling failures that have no message of their own.
#include "commands/step_report.h"

#include <string>

#include "core/diagnostics.h"

namespace velm {

namespace {

constexpr int kUnknownError = 999;

}  // namespace

void ReportPendingFailure() {
    const std::u16string description = pendingFailure.description;
    RaiseError(kUnknownError, kIconWarning, description, u"", -1);
    pendingFailure.Clear();
}

}  // namespace velm
