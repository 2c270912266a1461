// A clock that stands still where a test puts it; the machine's own is back at the end of its scope.
#pragma once

#include <cstdint>

#include "platform/clock.h"

namespace velm {

class FixedClock final : public Clock {
  public:
    FixedClock() { SetClock(this); }
    FixedClock(const FixedClock&) = delete;
    FixedClock& operator=(const FixedClock&) = delete;
    ~FixedClock() override { SetClock(nullptr); }

    LocalTime Now() override { return now; }
    std::uint64_t MillisecondsSinceStart() override { return sinceStart; }

    LocalTime now = {2004, 5, 6, 7, 8, 9, 250};
    std::uint64_t sinceStart = 0;
};

}  // namespace velm
