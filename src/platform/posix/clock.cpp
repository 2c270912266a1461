// The clocks of a POSIX system.
#include "platform/clock.h"

#include <time.h>

#include <algorithm>
#include <cstdlib>

namespace velm {

namespace {

constexpr long kNanosecondsInMillisecond = 1000000;
constexpr std::uint64_t kMillisecondsInSecond = 1000;

LocalTime LocalTimeOfParts(const tm& parts) {
    LocalTime local;
    local.year = parts.tm_year + 1900;
    local.month = parts.tm_mon + 1;
    local.day = parts.tm_mday;
    local.hour = parts.tm_hour;
    local.minute = parts.tm_min;
    local.second = std::min(parts.tm_sec, 59);
    return local;
}

// Looks at the zone again: a program that runs for days may outlive its zone's rules. Once a second is
// enough for the machine's zone, a file that each look would ask the system for.
void LookAtZone(time_t now) {
    static time_t lookedAt = -1;
    const bool ofMachine = std::getenv("TZ") == nullptr;
    if (ofMachine && lookedAt == now) return;
    tzset();
    lookedAt = ofMachine ? now : -1;
}

class SystemClock final : public Clock {
  public:
    LocalTime Now() override {
        timespec now = {};
        clock_gettime(CLOCK_REALTIME, &now);
        LookAtZone(now.tv_sec);
        tm parts = {};
        localtime_r(&now.tv_sec, &parts);
        LocalTime local = LocalTimeOfParts(parts);
        local.millisecond = static_cast<int>(now.tv_nsec / kNanosecondsInMillisecond);
        return local;
    }

    std::uint64_t MillisecondsSinceStart() override {
        timespec since = {};
        clock_gettime(CLOCK_BOOTTIME, &since);
        return static_cast<std::uint64_t>(since.tv_sec) * kMillisecondsInSecond +
               static_cast<std::uint64_t>(since.tv_nsec / kNanosecondsInMillisecond);
    }
};

SystemClock systemClock;
Clock* clockInForce = &systemClock;

}  // namespace

std::optional<LocalTime> LocalTimeOf(std::int64_t seconds) {
    const time_t moment = seconds;
    tm parts = {};
    tzset();
    if (localtime_r(&moment, &parts) == nullptr) return std::nullopt;
    return LocalTimeOfParts(parts);
}

Clock& TheClock() { return *clockInForce; }

void SetClock(Clock* clock) { clockInForce = clock != nullptr ? clock : &systemClock; }

}  // namespace velm
