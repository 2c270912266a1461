// Pictures: each code of numbers, dates and texts, the named formats, and what chooses among them.
#include "data/pictures.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "data/dates.h"
#include "data/eras.h"
#include "data/failure.h"
#include "data/number_pictures.h"
#include "data/utf.h"

namespace velm {
namespace {

struct Shown {
    std::u16string_view value;
    std::u16string_view picture;
    std::u16string_view text;
};

void ExpectShown(const std::vector<Shown>& rows) {
    for (const Shown& row : rows) {
        EXPECT_EQ(FormatPicture(row.value, row.picture), row.text)
            << Utf16ToUtf8(row.value) << " in " << Utf16ToUtf8(row.picture);
    }
}

TEST(NumberPictures, Places) {
    ExpectShown({
        {u"5", u"0", u"5"},
        {u"5", u"000", u"005"},
        {u"12345", u"000", u"12345"},
        {u"12", u"##0", u"12"},
        {u"0", u"#", u""},
        {u"0", u"##0", u"0"},
        {u"5", u"#0##", u"005"},
        {u"3.14159", u"0.00", u"3.14"},
        {u"5", u"0.00", u"5.00"},
        {u"5", u"#.##", u"5."},
        {u"0.5", u"#.##", u".5"},
        {u"0.1", u"0.0#", u"0.1"},
        {u"0.126", u"0.0#", u"0.13"},
        {u"1.5", u"0.#0#", u"1.50"},
        {u"12.5", u".00", u"12.50"},
        {u"0.25", u".00", u".25"},
        {u"1E+20", u"0", u"100000000000000000000"},
        {u"1.5E-05", u"0.000000", u"0.000015"},
        {u"123456789012345678", u"0", u"123456789012346000"},
    });
}

TEST(NumberPictures, RoundsHalvesAwayFromZeroAsWritten) {
    ExpectShown({
        {u"2.5", u"0", u"3"},
        {u"-2.5", u"0", u"-3"},
        {u"2.4999", u"0", u"2"},
        {u"1.005", u"0.00", u"1.01"},
        {u"0.125", u"0.00", u"0.13"},
        {u"9.995", u"0.00", u"10.00"},
        {u"99.5", u"0", u"100"},
        {u"0.5", u"0", u"1"},
        {u"0.4", u"0", u"0"},
        {u"0.05", u"0", u"0"},
        {u"999.9", u"#,##0", u"1,000"},
    });
}

TEST(NumberPictures, Commas) {
    ExpectShown({
        {u"1234567", u"#,##0", u"1,234,567"},
        {u"1234.5", u"#,##0.00", u"1,234.50"},
        {u"123", u"#,##0", u"123"},
        {u"1234", u"0,0", u"1,234"},
        {u"5", u"0,000", u"0,005"},
        {u"-1234567", u"#,##0", u"-1,234,567"},
        {u"12345678", u"#,##0,", u"12,346"},
        {u"12345678", u"0,", u"12346"},
        {u"12345678", u"#,##0,,", u"12"},
        {u"12345678", u"#,##0,,.0", u"12.3"},
        {u"499", u"0,", u"0"},
        {u"1234567", u"#,##0,千円", u"1,235千円"},
        {u"5", u"あ,い", u"あ,い"},
    });
}

TEST(NumberPictures, PercentAndExponent) {
    ExpectShown({
        {u"0.25", u"0%", u"25%"},
        {u"0.12345", u"0.00%", u"12.35%"},
        {u"12", u"#,##0%", u"1,200%"},
        {u"12345", u"0.00E+00", u"1.23E+04"},
        {u"12345", u"0.00E-00", u"1.23E04"},
        {u"0.00012", u"0.0e-0", u"1.2e-4"},
        {u"0.00012", u"0.0e+000", u"1.2e-004"},
        {u"12345", u"##0.0E+0", u"123.5E+2"},
        {u"99999", u"0.0E+00", u"1.0E+05"},
        {u"0", u"0.00E+00", u"0.00E+00"},
        {u"-12345", u"0.00E+00", u"-1.23E+04"},
        {u"1E+120", u"0E+0", u"1E+120"},
        {u"5", u"0E", u"5E"},
        {u"5", u"0E+", u"5E+"},
    });
}

TEST(NumberPictures, Literals) {
    ExpectShown({
        {u"1234567", u"第#,##0号", u"第1,234,567号"},
        {u"1234567", u"000-0000", u"123-4567"},
        {u"5", u"0\"0#,.%\"", u"50#,.%"},
        {u"5", u"\\0\\#0", u"0#5"},
        {u"-5", u"\\\\#,##0", u"-\\5"},
        {u"5", u"0\"円", u"5円"},
        {u"5", u"0\\", u"5\\"},
        {u"5", u"円", u"円"},
        {u"-5", u"円", u"-円"},
        {u"5", u"0.0.0", u"5.0.0"},
    });
}

TEST(NumberPictures, Sections) {
    ExpectShown({
        {u"5", u"0;(0)", u"5"},
        {u"-5", u"0;(0)", u"(5)"},
        {u"0", u"0;(0)", u"0"},
        {u"0", u"0;(0);零", u"零"},
        {u"-5", u"0;;零", u"-5"},
        {u"0", u"0;(0);", u"0"},
        {u"5", u"0\";\"0;x", u"0;5"},
        {u"50", u"0\";\"0;x", u"5;0"},
        {u"0.001", u"0.00;-0.00;零", u"零"},
        {u"-0.001", u"0.00;-0.00;零", u"零"},
        {u"-0.001", u"0.00", u"0.00"},
        {u"5", u";0", u""},
        {u"5", u"0;0;0;0", u"5"},
    });
}

TEST(NumberPictures, FromANumber) {
    EXPECT_EQ(FormatNumberPicture(0.1 + 0.2, u"0.0################"), u"0.3");
    EXPECT_EQ(FormatNumberPicture(-1234.5, u"\\\\#,##0"), u"-\\1,235");
    EXPECT_EQ(FormatNumberPicture(1e300, u"0").size(), 301U);
}

TEST(DatePictures, YearsAndEras) {
    ExpectShown({
        {u"2004/5/6", u"yyyy", u"2004"},
        {u"2004/5/6", u"yy", u"04"},
        {u"2004/5/6", u"y", u"127"},
        {u"2004/12/31", u"y", u"366"},
        {u"100/1/1", u"yyyy", u"0100"},
        {u"2004/5/6", u"ggg", u"平成"},
        {u"2004/5/6", u"gg", u"平"},
        {u"2004/5/6", u"g", u"H"},
        {u"2004/5/6", u"e", u"16"},
        {u"1990/5/6", u"e", u"2"},
        {u"1990/5/6", u"ee", u"02"},
        {u"2019/4/30", u"ggge年", u"平成31年"},
        {u"2019/5/1", u"ggge年", u"令和1年"},
        {u"1989/1/7", u"ge", u"S64"},
        {u"1926/12/24", u"ge", u"T15"},
        {u"1912/7/29", u"ge", u"M45"},
        {u"1868/1/24", u"ggge", u"1868"},
        {u"2004/5/6", u"YYYY/MM/DD", u"2004/05/06"},
    });
}

TEST(DatePictures, MonthsDaysAndWeekdays) {
    ExpectShown({
        {u"2004/5/6", u"m", u"5"},
        {u"2004/5/6", u"mm", u"05"},
        {u"2004/5/6", u"mmm", u"May"},
        {u"2004/12/6", u"mmm", u"Dec"},
        {u"2004/12/6", u"mmmm", u"December"},
        {u"2004/5/6", u"oooo", u"5月"},
        {u"2004/5/6", u"d", u"6"},
        {u"2004/5/6", u"dd", u"06"},
        {u"2004/5/6", u"ddd", u"Thu"},
        {u"2004/5/6", u"dddd", u"Thursday"},
        {u"2004/5/6", u"ddddd", u"2004/05/06"},
        {u"2004/5/6", u"dddddd", u"2004年5月6日"},
        {u"2004/5/6", u"aaa", u"木"},
        {u"2004/5/6", u"aaaa", u"木曜日"},
        {u"2004/5/6", u"w", u"5"},
        {u"2004/5/6", u"q", u"2"},
        {u"2004/1/3", u"ww", u"1"},
        {u"2004/1/4", u"ww", u"2"},
        {u"2004/12/31", u"ww", u"53"},
        {u"2004/3/31", u"q", u"1"},
        {u"2004/12/1", u"q", u"4"},
    });
}

TEST(DatePictures, Times) {
    ExpectShown({
        {u"7:08:09", u"h", u"7"},
        {u"7:08:09", u"hh:nn:ss", u"07:08:09"},
        {u"7:08:09", u"h:n:s", u"7:8:9"},
        {u"19:08:09", u"hh", u"19"},
        {u"19:08:09", u"h AM/PM", u"7 PM"},
        {u"7:08:09", u"hh am/pm", u"07 am"},
        {u"19:08:09", u"hA/P", u"7P"},
        {u"7:08:09", u"ha/p", u"7a"},
        {u"19:08", u"AMPM h:nn", u"午後 7:08"},
        {u"7:08", u"AMPMh時", u"午前7時"},
        {u"0:05", u"h:nn AM/PM", u"12:05 AM"},
        {u"12:05", u"h:nn AM/PM", u"12:05 PM"},
        {u"19:08:09", u"ttttt", u"19:08:09"},
        {u"2004/5/6 7:08:09", u"c", u"2004/05/06 07:08:09"},
    });
}

TEST(DatePictures, MinutesBehindHours) {
    ExpectShown({
        {u"2004/5/6 7:08:09", u"hh:mm:ss", u"07:08:09"},
        {u"2004/5/6 7:08:09", u"h時mm分", u"7時08分"},
        {u"2004/5/6 7:08:09", u"h:m m", u"7:8 5"},
        {u"2004/5/6 7:08:09", u"mm/dd hh:mm", u"05/06 07:08"},
        {u"2004/5/6 7:08:09", u"hh:ss:mm", u"07:09:05"},
    });
}

TEST(DatePictures, LiteralsAndNumbers) {
    ExpectShown({
        {u"2004/5/6", u"\"y\"yyyy\\d", u"y2004d"},
        {u"2004/5/6", u"yyyy年m月d日（aaa）", u"2004年5月6日（木）"},
        {u"38113", u"yyyy/mm/dd", u"2004/05/06"},
        {u"38113.5", u"yyyy/mm/dd hh:nn", u"2004/05/06 12:00"},
        {u"-1.25", u"yyyy/mm/dd hh:nn", u"1899/12/29 06:00"},
        {u"2004/5/6", u"yyyy;0", u"2004;0"},
        {u"abc", u"yyyy/mm/dd", u"abc"},
        {u"2004/2/30", u"yyyy/mm/dd", u"2004/2/30"},
        {u"", u"yyyy/mm/dd", u""},
    });
    for (const std::u16string_view number : {u"1E+10", u"-1E+10", u"2958466"}) {
        EXPECT_THROW(FormatPicture(number, u"yyyy"), Failure) << Utf16ToUtf8(number);
    }
}

TEST(DatePictures, EveryDayOfTheErasReadsBack) {
    const std::int64_t first = DayOfCivil({1868, 1, 25});
    const std::int64_t last = DayOfCivil({2100, 12, 31});
    for (std::int64_t day = first; day <= last; ++day) {
        const std::u16string shown = FormatPicture(FormatDay(day), u"ggge年m月d日(aaa)");
        ASSERT_EQ(ParseDate(shown), static_cast<double>(day)) << Utf16ToUtf8(shown);
        ASSERT_EQ(ParseDate(FormatPicture(FormatDay(day), u"gee.mm.dd")), static_cast<double>(day));
    }
}

TEST(TextPictures, Places) {
    ExpectShown({
        {u"abc", u"@@@@@", u"  abc"},
        {u"abc", u"&&&&&", u"abc"},
        {u"abc", u"!@@@@@", u"abc  "},
        {u"abc", u"@&@&@", u" abc"},
        {u"abc", u"(@@@)", u"(abc)"},
        {u"abcde", u"@-@@", u"abc-de"},
        {u"abcde", u"!@-@@", u"a-bcde"},
        {u"あい", u"@@@", u" あい"},
        {u"1234567", u"@@@-@@@@", u"123-4567"},
        {u"12", u"@@@", u" 12"},
    });
}

TEST(TextPictures, LetterCase) {
    ExpectShown({
        {u"aBc", u"<", u"abc"},
        {u"aBc", u">", u"ABC"},
        {u"aBc", u">様", u"ABC様"},
        {u"aBc", u"様<", u"様abc"},
        {u"aBc", u">@@@@", u" ABC"},
        {u"aBc", u"<!@@@@\"X\"", u"abc X"},
        {u"aBc", u"!", u"aBc"},
        {u"aBc", u"\\<@@@", u"<aBc"},
    });
}

TEST(TextPictures, EmptyText) {
    ExpectShown({
        {u"", u"@@@", u"   "},
        {u"", u"&&&", u""},
        {u"", u"@;なし", u"なし"},
        {u"a", u"@;なし", u"a"},
        {u"", u"@@;", u"  "},
        {u"", u"<", u""},
    });
}

TEST(Pictures, NamedFormats) {
    ExpectShown({
        {u"1234.50", u"General Number", u"1234.5"},
        {u"2004/5/6", u"General Number", u"38113"},
        {u"abc", u"General Number", u"abc"},
        {u"1234.5", u"Currency", u"\\1,235"},
        {u"-1234.5", u"currency", u"-\\1,235"},
        {u"1234.5", u"Fixed", u"1234.50"},
        {u"1234.5", u"Standard", u"1,234.50"},
        {u"0.256", u"Percent", u"25.60%"},
        {u"1234.5", u"Scientific", u"1.23E+03"},
        {u"1", u"Yes/No", u"Yes"},
        {u"-1", u"Yes/No", u"Yes"},
        {u"0", u"Yes/No", u"No"},
        {u"0.2", u"True/False", u"True"},
        {u"0", u"True/False", u"False"},
        {u"5", u"On/Off", u"On"},
        {u"0", u"On/Off", u"Off"},
        {u"2004/5/6 7:08:09", u"General Date", u"2004/05/06 07:08:09"},
        {u"2004/5/6 7:08:09", u"Long Date", u"2004年5月6日"},
        {u"2004/5/6 7:08:09", u"Medium Date", u"04-05-06"},
        {u"2004/5/6 7:08:09", u"Short Date", u"2004/05/06"},
        {u"2004/5/6 19:08:09", u"Long Time", u"19:08:09"},
        {u"2004/5/6 19:08:09", u"Medium Time", u"午後 07:08"},
        {u"2004/5/6 19:08:09", u"SHORT TIME", u"19:08"},
        {u"abc", u"Standard", u"abc"},
    });
}

TEST(Pictures, TheFirstCodeDecides) {
    ExpectShown({
        {u"38113", u"0日", u"38113日"},
        {u"38113", u"0 d", u"38113 d"},
        {u"38113", u"d 0", u"6 0"},
        {u"38113", u"\"d\"0", u"d38113"},
        {u"38113", u"@0", u"381130"},
        {u"38113", u"0@", u"38113@"},
        {u"5", u"a0", u"a5"},
        {u"5", u"Total: 0", u"Total: 5"},
        {u"2004/5/6", u"0", u"38113"},
        {u"18:00", u"0.00", u"0.75"},
        {u"abc", u"0.00", u"abc"},
        {u"", u"0.00", u""},
        {u"abc", u"", u"abc"},
        {u"１２", u"000", u"012"},
        {u"1,234", u"0.0", u"1234.0"},
    });
}

TEST(Pictures, VeryLongPicture) {
    const std::u16string zeros(200000, u'0');
    EXPECT_EQ(FormatPicture(u"7", zeros).size(), zeros.size());
    EXPECT_EQ(FormatPicture(u"7", u"0." + zeros).size(), zeros.size() + 2);
    EXPECT_EQ(FormatPicture(u"7", u"0" + std::u16string(200000, u',')), u"0");
    EXPECT_EQ(FormatPicture(u"7", std::u16string(200000, u'@')).size(), 200000U);
    EXPECT_EQ(FormatPicture(u"38113", std::u16string(200000, u'y')).size(), 200000U);
}

}  // namespace
}  // namespace velm
