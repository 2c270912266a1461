// The calendar, and the general text of a date. Reading dates is in date_reader.cpp.
#include "data/dates.h"

#include <array>
#include <chrono>
#include <cmath>
#include <cstddef>

#include "platform/clock.h"

namespace velm {

namespace {

namespace chrono = std::chrono;

constexpr std::int32_t kFirstYear = 100;
constexpr std::int32_t kLastYear = 9999;
constexpr double kFirstDay = -657434;  // 0100-01-01
constexpr double kHalfSecond = 0.5 / static_cast<double>(kSecondsInDay);
constexpr double kDateLimit = 2958466 - kHalfSecond;  // what rounds to 10000-01-01 is beyond
constexpr std::int64_t kFarAway = 5000000;            // more days than all dates span
constexpr chrono::sys_days kDayZero = chrono::year(1899) / 12 / 30;

constexpr std::array<std::u16string_view, 7> kWeekdayNames = {
    u"日曜日", u"月曜日", u"火曜日", u"水曜日", u"木曜日", u"金曜日", u"土曜日"};

chrono::year_month_day ChronoDay(const CivilDay& civil) {
    return chrono::year(civil.year) / chrono::month(static_cast<unsigned>(civil.month)) /
           chrono::day(static_cast<unsigned>(civil.day));
}

chrono::sys_days ChronoDay(std::int64_t day) {
    return kDayZero + chrono::days(static_cast<chrono::days::rep>(day));
}

void AddPadded(std::u16string& text, std::int64_t number, int digits) {
    for (std::int64_t unit = digits == 4 ? 1000 : 10; unit > 0; unit /= 10) {
        text.push_back(static_cast<char16_t>(u'0' + number / unit % 10));
    }
}

}  // namespace

std::int64_t FloorQuotient(std::int64_t number, std::int64_t divisor) {
    return number / divisor - (number % divisor < 0 ? 1 : 0);
}

bool IsLeapYear(std::int32_t year) { return chrono::year(year).is_leap(); }

int DaysInMonth(std::int32_t year, int month) {
    const auto last =
        chrono::year(year) / chrono::month(static_cast<unsigned>(month)) / chrono::last;
    return static_cast<int>(static_cast<unsigned>(last.day()));
}

bool IsCivilDay(const CivilDay& civil) {
    return civil.year >= kFirstYear && civil.year <= kLastYear && civil.month >= 1 &&
           civil.month <= kMonthsInYear && civil.day >= 1 &&
           civil.day <= DaysInMonth(civil.year, civil.month);
}

std::int64_t DayOfCivil(const CivilDay& civil) {
    return (chrono::sys_days(ChronoDay(civil)) - kDayZero).count();
}

CivilDay CivilOfDay(std::int64_t day) {
    const chrono::year_month_day civil(ChronoDay(day));
    return {static_cast<int>(civil.year()), static_cast<int>(static_cast<unsigned>(civil.month())),
            static_cast<int>(static_cast<unsigned>(civil.day()))};
}

int WeekdayOfDay(std::int64_t day) {
    return static_cast<int>(chrono::weekday(ChronoDay(day)).c_encoding()) + 1;
}

std::u16string_view WeekdayName(int weekday) {
    return kWeekdayNames[static_cast<std::size_t>(weekday - 1)];
}

std::optional<std::int64_t> DayWithCarry(std::int64_t year, std::int64_t month, std::int64_t day) {
    const std::int64_t months = year * kMonthsInYear + month - 1;
    const std::int64_t carried = FloorQuotient(months, kMonthsInYear);
    if (std::abs(carried) >= static_cast<int>(chrono::year::max()) || std::abs(day) > kFarAway) {
        return std::nullopt;
    }
    const CivilDay first = {static_cast<std::int32_t>(carried),
                            static_cast<int>(months - carried * kMonthsInYear) + 1, 1};
    const std::int64_t result = DayOfCivil(first) + day - 1;
    if (!IsDate(static_cast<double>(result))) return std::nullopt;
    return result;
}

std::int32_t FullYear(std::int32_t year) {
    if (year < 0 || year > 99) return year;
    return year < 30 ? year + 2000 : year + 1900;
}

std::optional<double> DateOf(Moment moment) {
    const std::int64_t carry = FloorQuotient(moment.second, kSecondsInDay);
    const std::int64_t second = moment.second - carry * kSecondsInDay;
    const auto day = static_cast<double>(moment.day + carry);
    if (!IsDate(day)) return std::nullopt;
    const double fraction = static_cast<double>(second) / static_cast<double>(kSecondsInDay);
    return day < 0 ? day - fraction : day + fraction;
}

Moment MomentOf(double date) {
    double day = 0;
    const double fraction = std::abs(std::modf(date, &day));
    auto second =
        static_cast<std::int64_t>(std::nearbyint(fraction * static_cast<double>(kSecondsInDay)));
    auto wholeDay = static_cast<std::int64_t>(day);
    if (second == kSecondsInDay) {
        second = 0;
        ++wholeDay;
    }
    return {wholeDay, second};
}

bool IsDate(double number) { return number > kFirstDay - 1 && number < kDateLimit; }

Moment MomentOfNow() {
    const LocalTime now = TheClock().Now();
    return {DayOfCivil({now.year, now.month, now.day}),
            (now.hour * 60 + now.minute) * 60 + now.second};
}

std::u16string FormatDate(double date) {
    const Moment moment = MomentOf(date);
    if (moment.day == 0) return FormatTime(moment.second);
    std::u16string text = FormatDay(moment.day);
    if (moment.second != 0) text.append(u" ").append(FormatTime(moment.second));
    return text;
}

std::u16string FormatDay(std::int64_t day) {
    const CivilDay civil = CivilOfDay(day);
    std::u16string text;
    AddPadded(text, civil.year, 4);
    text.push_back(u'/');
    AddPadded(text, civil.month, 2);
    text.push_back(u'/');
    AddPadded(text, civil.day, 2);
    return text;
}

std::u16string FormatTime(std::int64_t second) {
    std::u16string text;
    AddPadded(text, second / 3600, 2);
    text.push_back(u':');
    AddPadded(text, second / 60 % 60, 2);
    text.push_back(u':');
    AddPadded(text, second % 60, 2);
    return text;
}

}  // namespace velm
