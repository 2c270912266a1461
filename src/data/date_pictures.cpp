// Date pictures: a table of the codes' lengths, a cursor that takes the longest code, and one writer a
// letter.
#include "data/date_pictures.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>
#include <utility>

#include "data/dates.h"
#include "data/eras.h"
#include "data/numbers.h"

namespace velm {

namespace {

constexpr std::size_t kLongestCode = 6;

// The lengths that a letter's code may have, longest first.
struct CodeLengths {
    char16_t letter;
    std::array<std::size_t, kLongestCode> lengths;
};

constexpr std::array<CodeLengths, 14> kCodes = {{
    {u'y', {4, 2, 1}},
    {u'g', {3, 2, 1}},
    {u'e', {2, 1}},
    {u'm', {4, 3, 2, 1}},
    {u'o', {4}},
    {u'd', {6, 5, 4, 3, 2, 1}},
    {u'a', {4, 3}},
    {u'w', {2, 1}},
    {u'q', {1}},
    {u'h', {2, 1}},
    {u'n', {2, 1}},
    {u's', {2, 1}},
    {u't', {5}},
    {u'c', {1}},
}};

constexpr std::array<std::u16string_view, 3> kHalfMarks = {u"am/pm", u"ampm", u"a/p"};
constexpr std::size_t kLocaleMark = 4;  // the length of ampm

constexpr std::array<std::u16string_view, 12> kMonthNames = {
    u"January", u"February", u"March",     u"April",   u"May",      u"June",
    u"July",    u"August",   u"September", u"October", u"November", u"December"};
constexpr std::array<std::u16string_view, 7> kDayNames = {
    u"Sunday", u"Monday", u"Tuesday", u"Wednesday", u"Thursday", u"Friday", u"Saturday"};
constexpr std::size_t kShortName = 3;

char16_t Lower(char16_t unit) {
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit | 0x20) : unit;
}

bool HasMarkAt(PictureSection picture, std::size_t at, std::u16string_view mark) {
    if (picture.size() - at < mark.size()) return false;
    for (std::size_t i = 0; i < mark.size(); ++i) {
        const PictureUnit& unit = picture[at + i];
        if (unit.literal || Lower(unit.unit) != mark[i]) return false;
    }
    return true;
}

// How often the letter stands there, as far as a code may be long.
std::size_t RunAt(PictureSection picture, std::size_t at) {
    const char16_t letter = Lower(picture[at].unit);
    const std::size_t most = std::min(picture.size(), at + kLongestCode);
    std::size_t end = at;
    while (end < most && !picture[end].literal && Lower(picture[end].unit) == letter) ++end;
    return end - at;
}

class DateWriter {
  public:
    DateWriter(double date, PictureSection picture)
        : date_(date), picture_(picture), moment_(MomentOf(date)), civil_(CivilOfDay(moment_.day)) {
        for (std::size_t at = 0; at < picture.size();) {
            const DateCode code = DateCodeAt(picture, at);
            twelveHours_ = twelveHours_ || code.letter == u'/';
            at += code.letter != 0 ? code.length : 1;
        }
    }

    std::u16string Write() {
        for (std::size_t at = 0; at < picture_.size();) {
            const DateCode code = DateCodeAt(picture_, at);
            if (code.letter == 0) {
                text_.push_back(picture_[at++].unit);
                continue;
            }
            Add(code, picture_[at].unit);
            if (code.letter != u'/') behindHour_ = code.letter == u'h';
            at += code.length;
        }
        return std::move(text_);
    }

  private:
    void Add(const DateCode& code, char16_t asWritten) {
        const std::size_t length = code.length;
        switch (code.letter) {
            case u'y': AddYear(length); break;
            case u'g': AddEra(length); break;
            case u'e': AddNumber(EraYear(), length); break;
            case u'm': AddMonth(length); break;
            case u'o': AddNumber(civil_.month, 1).append(u"月"); break;
            case u'd': AddDay(length); break;
            case u'a': AddWeekday(length); break;
            case u'w': AddNumber(length == 1 ? Weekday() : Week(), 1); break;
            case u'q': AddNumber((civil_.month + 2) / 3, 1); break;
            case u'h': AddNumber(Hour(), length); break;
            case u'n': AddNumber(Minute(), length); break;
            case u's': AddNumber(moment_.second % 60, length); break;
            case u't': text_.append(FormatTime(moment_.second)); break;
            case u'c': text_.append(FormatDate(date_)); break;
            default: AddHalf(length, asWritten); break;
        }
    }

