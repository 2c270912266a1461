// The window that tells how far a long file operation is.
#pragma once

#include <cstdint>
#include <string>

namespace velm {

// Told before each entry of an operation. The window comes up when the operation has lasted half a
// second, and goes behind the last entry, when the user cancels, or when nothing is told any more and the
// program comes back to its events. False when the user has cancelled.
bool ReportFileProgress(const std::u16string& name, std::int64_t done, std::int64_t total);

}  // namespace velm
