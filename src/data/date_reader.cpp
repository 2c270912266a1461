// Reading a date as people write it. The text is narrowed and lower-cased first; then a cursor walks
// over it, each form tried from where it stands and given up as a whole where it doesn't fit.
#include <algorithm>
#include <array>
#include <cstddef>
#include <string>

#include "data/dates.h"
#include "data/eras.h"
#include "data/width.h"

namespace velm {

namespace {

constexpr std::size_t kYearDigits = 4;
constexpr std::size_t kShortDigits = 2;
constexpr std::size_t kEraDigits = 3;
constexpr std::u16string_view kWeekdayInitials = u"日月火水木金土";
constexpr std::array<std::u16string_view, 12> kMonthNames = {
    u"january", u"february", u"march",     u"april",   u"may",      u"june",
    u"july",    u"august",   u"september", u"october", u"november", u"december"};
constexpr std::size_t kShortMonthName = 3;

// Digits as written: how many there are tells a year from a day.
struct Digits {
    std::int32_t value = 0;
    std::size_t count = 0;
};

enum class Half { kNone, kMorning, kAfternoon };

struct HalfMark {
    std::u16string_view text;
    Half half;
};

// The longer mark stands before the one that it begins with.
constexpr std::array<HalfMark, 6> kHalfMarks = {{{u"午前", Half::kMorning},
                                                 {u"午後", Half::kAfternoon},
                                                 {u"am", Half::kMorning},
                                                 {u"pm", Half::kAfternoon},
                                                 {u"a", Half::kMorning},
                                                 {u"p", Half::kAfternoon}}};

bool IsDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }

bool IsLetter(char16_t unit) { return unit >= u'a' && unit <= u'z'; }

std::int32_t FullYear(const Digits& digits) {
    return digits.count <= kShortDigits ? velm::FullYear(digits.value) : digits.value;
}

class DateReader {
  public:
    explicit DateReader(std::u16string_view text) : text_(text) {}

    std::optional<double> Read() {
        SkipBlanks();
        if (ReadTime()) {
            hasTime_ = true;
            SkipBlanks();
        }
        if (!hasTime_ || !AtEnd()) {
            if (!ReadDate()) return std::nullopt;
            if (!hasTime_ && !ReadTimeBehindDate()) return std::nullopt;
        }
        SkipBlanks();
        if (!AtEnd()) return std::nullopt;
        return DateOf({day_, second_});
    }

  private:
    // ---- the cursor ----

    bool AtEnd() const { return at_ >= text_.size(); }

    char16_t Peek() const { return AtEnd() ? char16_t{0} : text_[at_]; }

    void SkipBlanks() {
        while (Peek() == u' ') ++at_;
    }

    bool Take(char16_t unit) {
        if (Peek() != unit) return false;
        ++at_;
        return true;
    }

    bool Take(std::u16string_view mark) {
        if (!text_.substr(std::min(at_, text_.size())).starts_with(mark)) return false;
        at_ += mark.size();
        return true;
    }

    // Up to `most` digits; false, and nothing read, for none or for more.
    bool TakeDigits(Digits& digits, std::size_t most) {
        std::size_t end = at_;
        std::int32_t value = 0;
        for (; end < text_.size() && IsDigit(text_[end]); ++end) {
            if (end - at_ == most) return false;
            value = value * 10 + (text_[end] - u'0');
        }
        digits = {value, end - at_};
        at_ = end;
        return digits.count > 0;
    }

    // The number before a unit such as 月, blanks allowed before both.
    bool TakeCounted(std::int32_t& value, char16_t unit) {
        const std::size_t from = at_;
        Digits digits;
        SkipBlanks();
        if (TakeDigits(digits, kShortDigits)) {
            SkipBlanks();
            if (Take(unit)) {
                value = digits.value;
                return true;
            }
        }
        at_ = from;
        return false;
    }

    // ---- times ----

    Half TakeHalf(bool inFront) {
        for (const HalfMark& mark : kHalfMarks) {
            const std::size_t from = at_;
            // A single letter in front of a time is no mark of it.
            if ((inFront && mark.text.size() == 1) || !Take(mark.text)) continue;
            if (!IsLetter(Peek()) || !IsLetter(mark.text.back())) return mark.half;
            at_ = from;
        }
        return Half::kNone;
    }

    bool ReadTime() {
        const std::size_t from = at_;
        Half half = TakeHalf(true);
        SkipBlanks();
        Digits hour;
        std::int32_t minute = 0;
        std::int32_t second = 0;
        const bool hasHour = TakeDigits(hour, kShortDigits);
        const bool hasMinutes = hasHour && ReadMinutes(minute, second);
        if (hasHour && half == Half::kNone) half = TakeHalfBehind();
        const bool isTime = hasHour && (hasMinutes || half != Half::kNone);
        if (isTime && SetTime(hour.value, minute, second, half)) return true;
        at_ = from;
        return false;
    }

