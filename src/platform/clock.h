// The machine's clocks: the local time of day, and the time since the machine started. Dates as
// scripts see them are made of it in data/dates.h.
#pragma once

#include <cstdint>
#include <optional>

namespace velm {

/// A moment of the local time zone, by the rules that hold there at that moment (summer time too).
struct LocalTime {
    int year = 1900;
    int month = 1;  // 1 to 12
    int day = 1;
    int hour = 0;
    int minute = 0;
    int second = 0;  // 0 to 59: a leap second counts as the second before it
    int millisecond = 0;
};

/// The local time of a moment, told in seconds since 1970-01-01 00:00:00 UTC. Nothing for a moment whose
/// year the system can't count.
std::optional<LocalTime> LocalTimeOf(std::int64_t seconds);

class Clock {
  public:
    virtual ~Clock() = default;

    virtual LocalTime Now() = 0;
    /// Milliseconds since the machine started, times of sleep included. Never goes back.
    virtual std::uint64_t MillisecondsSinceStart() = 0;
};

/// The clock in force: the machine's own, unless a test put another in its place.
Clock& TheClock();
/// Puts a clock in force; nullptr brings the machine's own back. The clock must outlive its use.
void SetClock(Clock* clock);

}  // namespace velm
