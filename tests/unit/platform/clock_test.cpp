// The machine's clock, and putting another in its place.
#include "platform/clock.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>

#include "data/dates.h"
#include "unit/fixed_clock.h"

namespace velm {
namespace {

constexpr std::int64_t kUnixDay = 25569;  // 1970-01-01

// Another time zone until the end of the scope.
class Zone {
  public:
    explicit Zone(const char* name) {
        if (const char* old = std::getenv("TZ")) old_ = old;
        setenv("TZ", name, 1);
    }
    Zone(const Zone&) = delete;
    Zone& operator=(const Zone&) = delete;
    ~Zone() {
        if (old_) {
            setenv("TZ", old_->c_str(), 1);
        } else {
            unsetenv("TZ");
        }
    }

  private:
    std::optional<std::string> old_;
};

std::int64_t SecondsOfClock() {
    const Moment now = MomentOfNow();
    return (now.day - kUnixDay) * kSecondsInDay + now.second;
}

std::int64_t SecondsOfSystem() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::seconds>(now).count();
}

TEST(Clock, ShowsTheTimeOfItsZone) {
    {
        const Zone zone("UTC0");
        const std::int64_t before = SecondsOfSystem();
        const std::int64_t seconds = SecondsOfClock();
        EXPECT_GE(seconds, before);
        EXPECT_LE(seconds, SecondsOfSystem());
    }
    const Zone zone("JST-9");
    const std::int64_t before = SecondsOfSystem() + 9 * 3600;
    const std::int64_t seconds = SecondsOfClock();
    EXPECT_GE(seconds, before);
    EXPECT_LE(seconds, SecondsOfSystem() + 9 * 3600);
}

TEST(Clock, FieldsAreInTheirRanges) {
    const LocalTime now = TheClock().Now();
    EXPECT_TRUE(IsCivilDay({now.year, now.month, now.day}));
    EXPECT_GE(now.year, 2024);
    EXPECT_LT(now.hour, 24);
    EXPECT_LT(now.minute, 60);
    EXPECT_LT(now.second, 60);
    EXPECT_LT(now.millisecond, 1000);
}

TEST(Clock, TimeSinceStartGrows) {
    const std::uint64_t first = TheClock().MillisecondsSinceStart();
    EXPECT_GT(first, 0U);
    EXPECT_GE(TheClock().MillisecondsSinceStart(), first);
}

TEST(Clock, AnotherInItsPlace) {
    {
        FixedClock clock;
        clock.sinceStart = 5;
        EXPECT_EQ(TheClock().Now().year, 2004);
        EXPECT_EQ(TheClock().MillisecondsSinceStart(), 5U);
    }
    EXPECT_NE(TheClock().Now().year, 2004);
}

}  // namespace
}  // namespace velm