    Half TakeHalfBehind() {
        const std::size_t from = at_;
        SkipBlanks();
        const Half half = TakeHalf(false);
        if (half == Half::kNone) at_ = from;
        return half;
    }

    // What stands behind an hour; false when nothing there makes it one.
    bool ReadMinutes(std::int32_t& minute, std::int32_t& second) {
        const std::size_t from = at_;
        SkipBlanks();
        if (Take(u'時')) {
            if (Take(u'半')) {
                minute = 30;
            } else if (TakeCounted(minute, u'分')) {
                TakeCounted(second, u'秒');
            }
            return true;
        }
        if (TakeSexagesimal(minute)) {
            TakeSexagesimal(second);
            return true;
        }
        at_ = from;
        return false;
    }

    bool TakeSexagesimal(std::int32_t& value) {
        const std::size_t from = at_;
        Digits digits;
        if (Take(u':')) {
            SkipBlanks();
            if (TakeDigits(digits, kShortDigits)) {
                value = digits.value;
                return true;
            }
        }
        at_ = from;
        return false;
    }

    // 午後13時 says the afternoon twice and is one o'clock; 午前13時 is none.
    bool SetTime(std::int32_t hour, std::int32_t minute, std::int32_t second, Half half) {
        if (half == Half::kMorning && hour > 12) return false;
        if (half == Half::kMorning && hour == 12) hour = 0;
        if (half == Half::kAfternoon && hour < 12) hour += 12;
        second_ = (hour * 60 + minute) * 60 + second;
        return hour < 24 && minute < 60 && second < 60;
    }

    // ---- dates ----

    bool ReadDate() {
        Take(u"西暦");
        if (!ReadEraDate() && !ReadMonthNameDate() && !ReadPlainDate()) return false;
        SkipWeekday();
        return true;
    }

    // True also where nothing stands there.
    bool ReadTimeBehindDate() {
        SkipBlanks();
        if (AtEnd()) return true;
        if (!Take(u't')) Take(u',');
        SkipBlanks();
        return ReadTime();
    }

    bool SetDate(std::int32_t year, std::int32_t month, std::int32_t day) {
        const CivilDay civil = {year, month, day};
        if (!IsCivilDay(civil)) return false;
        day_ = DayOfCivil(civil);
        return true;
    }

    bool SetDayOfThisYear(std::int32_t month, std::int32_t day) {
        return SetDate(CivilOfDay(MomentOfNow().day).year, month, day);
    }

    bool ReadEraDate() {
        const std::size_t from = at_;
        std::size_t length = 0;
        const Era* era = EraAtFront(text_.substr(at_), length);
        if (era == nullptr) return false;
        at_ += length;
        SkipBlanks();
        Digits year = {1, 1};
        if ((Take(u'元') || TakeDigits(year, kEraDigits)) && year.value > 0 &&
            ReadMonthAndDay(era->firstYear + year.value - 1)) {
            return true;
        }
        at_ = from;
        return false;
    }

    // Behind a year: 年5月6日, 年5月, or the rest of a date with separators.
    bool ReadMonthAndDay(std::int32_t year) {
        SkipBlanks();
        std::int32_t month = 0;
        std::int32_t day = 1;
        if (Take(u'年')) {
            if (!TakeCounted(month, u'月')) return false;
            TakeCounted(day, u'日');
            return SetDate(year, month, day);
        }
        const char16_t separator = TakeSeparator();
        Digits second;
        Digits third;
        if (separator == 0 || !TakeDigits(second, kShortDigits)) return false;
        if (!TakeAfterSeparator(separator, third, kShortDigits)) return false;
        return SetDate(year, second.value, third.value);
    }

    char16_t TakeSeparator() {
        const char16_t unit = Peek();
        if (unit != u'/' && unit != u'-' && unit != u'.') return 0;
        ++at_;
        SkipBlanks();
        return unit;
    }

    bool TakeAfterSeparator(char16_t separator, Digits& digits, std::size_t most) {
        const std::size_t from = at_;
        SkipBlanks();
        if (TakeSeparator() == separator && TakeDigits(digits, most)) return true;
        at_ = from;
        return false;
    }

    bool ReadPlainDate() {
        const std::size_t from = at_;
        Digits first;
        if (TakeDigits(first, kYearDigits)) {
            SkipBlanks();
            if (Peek() == u'年') return ReadMonthAndDay(FullYear(first));
            if (Take(u'月')) return ReadDayOfMonth(first);
            if (ReadSeparated(first) || ReadMonthNameBehind(first)) return true;
        }
        at_ = from;
        return false;
    }

