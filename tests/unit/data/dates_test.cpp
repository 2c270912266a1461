// The calendar, the general text of dates, and every form in which a date may be written.
#include "data/dates.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/eras.h"
#include "data/utf.h"
#include "unit/fixed_clock.h"

namespace velm {
namespace {

constexpr std::int64_t kFirstDay = -657434;  // 0100-01-01
constexpr std::int64_t kLastDay = 2958465;   // 9999-12-31
constexpr double kLastSecond = 86399.0 / 86400.0;

struct Reading {
    std::u16string_view text;
    std::u16string_view general;  // empty: no date
};

void ExpectReadings(const std::vector<Reading>& readings) {
    for (const Reading& reading : readings) {
        const std::optional<double> date = ParseDate(reading.text);
        const std::u16string general = date ? FormatDate(*date) : u"";
        EXPECT_EQ(general, reading.general) << Utf16ToUtf8(reading.text);
    }
}

TEST(Calendar, LeapYears) {
    EXPECT_TRUE(IsLeapYear(2004));
    EXPECT_TRUE(IsLeapYear(2000));
    EXPECT_TRUE(IsLeapYear(400));
    EXPECT_FALSE(IsLeapYear(1900));
    EXPECT_FALSE(IsLeapYear(2100));
    EXPECT_FALSE(IsLeapYear(2003));
}

TEST(Calendar, MonthLengths) {
    const int lengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    for (int month = 1; month <= kMonthsInYear; ++month) {
        EXPECT_EQ(DaysInMonth(2003, month), lengths[month - 1]);
        EXPECT_EQ(DaysInMonth(2004, month), lengths[month - 1] + (month == 2 ? 1 : 0));
    }
}

TEST(Calendar, KnownDays) {
    EXPECT_EQ(DayOfCivil({1899, 12, 30}), 0);
    EXPECT_EQ(DayOfCivil({1899, 12, 31}), 1);
    EXPECT_EQ(DayOfCivil({1899, 12, 29}), -1);
    EXPECT_EQ(DayOfCivil({1970, 1, 1}), 25569);
    EXPECT_EQ(DayOfCivil({2000, 1, 1}), 36526);
    EXPECT_EQ(DayOfCivil({2004, 5, 6}), 38113);
    EXPECT_EQ(DayOfCivil({100, 1, 1}), kFirstDay);
    EXPECT_EQ(DayOfCivil({9999, 12, 31}), kLastDay);
}

TEST(Calendar, DaysThatThereAre) {
    EXPECT_TRUE(IsCivilDay({2004, 2, 29}));
    EXPECT_FALSE(IsCivilDay({2003, 2, 29}));
    EXPECT_FALSE(IsCivilDay({2004, 4, 31}));
    EXPECT_FALSE(IsCivilDay({2004, 0, 1}));
    EXPECT_FALSE(IsCivilDay({2004, 13, 1}));
    EXPECT_FALSE(IsCivilDay({2004, 1, 0}));
    EXPECT_TRUE(IsCivilDay({100, 1, 1}));
    EXPECT_FALSE(IsCivilDay({99, 12, 31}));
    EXPECT_TRUE(IsCivilDay({9999, 12, 31}));
    EXPECT_FALSE(IsCivilDay({10000, 1, 1}));
}

// Counts the days beside the library's calendar, month by month.
TEST(Calendar, EveryDayFrom1868To2100) {
    std::int64_t day = DayOfCivil({1868, 1, 1});
    int weekday = WeekdayOfDay(day);
    EXPECT_EQ(weekday, 4);  // a Wednesday
    for (std::int32_t year = 1868; year <= 2100; ++year) {
        for (int month = 1; month <= kMonthsInYear; ++month) {
            for (int date = 1; date <= DaysInMonth(year, month); ++date, ++day) {
                const CivilDay civil = CivilOfDay(day);
                ASSERT_EQ(civil.year, year);
                ASSERT_EQ(civil.month, month);
                ASSERT_EQ(civil.day, date);
                ASSERT_EQ(DayOfCivil(civil), day);
                ASSERT_EQ(WeekdayOfDay(day), weekday);
                weekday = weekday % 7 + 1;
                ASSERT_EQ(ParseDate(FormatDay(day)), static_cast<double>(day));
            }
        }
    }
}

TEST(Calendar, Weekdays) {
    EXPECT_EQ(WeekdayOfDay(DayOfCivil({2004, 5, 6})), 5);
    EXPECT_EQ(WeekdayOfDay(0), 7);
    EXPECT_EQ(WeekdayOfDay(1), 1);
    EXPECT_EQ(WeekdayOfDay(-1), 6);
    const std::u16string_view names[] = {u"日曜日", u"月曜日", u"火曜日", u"水曜日",
                                         u"木曜日", u"金曜日", u"土曜日"};
    for (int weekday = 1; weekday <= 7; ++weekday) {
        EXPECT_EQ(WeekdayName(weekday), names[weekday - 1]);
    }
}

TEST(Calendar, Carries) {
    EXPECT_EQ(DayWithCarry(2004, 13, 1), DayOfCivil({2005, 1, 1}));
    EXPECT_EQ(DayWithCarry(2004, 3, 0), DayOfCivil({2004, 2, 29}));
    EXPECT_EQ(DayWithCarry(2004, 0, 1), DayOfCivil({2003, 12, 1}));
    EXPECT_EQ(DayWithCarry(2004, -11, 15), DayOfCivil({2003, 1, 15}));
    EXPECT_EQ(DayWithCarry(2004, 1, 366), DayOfCivil({2004, 12, 31}));
    EXPECT_EQ(DayWithCarry(2004, 1, -30), DayOfCivil({2003, 12, 1}));
    EXPECT_EQ(DayWithCarry(9999, 12, 31), kLastDay);
    EXPECT_EQ(DayWithCarry(9999, 12, 32), std::nullopt);
    EXPECT_EQ(DayWithCarry(100, 1, 1), kFirstDay);
    EXPECT_EQ(DayWithCarry(100, 1, 0), std::nullopt);
    EXPECT_EQ(DayWithCarry(2000000000, 1, 1), std::nullopt);
    EXPECT_EQ(DayWithCarry(2004, 1, 2000000000), std::nullopt);
    EXPECT_EQ(DayWithCarry(2004, -2000000000, 1), std::nullopt);
}

TEST(Calendar, YearsOfTwoDigits) {
    EXPECT_EQ(FullYear(0), 2000);
    EXPECT_EQ(FullYear(29), 2029);
    EXPECT_EQ(FullYear(30), 1930);
    EXPECT_EQ(FullYear(99), 1999);
    EXPECT_EQ(FullYear(100), 100);
    EXPECT_EQ(FullYear(-1), -1);
}

TEST(Moments, TimeCountsForwardFromMidnight) {
    EXPECT_EQ(DateOf({1, 21600}), 1.25);
    EXPECT_EQ(DateOf({-1, 21600}), -1.25);
    EXPECT_EQ(MomentOf(-1.25).day, -1);
    EXPECT_EQ(MomentOf(-1.25).second, 21600);
    EXPECT_EQ(FormatDate(-1.25), u"1899/12/29 06:00:00");
    EXPECT_EQ(DateOf({0, 86400}), 1.0);
    EXPECT_EQ(DateOf({0, -1}), -1 - kLastSecond);
}

TEST(Moments, RoundToTheSecond) {
    EXPECT_EQ(MomentOf(38113 + 0.4 / 86400).second, 0);
    EXPECT_EQ(MomentOf(38113 + 0.6 / 86400).second, 1);
    EXPECT_EQ(FormatDate(38113 + 86399.7 / 86400), u"2004/05/07");
}

TEST(Moments, Range) {
    EXPECT_TRUE(IsDate(kFirstDay));
    EXPECT_TRUE(IsDate(kFirstDay - kLastSecond));  // the evening of the first day
    EXPECT_FALSE(IsDate(kFirstDay - 1.0));
    EXPECT_TRUE(IsDate(kLastDay + kLastSecond));
    EXPECT_FALSE(IsDate(kLastDay + 1.0));
    EXPECT_EQ(FormatDate(kLastDay + kLastSecond), u"9999/12/31 23:59:59");
    EXPECT_EQ(FormatDate(kFirstDay - kLastSecond), u"0100/01/01 23:59:59");
    EXPECT_FALSE(IsDate(kLastDay + 86399.9 / 86400));  // would round to the year 10000
    EXPECT_EQ(DateOf({kLastDay, 86400}), std::nullopt);
    EXPECT_EQ(DateOf({kFirstDay, -1}), std::nullopt);
}

TEST(Moments, EverySecondOfADayReadsBack) {
    for (std::int64_t second = 0; second < kSecondsInDay; ++second) {
        const std::optional<double> date = DateOf({38113, second});
        ASSERT_TRUE(date);
        ASSERT_EQ(MomentOf(*date).second, second);
        ASSERT_EQ(ParseDate(FormatDate(*date)), date);
    }
}

TEST(DateText, GeneralForm) {
    EXPECT_EQ(FormatDate(38113), u"2004/05/06");
    EXPECT_EQ(FormatDate(38113 + 25689.0 / 86400), u"2004/05/06 07:08:09");
    EXPECT_EQ(FormatDate(25689.0 / 86400), u"07:08:09");
    EXPECT_EQ(FormatDate(0), u"00:00:00");
    EXPECT_EQ(FormatDate(0.5), u"12:00:00");
    EXPECT_EQ(FormatDay(kFirstDay), u"0100/01/01");
    EXPECT_EQ(FormatTime(86399), u"23:59:59");
}

TEST(ParseDate, YearMonthDay) {
    ExpectReadings({
        {u"2004/5/6", u"2004/05/06"},
        {u"2004/05/06", u"2004/05/06"},
        {u"2004-05-06", u"2004/05/06"},
        {u"2004.5.6", u"2004/05/06"},
        {u"2004年5月6日", u"2004/05/06"},
        {u"2004年 5月 6日", u"2004/05/06"},
        {u"2004/ 5/ 6", u"2004/05/06"},
        {u"  2004/5/6  ", u"2004/05/06"},
        {u"西暦2004年5月6日", u"2004/05/06"},
        {u"2004/5", u"2004/05/01"},
        {u"2004年5月", u"2004/05/01"},
        {u"２００４／５／６", u"2004/05/06"},
        {u"２００４年５月６日", u"2004/05/06"},
        {u"2004/5-6", u""},
        {u"2004/5/6/7", u""},
        {u"2004年5月6", u""},
        {u"2004年", u""},
        {u"2004", u""},
        {u"5", u""},
        {u"38113", u""},
        {u"5.6", u""},
        {u"abc", u""},
        {u"", u""},
        {u"   ", u""},
    });
}

TEST(ParseDate, ShortYears) {
    ExpectReadings({
        {u"04/5/6", u"2004/05/06"},
        {u"29/12/31", u"2029/12/31"},
        {u"30/1/1", u"1930/01/01"},
        {u"99/1/1", u"1999/01/01"},
        {u"04年5月6日", u"2004/05/06"},
        {u"100/1/1", u"0100/01/01"},
        {u"0100/1/1", u"0100/01/01"},
        {u"0099/1/1", u""},
        {u"0004/1/1", u""},
        {u"9999/12/31", u"9999/12/31"},
        {u"10000/1/1", u""},
    });
}

TEST(ParseDate, YearBehind) {
    ExpectReadings({
        {u"05-06-2004", u"2004/05/06"},
        {u"5/6/2004", u"2004/05/06"},
        {u"25/12/2004", u"2004/12/25"},
        {u"12/31/04", u"2004/12/31"},
        {u"5/2004", u"2004/05/01"},
        {u"25/25/2004", u""},
        {u"2004/2004", u""},
        {u"5/2004/6", u""},
    });
}

TEST(ParseDate, DaysThatThereAreNot) {
    ExpectReadings({
        {u"2004/2/29", u"2004/02/29"},
        {u"2003/2/29", u""},
        {u"2000/2/29", u"2000/02/29"},
        {u"1900/2/29", u""},
        {u"2004/2/30", u""},
        {u"2004/4/31", u""},
        {u"2004/13/1", u""},
        {u"2004/0/1", u""},
        {u"2004/1/0", u""},
        {u"2004年2月30日", u""},
    });
}

TEST(ParseDate, ThisYear) {
    FixedClock clock;
    ExpectReadings({
        {u"5/6", u"2004/05/06"},
        {u"5-6", u"2004/05/06"},
        {u"5月6日", u"2004/05/06"},
        {u"2/29", u"2004/02/29"},
        {u"13/1", u""},
        {u"5月", u""},
        {u"May 6", u"2004/05/06"},
        {u"6 May", u"2004/05/06"},
        {u"6 May 7:08", u"2004/05/06 07:08:00"},
        {u"6 May 7時", u"2004/05/06 07:00:00"},
    });
    clock.now.year = 2003;
    ExpectReadings({{u"5/6", u"2003/05/06"}, {u"2/29", u""}});
}

TEST(ParseDate, Eras) {
    ExpectReadings({
        {u"平成16年5月6日", u"2004/05/06"},
        {u"平成１６年５月６日", u"2004/05/06"},
        {u"平成 16年 5月 6日", u"2004/05/06"},
        {u"平16.5.6", u"2004/05/06"},
        {u"H16.5.6", u"2004/05/06"},
        {u"h16/5/6", u"2004/05/06"},
        {u"H16-05-06", u"2004/05/06"},
        {u"㍻16年5月6日", u"2004/05/06"},
        {u"令和元年5月1日", u"2019/05/01"},
        {u"R1.5.1", u"2019/05/01"},
        {u"平成31年4月30日", u"2019/04/30"},
        {u"平成31年5月1日", u"2019/05/01"},
        {u"昭和64年1月7日", u"1989/01/07"},
        {u"S元.12.25", u"1926/12/25"},
        {u"大正元年7月30日", u"1912/07/30"},
        {u"T1.7.30", u"1912/07/30"},
        {u"明治45年7月29日", u"1912/07/29"},
        {u"M1.10.23", u"1868/10/23"},
        {u"平成16年5月", u"2004/05/01"},
        {u"平成0年5月6日", u""},
        {u"平成16年2月30日", u""},
        {u"平成16", u""},
        {u"H16.5", u""},
        {u"H1234.5.6", u""},
        {u"令和元年5月1日 午前0時1分", u"2019/05/01 00:01:00"},
    });
}

TEST(ParseDate, EnglishMonths) {
    ExpectReadings({
        {u"May 6, 2004", u"2004/05/06"},
        {u"may 6 2004", u"2004/05/06"},
        {u"6 May 2004", u"2004/05/06"},
        {u"6-May-04", u"2004/05/06"},
        {u"May 2004", u"2004/05/01"},
        {u"Sept 6, 2004", u""},
        {u"Sep. 6, 2004", u"2004/09/06"},
        {u"September 6, 2004", u"2004/09/06"},
        {u"Feb 30, 2004", u""},
        {u"May", u""},
    });
    const std::u16string_view names[] = {u"Jan", u"Feb", u"Mar", u"Apr", u"May", u"Jun",
                                         u"Jul", u"Aug", u"Sep", u"Oct", u"Nov", u"Dec"};
    for (int month = 1; month <= kMonthsInYear; ++month) {
        const std::u16string text = u"6 " + std::u16string(names[month - 1]) + u" 2004";
        EXPECT_EQ(ParseDate(text), static_cast<double>(DayOfCivil({2004, month, 6})));
    }
}

TEST(ParseDate, Times) {
    ExpectReadings({
        {u"7:08", u"07:08:00"},
        {u"07:08:09", u"07:08:09"},
        {u"7: 8: 9", u"07:08:09"},
        {u"７：０８", u"07:08:00"},
        {u"7時", u"07:00:00"},
        {u"7時半", u"07:30:00"},
        {u"7時8分", u"07:08:00"},
        {u"7時8分9秒", u"07:08:09"},
        {u"7時 8分 9秒", u"07:08:09"},
        {u"0:00", u"00:00:00"},
        {u"23:59:59", u"23:59:59"},
        {u"24:00", u""},
        {u"7:60", u""},
        {u"7:08:60", u""},
        {u"7時8", u""},
        {u"7分", u""},
        {u"7:", u""},
        {u"123:00", u""},
    });
}

TEST(ParseDate, HalvesOfTheDay) {
    ExpectReadings({
        {u"午前7:08", u"07:08:00"},
        {u"午後7:08", u"19:08:00"},
        {u"午後 7時8分9秒", u"19:08:09"},
        {u"7:08 PM", u"19:08:00"},
        {u"7:08:09pm", u"19:08:09"},
        {u"AM 7:08", u"07:08:00"},
        {u"7:08 a", u"07:08:00"},
        {u"7:08p", u"19:08:00"},
        {u"7 AM", u"07:00:00"},
        {u"午後7", u"19:00:00"},
        {u"７：０８　ＰＭ", u"19:08:00"},
        {u"午前0時", u"00:00:00"},
        {u"午前12時", u"00:00:00"},
        {u"午後0時", u"12:00:00"},
        {u"午後12時", u"12:00:00"},
        {u"12:30 AM", u"00:30:00"},
        {u"12:30 PM", u"12:30:00"},
        {u"午後13時", u"13:00:00"},
        {u"午前13時", u""},
        {u"午後24時", u""},
        {u"午前", u""},
        {u"PM", u""},
    });
}

TEST(ParseDate, DateAndTime) {
    ExpectReadings({
        {u"2004/5/6 7:08:09", u"2004/05/06 07:08:09"},
        {u"2004/5/6　７：０８", u"2004/05/06 07:08:00"},
        {u"2004年5月6日午後7時8分", u"2004/05/06 19:08:00"},
        {u"2004年5月6日7時8分", u"2004/05/06 07:08:00"},
        {u"7:08 2004/5/6", u"2004/05/06 07:08:00"},
        {u"2004-05-06T07:08:09", u"2004/05/06 07:08:09"},
        {u"2004/5/6, 7:08", u"2004/05/06 07:08:00"},
        {u"2004/5/6 0:00", u"2004/05/06"},
        {u"2004/5/6,", u""},
        {u"2004/5/6 7", u""},
        {u"2004/5/6 25:00", u""},
        {u"7:08 7:09", u""},
        {u"2004/5/6 2004/5/7", u""},
        {u"1899/12/29 6:00", u"1899/12/29 06:00:00"},
    });
    EXPECT_EQ(ParseDate(u"1899/12/29 6:00"), -1.25);
}

TEST(ParseDate, Weekdays) {
    ExpectReadings({
        {u"2004/5/6(木)", u"2004/05/06"},
        {u"2004年5月6日（木）", u"2004/05/06"},
        {u"2004年5月6日 木曜日", u"2004/05/06"},
        {u"2004年5月6日木曜", u"2004/05/06"},
        {u"2004/5/6 (木曜日) 7:08", u"2004/05/06 07:08:00"},
        {u"2004/5/6木", u""},
        {u"2004/5/6(木", u""},
        {u"2004/5/6(犬)", u""},
    });
}

TEST(ParseDate, LongTextIsNoDate) {
    EXPECT_EQ(ParseDate(std::u16string(1000000, u'1')), std::nullopt);
    EXPECT_EQ(ParseDate(std::u16string(1000000, u' ')), std::nullopt);
}

struct EraDay {
    CivilDay civil;
    char16_t letter;  // 0: before all eras
    std::int32_t year;
};

TEST(Eras, FirstAndLastDays) {
    const EraDay days[] = {
        {{1868, 1, 24}, 0, 0},    {{1868, 1, 25}, u'M', 1},   {{1912, 7, 29}, u'M', 45},
        {{1912, 7, 30}, u'T', 1}, {{1926, 12, 24}, u'T', 15}, {{1926, 12, 25}, u'S', 1},
        {{1989, 1, 7}, u'S', 64}, {{1989, 1, 8}, u'H', 1},    {{2019, 4, 30}, u'H', 31},
        {{2019, 5, 1}, u'R', 1},  {{2100, 1, 1}, u'R', 82},
    };
    for (const EraDay& expected : days) {
        const Era* era = EraOfDay(DayOfCivil(expected.civil));
        ASSERT_EQ(era != nullptr, expected.letter != 0);
        if (era == nullptr) continue;
        EXPECT_EQ(era->letter, expected.letter);
        EXPECT_EQ(expected.civil.year - era->firstYear + 1, expected.year);
    }
}

TEST(Eras, AtTheFrontOfAText) {
    std::size_t length = 0;
    ASSERT_NE(EraAtFront(u"平成16年", length), nullptr);
    EXPECT_EQ(length, 2U);
    ASSERT_NE(EraAtFront(u"平16", length), nullptr);
    EXPECT_EQ(length, 1U);
    ASSERT_NE(EraAtFront(u"s60", length), nullptr);
    EXPECT_EQ(EraAtFront(u"s60", length)->name, u"昭和");
    EXPECT_EQ(EraAtFront(u"\u32FF1", length)->name, u"令和");
    EXPECT_EQ(EraAtFront(u"2004", length), nullptr);
    EXPECT_EQ(EraAtFront(u"", length), nullptr);
}

}  // namespace
}  // namespace velm
