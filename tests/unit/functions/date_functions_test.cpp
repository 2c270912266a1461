// The functions that show the clock, with a clock that stands still.
#include "functions/date_functions.h"

#include <gtest/gtest.h>

#include <string>

#include "core/arguments.h"
#include "data/utf.h"
#include "unit/fixed_clock.h"

namespace velm {
namespace {

using Handler = void (*)(Value& result, Arguments& arguments);

std::u16string Call(Handler handler) {
    Arguments none(u"");
    Value result;
    handler(result, none);
    return result.Text();
}

TEST(ClockFunctions, DateAndTime) {
    const FixedClock clock;
    EXPECT_EQ(Call(FnNow), u"2004/05/06 07:08:09");
    EXPECT_EQ(Call(FnDate), u"05-06-2004");
    EXPECT_EQ(Call(FnTime), u"07:08:09");
}

TEST(ClockFunctions, NowAtMidnightIsADateAlone) {
    FixedClock clock;
    clock.now = {2004, 12, 31, 0, 0, 0, 999};
    EXPECT_EQ(Call(FnNow), u"2004/12/31");
    EXPECT_EQ(Call(FnDate), u"12-31-2004");
    EXPECT_EQ(Call(FnTime), u"00:00:00");
}

TEST(ClockFunctions, Fields) {
    const FixedClock clock;
    EXPECT_EQ(Call(FnYear), u"2004");
    EXPECT_EQ(Call(FnMonth), u"5");
    EXPECT_EQ(Call(FnDay), u"6");
    EXPECT_EQ(Call(FnHour), u"7");
    EXPECT_EQ(Call(FnMinute), u"8");
    EXPECT_EQ(Call(FnSecond), u"9");
    EXPECT_EQ(Call(FnWeekday), u"5");
    EXPECT_EQ(Call(FnWeekdayName), u"木曜日");
}

// A single holds 7 digits: past 65536 seconds its steps are 1/128.
TEST(ClockFunctions, Timer) {
    FixedClock clock;
    EXPECT_EQ(Call(FnTimer), u"25689.25");
    clock.now = {2004, 5, 6, 0, 0, 0, 0};
    EXPECT_EQ(Call(FnTimer), u"0");
    clock.now = {2004, 5, 6, 0, 0, 1, 5};
    EXPECT_EQ(Call(FnTimer), u"1.005");
    clock.now = {2004, 5, 6, 23, 59, 59, 500};
    EXPECT_EQ(Call(FnTimer), u"86399.5");
}

TEST(ClockFunctions, Uptime) {
    FixedClock clock;
    EXPECT_EQ(Call(FnUptime), u"0");
    clock.sinceStart = 12345678;
    EXPECT_EQ(Call(FnUptime), u"12345.678");
    // Beyond 32 bits of milliseconds: a machine that runs for a year.
    clock.sinceStart = 31536000001;
    EXPECT_EQ(Call(FnUptime), u"31536000.001");
}

}  // namespace
}  // namespace velm