    bool ReadDayOfMonth(const Digits& month) {
        std::int32_t day = 0;
        return TakeCounted(day, u'日') && SetDayOfThisYear(month.value, day);
    }

    bool ReadSeparated(const Digits& first) {
        const std::size_t from = at_;
        const char16_t separator = TakeSeparator();
        Digits second;
        Digits third;
        if (separator != 0 && TakeDigits(second, kYearDigits)) {
            if (TakeAfterSeparator(separator, third, kYearDigits)) {
                return SetFromThree(first, second, third);
            }
            // 5.6 is a number.
            if (separator != u'.') return SetFromTwo(first, second);
        }
        at_ = from;
        return false;
    }

    // Year, month, day; where that is no date, or the last one must be the year, month, day, year.
    bool SetFromThree(const Digits& first, const Digits& second, const Digits& third) {
        if (second.count > kShortDigits) return false;
        const bool yearInFront = third.count <= kShortDigits;
        if (yearInFront && SetDate(FullYear(first), second.value, third.value)) return true;
        if (first.count > kShortDigits) return false;
        if (SetDate(FullYear(third), first.value, second.value)) return true;
        return !yearInFront && SetDate(third.value, second.value, first.value);
    }

    bool SetFromTwo(const Digits& first, const Digits& second) {
        const bool yearInFront = first.count > kShortDigits;
        const bool yearBehind = second.count > kShortDigits;
        if (yearInFront && yearBehind) return false;
        if (yearInFront) return SetDate(first.value, second.value, 1);
        if (yearBehind) return SetDate(second.value, first.value, 1);
        return SetDayOfThisYear(first.value, second.value);
    }

    // ---- months by their English name ----

    // A whole name or its first three letters; 1 to 12, 0 for none.
    std::int32_t TakeMonthName() {
        std::size_t end = at_;
        while (end < text_.size() && IsLetter(text_[end])) ++end;
        const std::u16string_view word = text_.substr(std::min(at_, end), end - at_);
        for (std::size_t i = 0; i < kMonthNames.size(); ++i) {
            if (word.empty()) break;
            if (word == kMonthNames[i] || word == kMonthNames[i].substr(0, kShortMonthName)) {
                at_ = end;
                return static_cast<std::int32_t>(i) + 1;
            }
        }
        return 0;
    }

    // May 6, 2004; May 6; May 2004.
    bool ReadMonthNameDate() {
        const std::size_t from = at_;
        const std::int32_t month = TakeMonthName();
        Take(u'.');
        SkipBlanks();
        Digits first;
        if (month == 0 || !TakeDigits(first, kYearDigits)) {
            at_ = from;
            return false;
        }
        if (first.count > kShortDigits) return SetDate(first.value, month, 1);
        return SetWithYearBehind(month, first.value, u',');
    }

    // 6 May 2004; 6-May-04; 6 May.
    bool ReadMonthNameBehind(const Digits& day) {
        if (day.count > kShortDigits) return false;
        const std::size_t from = at_;
        Take(u'-');
        SkipBlanks();
        const std::int32_t month = TakeMonthName();
        if (month == 0) {
            at_ = from;
            return false;
        }
        return SetWithYearBehind(month, day.value, u'-');
    }

    bool SetWithYearBehind(std::int32_t month, std::int32_t day, char16_t separator) {
        const std::size_t from = at_;
        SkipBlanks();
        Take(separator);
        SkipBlanks();
        Digits year;
        const bool isYear = TakeDigits(year, kYearDigits) && Peek() != u':' && Peek() != u'時';
        if (isYear) return SetDate(FullYear(year), month, day);
        at_ = from;
        return SetDayOfThisYear(month, day);
    }

    // ---- weekdays ----

    // (木), 木曜, (木曜日); not compared with the date.
    void SkipWeekday() {
        const std::size_t from = at_;
        SkipBlanks();
        const bool bracketed = Take(u'(');
        const bool isInitial = !AtEnd() && kWeekdayInitials.find(Peek()) != kWeekdayInitials.npos;
        if (isInitial) {
            ++at_;
            const bool named = Take(u'曜');
            if (named) Take(u'日');
            if (bracketed ? Take(u')') : named) return;
        }
        at_ = from;
    }

    std::u16string_view text_;
    std::size_t at_ = 0;
    std::int64_t day_ = 0;
    std::int64_t second_ = 0;
    bool hasTime_ = false;
};

}  // namespace

std::optional<double> ParseDate(std::u16string_view text) {
    // No date is longer; a text of many megabytes must not be narrowed for nothing.
    constexpr std::size_t kLongestDate = 100;
    if (text.empty() || text.size() > kLongestDate) return std::nullopt;
    const std::u16string plain = ToLower(ToHalfWidth(text));
    return DateReader(plain).Read();
}

}  // namespace velm
