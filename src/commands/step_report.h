// The report of a step that failed in a way which no message of its own is meant for. Called by the
// commands on variables; other commands tell their failures by the messages of their subject.
#pragma once

#include <utility>

#include "data/failure.h"

namespace velm {

// Tells the pending failure (error 999 with its description) and clears it.
void ReportPendingFailure();

// Runs one step of a command, and tells its failure. Returns whether the step ran to its end.
template <class Step>
bool RunReported(Step&& step) {
    if (Attempt(std::forward<Step>(step))) return true;
    ReportPendingFailure();
    return false;
}

}  // namespace velm
