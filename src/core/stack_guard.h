// Guards the process's stack: recursion of procedures, words and blocks is bounded by it. Before it
// runs out the script gets a report, and the run is stopped in order. Words within words and sentences
// within sentences are bounded by their length as well: each level keeps a text of its own, so that
// 100,000 brackets in one another would take all memory long before the stack is used up.
#pragma once

#include <cstddef>

#include "platform/stack.h"

namespace velm {

// Raises the limit of the main thread's stack where the system lets it, and notes where it ends.
// Called once, first of all.
void InitStackGuard();

// Counts one level of nesting for as long as it lives. Exhausted tells that the stack is nearly used
// up; the report has then been made and StopFlag is set.
class NestingGuard {
  public:
    // units: the length of the word or sentence that is evaluated on this level.
    explicit NestingGuard(std::size_t units = 0) : units_(units) {
        nestedUnits += units;
        exhausted_ = StackPointer() < limit || nestedUnits > kMostUnits;
        if (exhausted_) Report();
    }
    NestingGuard(const NestingGuard&) = delete;
    NestingGuard& operator=(const NestingGuard&) = delete;
    ~NestingGuard() { nestedUnits -= units_; }
    bool Exhausted() const { return exhausted_; }

    // The address below which the stack counts as used up (it grows downward).
    static char* limit;

  private:
    static constexpr std::size_t kMostUnits = std::size_t{32} << 20;
    static std::size_t nestedUnits;

    std::size_t units_;
    bool exhausted_ = false;

    static void Report();
};

}  // namespace velm
