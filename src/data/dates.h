// Dates and times as numbers and as text. A date is a double: whole days since 1899-12-30, the time
// as its fraction. The fraction always counts forward from midnight, also before that day: -1.25 is
// six o'clock on 1899-12-29. Dates reach from the year 100 to the year 9999, by the Gregorian
// calendar throughout. Pictures of 書式 are in data/date_pictures.h, eras in data/eras.h.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace velm {

inline constexpr std::int64_t kSecondsInDay = 86400;
inline constexpr int kMonthsInYear = 12;

/// A day of the calendar.
struct CivilDay {
    std::int32_t year;
    int month;  // 1 to 12
    int day;    // 1 to 31
};

/// A date taken apart at midnight.
struct Moment {
    std::int64_t day = 0;     // days since 1899-12-30
    std::int64_t second = 0;  // of the day; where a moment is built it may also carry over
};

/// The quotient rounded down, also below 0: how many whole units lie before a count of seconds or days.
std::int64_t FloorQuotient(std::int64_t number, std::int64_t divisor);
bool IsLeapYear(std::int32_t year);
/// 28 to 31; month is 1 to 12.
int DaysInMonth(std::int32_t year, int month);
/// Whether the calendar has this day, and the year is 100 to 9999.
bool IsCivilDay(const CivilDay& civil);
/// Days since 1899-12-30 of a day that the calendar has.
std::int64_t DayOfCivil(const CivilDay& civil);
CivilDay CivilOfDay(std::int64_t day);
/// 1 for Sunday to 7 for Saturday.
int WeekdayOfDay(std::int64_t day);
/// 木曜日 and so on; weekday is 1 to 7.
std::u16string_view WeekdayName(int weekday);
/// The day of a year, month and day that may lie beyond their ranges: month 13 is January of the next
/// year, day 0 the last of the month before. Nothing when it ends outside the years 100 to 9999.
std::optional<std::int64_t> DayWithCarry(std::int64_t year, std::int64_t month, std::int64_t day);
/// A year of two digits is 1930 to 2029; any other stays.
std::int32_t FullYear(std::int32_t year);

/// The date of a moment, its second carried into the day. Nothing outside the years 100 to 9999.
std::optional<double> DateOf(Moment moment);
/// A date to the nearest second. The date must be one (IsDate).
Moment MomentOf(double date);
/// Whether the number lies within the years 100 to 9999.
bool IsDate(double number);
/// The clock's time of now, to the second.
Moment MomentOfNow();

/// The date that a text tells, as people write it; nothing when it tells none. Width and letter case
/// don't matter. A date: 2004/5/6, 2004-05-06, 2004.5.6, 2004年5月6日, 5/6 and 5月6日 (of this year),
/// 2004/5 and 2004年5月 (its first day), 5/6/2004, 05-06-2004, 平成16年5月6日, H16.5.6, 令和元年5月1日,
/// May 6, 2004, 6-May-04; a weekday such as (木) or 木曜日 may stand behind it. A time: 7:08, 7:08:09,
/// 7時, 7時半, 7時8分9秒, with 午前, 午後, AM or PM before or behind. Or both, in either order. A time
/// alone has day 0. A plain number is no date. A year of an era may lie beyond the era's end.
std::optional<double> ParseDate(std::u16string_view text);

/// The general text: 2004/05/06 07:08:09, without the time at midnight, without the date on day 0.
std::u16string FormatDate(double date);
/// 2004/05/06.
std::u16string FormatDay(std::int64_t day);
/// 07:08:09.
std::u16string FormatTime(std::int64_t second);

}  // namespace velm
