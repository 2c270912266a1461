// Guards the process's stack: recursion of procedures, words and blocks is bounded by it. Before it
// runs out the script gets a report, and the run is stopped in order.
#pragma once

namespace velm {

// Raises the limit of the main thread's stack where the system lets it, and notes where it ends.
// Called once, first of all.
void InitStackGuard();

// Counts one level of nesting for as long as it lives. Exhausted tells that the stack is nearly used
// up; the report has then been made and StopFlag is set.
class NestingGuard {
  public:
    NestingGuard() : exhausted_(reinterpret_cast<char*>(this) < limit) {
        if (exhausted_) Report();
    }
    bool Exhausted() const { return exhausted_; }

    // The address below which the stack counts as used up (it grows downward).
    static char* limit;

  private:
    bool exhausted_;

    static void Report();
};

}  // namespace velm
