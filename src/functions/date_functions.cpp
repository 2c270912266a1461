// Dates and times: the clock, the fields of a date, steps and differences.
#include "functions/date_functions.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "core/arguments.h"
#include "core/eval.h"
#include "data/dates.h"
#include "data/failure.h"
#include "data/numbers.h"
#include "data/width.h"
#include "platform/clock.h"

namespace velm {

namespace {

constexpr std::int64_t kDaysInWeek = 7;
constexpr std::int64_t kMonthsInQuarter = 3;
constexpr std::int64_t kSecondsInMinute = 60;
constexpr std::int64_t kSecondsInHour = 3600;

enum class Interval { kYear, kQuarter, kMonth, kDay, kWeekOfDays, kWeek, kHour, kMinute, kSecond };

struct NamedInterval {
    std::u16string_view name;
    Interval interval;
};

// y and w name a day and a week by another count of the same days; only a difference tells w from d.
constexpr std::array<NamedInterval, 10> kIntervalCodes = {{{u"yyyy", Interval::kYear},
                                                           {u"q", Interval::kQuarter},
                                                           {u"m", Interval::kMonth},
                                                           {u"y", Interval::kDay},
                                                           {u"d", Interval::kDay},
                                                           {u"w", Interval::kWeekOfDays},
                                                           {u"ww", Interval::kWeek},
                                                           {u"h", Interval::kHour},
                                                           {u"n", Interval::kMinute},
                                                           {u"s", Interval::kSecond}}};

constexpr std::array<NamedInterval, 6> kUnitWords = {{{u"年", Interval::kYear},
                                                      {u"日", Interval::kDay},
                                                      {u"月", Interval::kMonth},
                                                      {u"時", Interval::kHour},
                                                      {u"分", Interval::kMinute},
                                                      {u"秒", Interval::kSecond}}};

constexpr std::u16string_view kWeekWord = u"週";

template <class Table>
std::optional<Interval> FindInterval(const Table& table, std::u16string_view name) {
    for (const NamedInterval& row : table) {
        if (row.name == name) return row.interval;
    }
    return std::nullopt;
}

Interval IntervalOrFailure(std::optional<Interval> interval) {
    if (!interval) throw Failure(failure::kBadCall);
    return *interval;
}

template <class Result>
Result OrFailure(const std::optional<Result>& found, int failureNumber) {
    if (!found) throw Failure(failureNumber);
    return *found;
}

Moment MomentOfText(std::u16string_view text) {
    return MomentOf(OrFailure(ParseDate(text), failure::kTypeMismatch));
}

std::u16string TextOfMoment(const Moment& moment) {
    return FormatDate(OrFailure(DateOf(moment), failure::kBadCall));
}

// Now without an argument. The whole argument text is one word, commas and all.
Moment MomentArgument(const Arguments& arguments) {
    if (arguments.Text().empty()) return MomentOfNow();
    const bool isOneWord = arguments.Count() == 1;
    const Value date = isOneWord ? EvalWord(arguments.Words()[0]) : EvalText(arguments.Text());
    return MomentOfText(date.Text());
}

std::int64_t SecondsOf(const Moment& moment) { return moment.day * kSecondsInDay + moment.second; }

// The same day of another month, or that month's last day where it is shorter.
Moment MonthsLater(const Moment& moment, std::int64_t months) {
    const CivilDay civil = CivilOfDay(moment.day);
    const auto first = DayWithCarry(civil.year, civil.month + months, 1);
    CivilDay landed = CivilOfDay(OrFailure(first, failure::kBadCall));
    landed.day = std::min(civil.day, DaysInMonth(landed.year, landed.month));
    return {DayOfCivil(landed), moment.second};
}

Moment Later(const Moment& moment, Interval interval, std::int64_t amount) {
    switch (interval) {
        case Interval::kYear: return MonthsLater(moment, amount * kMonthsInYear);
        case Interval::kQuarter: return MonthsLater(moment, amount * kMonthsInQuarter);
        case Interval::kMonth: return MonthsLater(moment, amount);
        case Interval::kDay:
        case Interval::kWeekOfDays: return {moment.day + amount, moment.second};
        case Interval::kWeek: return {moment.day + amount * kDaysInWeek, moment.second};
        case Interval::kHour: return {moment.day, moment.second + amount * kSecondsInHour};
        case Interval::kMinute: return {moment.day, moment.second + amount * kSecondsInMinute};
        case Interval::kSecond: return {moment.day, moment.second + amount};
    }
    return moment;
}

// Months, quarters or years since the year 0.
std::int64_t MonthCount(const Moment& moment, std::int64_t monthsInUnit) {
    const CivilDay civil = CivilOfDay(moment.day);
    return (civil.year * std::int64_t{kMonthsInYear} + civil.month - 1) / monthsInUnit;
}

// How many beginnings of the unit lie before the moment: a difference is one of two such counts.
std::int64_t CountBefore(const Moment& moment, Interval interval) {
    switch (interval) {
        case Interval::kYear: return MonthCount(moment, kMonthsInYear);
        case Interval::kQuarter: return MonthCount(moment, kMonthsInQuarter);
        case Interval::kMonth: return MonthCount(moment, 1);
        case Interval::kDay:
        case Interval::kWeekOfDays: return moment.day;
        // Day 1 is a Sunday.
        case Interval::kWeek: return FloorQuotient(moment.day - 1, kDaysInWeek);
        case Interval::kHour: return FloorQuotient(SecondsOf(moment), kSecondsInHour);
        case Interval::kMinute: return FloorQuotient(SecondsOf(moment), kSecondsInMinute);
        case Interval::kSecond: return SecondsOf(moment);
    }
    return 0;
}

bool HasFullWidthDigit(std::u16string_view text) {
    return std::any_of(text.begin(), text.end(),
                       [](char16_t unit) { return unit >= u'０' && unit <= u'９'; });
}

}  // namespace

void FnNow(Value& result, Arguments& arguments) {
    if (arguments.Text().empty()) {
        result = Value(TextOfMoment(MomentOfNow()));
        return;
    }
    std::array<std::int16_t, 6> fields = {};
    auto& [year, month, day, hour, minute, second] = fields;
    arguments.Split(year, month, day, hour, minute, second);
    const auto date = DayWithCarry(FullYear(year), month, day);
    std::u16string text = FormatDay(OrFailure(date, failure::kBadCall));
    // Kept: the time is a text of its own. Hours beyond a day show the day that they carry to.
    const std::int64_t time = hour * kSecondsInHour + minute * kSecondsInMinute + second;
    text.append(u" ").append(TextOfMoment({0, time}));
    result = Value(std::move(text));
}

void FnDate(Value& result, Arguments&) {
    const std::u16string day = FormatDay(MomentOfNow().day);
    result = Value(day.substr(5, 2) + u"-" + day.substr(8, 2) + u"-" + day.substr(0, 4));
}

void FnTime(Value& result, Arguments&) { result = Value(FormatTime(MomentOfNow().second)); }

void FnTimer(Value& result, Arguments&) {
    const LocalTime now = TheClock().Now();
    const int seconds = (now.hour * 60 + now.minute) * 60 + now.second;
    result = Value(FormatSingle(static_cast<float>(seconds + now.millisecond / 1000.0)));
}

void FnYear(Value& result, Arguments& arguments) {
    result = Value::OfInteger(CivilOfDay(MomentArgument(arguments).day).year);
}

void FnMonth(Value& result, Arguments& arguments) {
    result = Value::OfInteger(CivilOfDay(MomentArgument(arguments).day).month);
}

void FnDay(Value& result, Arguments& arguments) {
    result = Value::OfInteger(CivilOfDay(MomentArgument(arguments).day).day);
}

void FnHour(Value& result, Arguments& arguments) {
    result = Value::OfInteger(MomentArgument(arguments).second / kSecondsInHour);
}

void FnMinute(Value& result, Arguments& arguments) {
    const std::int64_t minutes = MomentArgument(arguments).second / kSecondsInMinute;
    result = Value::OfInteger(minutes % kSecondsInMinute);
}

void FnSecond(Value& result, Arguments& arguments) {
    result = Value::OfInteger(MomentArgument(arguments).second % kSecondsInMinute);
}

void FnWeekday(Value& result, Arguments& arguments) {
    result = Value::OfInteger(WeekdayOfDay(MomentArgument(arguments).day));
}

void FnWeekdayName(Value& result, Arguments& arguments) {
    result = Value(WeekdayName(WeekdayOfDay(MomentArgument(arguments).day)));
}

void FnDateAdd(Value& result, Arguments& arguments) {
    std::u16string unit;
    double amount = 0;
    std::u16string date;
    arguments.Split(unit, amount, date);
    std::optional<Interval> interval = FindInterval(kUnitWords, unit);
    if (!interval) interval = FindInterval(kIntervalCodes, ToLower(unit));
    // Kept: 週 is no unit here, though 日付差 takes it.
    const Interval step = IntervalOrFailure(interval);
    const Moment moment = Later(MomentOfText(date), step, ToInt32(amount));
    result = Value(TextOfMoment(moment));
}

void FnDateDifference(Value& result, Arguments& arguments) {
    std::u16string unit;
    std::u16string from;
    std::u16string to;
    arguments.Split(unit, from, to);
    std::optional<Interval> interval = FindInterval(kUnitWords, unit);
    if (!interval && unit == kWeekWord) interval = Interval::kWeek;
    // Kept: a code counts here only in small letters.
    if (!interval) interval = FindInterval(kIntervalCodes, unit);
    const Interval step = IntervalOrFailure(interval);
    const std::int64_t begin = CountBefore(MomentOfText(from), step);
    const std::int64_t difference = CountBefore(MomentOfText(to), step) - begin;
    const bool inWeeks = step == Interval::kWeekOfDays;
    result = Value::OfInteger(inWeeks ? difference / kDaysInWeek : difference);
}

void FnDatePart(Value& result, Arguments& arguments) {
    std::u16string text;
    arguments.Split(text);
    result = Value(FormatDay(MomentOfText(ToHalfWidth(text)).day));
}

void FnTimePart(Value& result, Arguments& arguments) {
    std::u16string text;
    arguments.Split(text);
    // Kept: only 日付形式 takes full-width digits.
    if (HasFullWidthDigit(text)) throw Failure(failure::kTypeMismatch);
    result = Value(FormatTime(MomentOfText(text).second));
}

void FnUptime(Value& result, Arguments&) {
    result = Value::OfNumber(static_cast<double>(TheClock().MillisecondsSinceStart()) / 1000);
}

}  // namespace velm