    // At least so many digits.
    std::u16string& AddNumber(std::int64_t number, std::size_t digits) {
        if (digits == 2 && number < 10) text_.push_back(u'0');
        AppendNumber(text_, static_cast<double>(number));
        return text_;
    }

    int Weekday() const { return WeekdayOfDay(moment_.day); }

    std::int64_t Minute() const { return moment_.second / 60 % 60; }

    std::int64_t Hour() const {
        const std::int64_t hour = moment_.second / 3600;
        return twelveHours_ ? (hour + 11) % 12 + 1 : hour;
    }

    std::int64_t FirstOfYear() const { return DayOfCivil({civil_.year, 1, 1}); }

    // Weeks begin on Sunday; the first one holds January 1.
    std::int64_t Week() const {
        const std::int64_t first = FirstOfYear();
        return (moment_.day - first + WeekdayOfDay(first) - 1) / 7 + 1;
    }

    std::int32_t EraYear() const {
        const Era* era = EraOfDay(moment_.day);
        return era == nullptr ? civil_.year : civil_.year - era->firstYear + 1;
    }

    void AddYear(std::size_t length) {
        if (length == 1) {
            AddNumber(moment_.day - FirstOfYear() + 1, 1);
        } else if (length == 2) {
            AddNumber(civil_.year % 100, 2);
        } else {
            text_.append(FormatDay(moment_.day), 0, 4);
        }
    }

    void AddEra(std::size_t length) {
        const Era* era = EraOfDay(moment_.day);
        if (era == nullptr) return;
        if (length == 1) {
            text_.push_back(era->letter);
        } else {
            text_.append(length == 2 ? era->initial : era->name);
        }
    }

    void AddMonth(std::size_t length) {
        if (length <= 2) {
            AddNumber(behindHour_ ? Minute() : civil_.month, length);
        } else {
            AddName(kMonthNames[static_cast<std::size_t>(civil_.month - 1)], length == 3);
        }
    }

    void AddDay(std::size_t length) {
        if (length <= 2) {
            AddNumber(civil_.day, length);
        } else if (length <= 4) {
            AddName(kDayNames[static_cast<std::size_t>(Weekday() - 1)], length == 3);
        } else if (length == 5) {
            text_.append(FormatDay(moment_.day));
        } else {
            AddNumber(civil_.year, 1).append(u"年");
            AddNumber(civil_.month, 1).append(u"月");
            AddNumber(civil_.day, 1).append(u"日");
        }
    }

    void AddName(std::u16string_view name, bool isShort) {
        text_.append(isShort ? name.substr(0, kShortName) : name);
    }

    void AddWeekday(std::size_t length) {
        text_.append(WeekdayName(Weekday()).substr(0, length == 3 ? 1 : 3));
    }

    void AddHalf(std::size_t length, char16_t asWritten) {
        const bool afternoon = moment_.second >= kSecondsInDay / 2;
        if (length == kLocaleMark) {
            text_.append(afternoon ? u"午後" : u"午前");
            return;
        }
        const bool isLower = asWritten == u'a';
        const std::u16string_view mark =
            afternoon ? (isLower ? u"pm" : u"PM") : (isLower ? u"am" : u"AM");
        text_.append(mark.substr(0, length / 2));
    }

    double date_;
    PictureSection picture_;
    Moment moment_;
    CivilDay civil_;
    bool twelveHours_ = false;
    bool behindHour_ = false;
    std::u16string text_;
};

}  // namespace

DateCode DateCodeAt(PictureSection picture, std::size_t at) {
    if (picture[at].literal) return {};
    for (const std::u16string_view mark : kHalfMarks) {
        if (HasMarkAt(picture, at, mark)) return {u'/', mark.size()};
    }
    for (const CodeLengths& code : kCodes) {
        if (code.letter != Lower(picture[at].unit)) continue;
        // c is a letter of many words; it is a code only alone.
        if (code.letter == u'c' && picture.size() > 1) return {};
        const std::size_t run = RunAt(picture, at);
        for (const std::size_t length : code.lengths) {
            if (length != 0 && length <= run) return {code.letter, length};
        }
    }
    return {};
}

std::u16string FormatDatePicture(double date, const PictureUnits& picture) {
    return DateWriter(date, picture).Write();
}

}  // namespace velm
