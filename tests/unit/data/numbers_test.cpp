// Numbers to and from text: forms that are accepted and refused, the text of numbers at the limits
// of its forms, and random agreement of both directions.
#include "data/numbers.h"

#include <gtest/gtest.h>

#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "data/failure.h"

namespace velm {
namespace {

struct NumberCase {
    std::u16string text;
    double number;
};

std::string Shown(std::u16string_view text) {
    std::string shown;
    for (const char16_t unit : text) {
        shown += unit < 0x80 ? std::string(1, static_cast<char>(unit))
                             : "\\u" + std::to_string(static_cast<int>(unit));
    }
    return shown;
}

void ExpectParsed(const std::vector<NumberCase>& cases) {
    for (const NumberCase& one : cases) {
        const std::optional<double> parsed = ParseNumber(one.text);
        ASSERT_TRUE(parsed.has_value()) << Shown(one.text);
        EXPECT_EQ(*parsed, one.number) << Shown(one.text);
        EXPECT_FALSE(*parsed == 0 && std::signbit(*parsed)) << Shown(one.text);
        EXPECT_TRUE(IsNumeric(one.text)) << Shown(one.text);
        EXPECT_EQ(TextToNumber(one.text), one.number) << Shown(one.text);
    }
}

void ExpectRefused(const std::vector<std::u16string>& texts) {
    for (const std::u16string& text : texts) {
        EXPECT_FALSE(ParseNumber(text).has_value()) << Shown(text);
        EXPECT_FALSE(IsNumeric(text)) << Shown(text);
    }
}

template <typename Step>
int FailureOf(Step step) {
    try {
        step();
    } catch (const Failure& failure) {
        return failure.Number();
    }
    return 0;
}

// Any finite double, all magnitudes alike.
double RandomDouble(std::mt19937_64& random) {
    for (;;) {
        const std::uint64_t bits = random();
        double number;
        std::memcpy(&number, &bits, sizeof number);
        if (std::isfinite(number)) return number;
    }
}

TEST(ParseNumber, IntegersAndDecimals) {
    ExpectParsed({{u"0", 0},
                  {u"-0", 0},
                  {u"007", 7},
                  {u"123", 123},
                  {u"-7", -7},
                  {u"+7", 7},
                  {u".5", 0.5},
                  {u"5.", 5},
                  {u"-.25", -0.25},
                  {u"3.14159", 3.14159},
                  {u"123456789012345", 123456789012345.0},
                  {u"9007199254740993", 9007199254740992.0},
                  {u"0.1000000000000000055511151231257827", 0.1}});
}

TEST(ParseNumber, BlanksAround) {
    ExpectParsed({{u" 12 ", 12}, {u"　12　 ", 12}, {u" (5) ", -5}});
    ExpectRefused({u"", u" ", u"　", u"1 2", u"- 5", u"( 5 )", u"5\r\n", u"\t5"});
}

TEST(ParseNumber, Exponents) {
    ExpectParsed({{u"1E5", 1e5},
                  {u"1e+5", 1e5},
                  {u"1.5d-3", 0.0015},
                  {u"2D2", 200},
                  {u"-1E15", -1e15},
                  {u"1E-999", 0},
                  {u"0E999", 0},
                  {u"5E-324", 5e-324},
                  {u"1.7976931348623157E308", std::numeric_limits<double>::max()}});
    ExpectRefused({u"1E", u"E5", u"1E+", u"1E5.5", u"1E 5", u"1EE5", u"1E999", u"-1E309"});
}

TEST(ParseNumber, RangeGoesByTheFirstSignificantDigit) {
    const std::u16string zeros(400, u'0');
    ExpectRefused({u"1" + zeros, u"1" + zeros + u"E-1", u"1E99999999999999999999"});
    ExpectParsed({{u"0." + zeros + u"1", 0},
                  {u"0." + zeros + u"1E1", 0},
                  {u"1E-99999999999999999999", 0},
                  {u"0." + zeros + u"1E401", 1}});
}

TEST(ParseNumber, CommasGroupByThree) {
    ExpectParsed({{u"1,234", 1234},
                  {u"12,345.6", 12345.6},
                  {u"-123,456,789", -123456789},
                  {u"(1,234)", -1234}});
    ExpectRefused({u"1,2,3", u"12,34", u"1234,567", u",123", u"1,,234", u"1,234,", u"1,2345",
                   u"1.234,567", u"1，234", u"1、234"});
}

TEST(ParseNumber, AccountantsForm) {
    ExpectParsed({{u"(5)", -5}, {u"（５）", -5}, {u"(1.5E2)", -150}, {u"(0)", 0}});
    ExpectRefused({u"()", u"(5", u"5)", u"（5)", u"(-5)", u"(+5)", u"-(5)", u"((5))", u"(a)"});
}

TEST(ParseNumber, FullWidthForms) {
    ExpectParsed({{u"１２３", 123},
                  {u"－４．５", -4.5},
                  {u"＋３", 3},
                  {u"１Ｅ２", 100},
                  {u"１ｅ－２", 0.01},
                  {u"１2３", 123}});
    ExpectRefused({u"３０度", u"一", u"１＋２"});
}

TEST(ParseNumber, RefusesEverythingElse) {
    ExpectRefused({u"abc", u"1a", u"&h10", u"--5", u"+-5", u"5-", u"5+", u".", u"-", u"+", u"1.2.3",
                   u"0x10", u"inf", u"nan", u"INF", u"\\100", u"50%", u"1_000",
                   std::u16string(u"1\0", 2)});
}

TEST(TextToNumber, ReadsAsFarAsItIsANumber) {
    EXPECT_EQ(TextToNumber(u"３０度"), 30);
    EXPECT_EQ(TextToNumber(u"12.5cm"), 12.5);
    EXPECT_EQ(TextToNumber(u"－２個"), -2);
    EXPECT_EQ(TextToNumber(u"1,234"), 1234);
    EXPECT_EQ(TextToNumber(u"1,2,3"), 1);
    EXPECT_EQ(TextToNumber(u"(5)"), -5);
    EXPECT_EQ(TextToNumber(u""), 0);
    EXPECT_EQ(TextToNumber(u"度"), 0);
    EXPECT_EQ(TextToNumber(u"&hFF"), 0);
}

TEST(TextToNumber, FailsBeyondADouble) {
    EXPECT_EQ(FailureOf([] { TextToNumber(u"1E999"); }), 6);
    EXPECT_EQ(FailureOf([] { NumericPrefix(u"-1E999円"); }), 6);
}

TEST(NumericPrefix, EndsAtTheFirstOtherCharacter) {
    EXPECT_EQ(NumericPrefix(u"4abc"), 4);
    EXPECT_EQ(NumericPrefix(u" 12 3"), 12);
    EXPECT_EQ(NumericPrefix(u"　７つ"), 7);
    EXPECT_EQ(NumericPrefix(u"1,234"), 1);
    EXPECT_EQ(NumericPrefix(u"3days"), 3);
    EXPECT_EQ(NumericPrefix(u"3e"), 3);
    EXPECT_EQ(NumericPrefix(u"3e-x"), 3);
    EXPECT_EQ(NumericPrefix(u"3e2x"), 300);
    EXPECT_EQ(NumericPrefix(u"-.5.5"), -0.5);
}

TEST(NumericPrefix, NoDigitsGiveZero) {
    for (const std::u16string_view text : {u"", u" ", u"-", u"+.", u"abc", u"(5)", u"e5"}) {
        EXPECT_EQ(NumericPrefix(text), 0) << Shown(text);
    }
}

TEST(FormatNumber, Integers) {
    EXPECT_EQ(FormatNumber(0), u"0");
    EXPECT_EQ(FormatNumber(-0.0), u"0");
    EXPECT_EQ(FormatNumber(123), u"123");
    EXPECT_EQ(FormatNumber(-100), u"-100");
    EXPECT_EQ(FormatNumber(999999999999999.0), u"999999999999999");
    EXPECT_EQ(FormatNumber(-999999999999999.0), u"-999999999999999");
    EXPECT_EQ(FormatNumber(1e15), u"1E+15");
    EXPECT_EQ(FormatNumber(1234567890123456.0), u"1.23456789012346E+15");
}

TEST(FormatNumber, FractionsHaveFifteenDigits) {
    EXPECT_EQ(FormatNumber(10.0 / 3), u"3.33333333333333");
    EXPECT_EQ(FormatNumber(2.0 / 3), u"0.666666666666667");
    EXPECT_EQ(FormatNumber(0.1 + 0.2), u"0.3");
    EXPECT_EQ(FormatNumber(-0.5), u"-0.5");
    EXPECT_EQ(FormatNumber(1.5), u"1.5");
    EXPECT_EQ(FormatNumber(100.25), u"100.25");
    EXPECT_EQ(FormatNumber(1e-3 / 3), u"0.000333333333333333");
    EXPECT_EQ(FormatNumber(9.9999999999999995), u"10");
    EXPECT_EQ(FormatNumber(99999999999999.97), u"100000000000000");
}

TEST(FormatNumber, TiesGoToTheEvenDigit) {
    EXPECT_EQ(FormatNumber(100000000000000.5), u"100000000000000");
    EXPECT_EQ(FormatNumber(100000000000001.5), u"100000000000002");
}

TEST(FormatNumber, ExponentForm) {
    EXPECT_EQ(FormatNumber(0.0001), u"0.0001");
    EXPECT_EQ(FormatNumber(0.00001), u"1E-05");
    EXPECT_EQ(FormatNumber(0.000099999999999999999), u"0.0001");
    EXPECT_EQ(FormatNumber(-1.5e-7), u"-1.5E-07");
    EXPECT_EQ(FormatNumber(9.9e-8), u"9.9E-08");
    EXPECT_EQ(FormatNumber(999999999999999.5), u"1E+15");
    EXPECT_EQ(FormatNumber(1e100), u"1E+100");
    EXPECT_EQ(FormatNumber(1.25e-200), u"1.25E-200");
    EXPECT_EQ(FormatNumber(5e-324), u"4.94065645841247E-324");
    EXPECT_EQ(FormatNumber(std::numeric_limits<double>::max()), u"1.79769313486232E+308");
}

TEST(FormatNumber, WhatIsNoNumberIsZero) {
    EXPECT_EQ(FormatNumber(std::numeric_limits<double>::quiet_NaN()), u"0");
    EXPECT_EQ(FormatNumber(-std::numeric_limits<double>::infinity()), u"0");
}

TEST(FormatNumber, WritesEveryCountOfDigits) {
    std::u16string digits;
    double number = 0;
    for (const char16_t digit : std::u16string_view(u"907050302010809")) {
        digits += digit;
        number = number * 10 + (digit - u'0');
        EXPECT_EQ(FormatNumber(number), digits);
        EXPECT_EQ(FormatNumber(-number), u"-" + digits);
    }
    for (double power = 10; power < 1e15; power *= 10) {
        EXPECT_EQ(ParseNumber(FormatNumber(power)), power);
        EXPECT_EQ(FormatNumber(power).size(), FormatNumber(power - 1).size() + 1);
    }
}

TEST(FormatNumber, TheLongestHasRoom) {
    char16_t place[kLongestNumber];
    const std::u16string_view longest = u"-1.23456789012345E-300";
    EXPECT_EQ(longest.size(), kLongestNumber);
    const char16_t* end = WriteNumber(place, -1.23456789012345e-300);
    EXPECT_EQ(std::u16string_view(place, static_cast<std::size_t>(end - place)), longest);
}

TEST(FormatNumber, AppendsInPlace) {
    std::u16string text = u"値は";
    AppendNumber(text, -1.5);
    AppendNumber(text, 20);
    EXPECT_EQ(text, u"値は-1.520");
}

TEST(FormatSingle, SevenDigits) {
    EXPECT_EQ(FormatSingle(0.1F), u"0.1");
    EXPECT_EQ(FormatSingle(1.0F / 3), u"0.3333333");
    EXPECT_EQ(FormatSingle(90), u"90");
    EXPECT_EQ(FormatSingle(-0.0F), u"0");
    EXPECT_EQ(FormatSingle(9999999), u"9999999");
    EXPECT_EQ(FormatSingle(1e7F), u"1E+07");
    EXPECT_EQ(FormatSingle(12345678.0F), u"1.234568E+07");
    EXPECT_EQ(FormatSingle(0.00001F), u"1E-05");
}

TEST(RoundToText, IsWhatTheTextReadsBackAs) {
    EXPECT_EQ(RoundToText(0.1 + 0.2), 0.3);
    EXPECT_EQ(RoundToText(1e15 + 2), 1e15);
    EXPECT_EQ(RoundToText(-42), -42);
    EXPECT_FALSE(std::signbit(RoundToText(-0.0)));
    const double largest = std::numeric_limits<double>::max();
    EXPECT_EQ(RoundToText(largest), largest);
    EXPECT_TRUE(std::isnan(RoundToText(std::numeric_limits<double>::quiet_NaN())));
}

// The quick ways must agree with the library's correctly rounded text, digit for digit.
TEST(RoundToText, AgreesWithFormatAndParseOnRandomNumbers) {
    std::mt19937_64 random(20040506);
    std::uniform_real_distribution<double> power(-9, 16);
    for (int i = 0; i < 200000; ++i) {
        const bool anyMagnitude = i % 4 == 0;
        const double number = anyMagnitude ? RandomDouble(random)
                                           : std::pow(10, power(random)) * (i % 8 == 1 ? -1 : 1);
        const std::u16string text = FormatNumber(number);
        const std::optional<double> back = ParseNumber(text);
        if (!back) continue;
        ASSERT_EQ(RoundToText(number), *back) << Shown(text);
        ASSERT_EQ(FormatNumber(*back), text) << Shown(text);
        double canonical = -1;
        ASSERT_TRUE(IsCanonicalNumber(text, canonical)) << Shown(text);
        ASSERT_EQ(canonical, *back) << Shown(text);
    }
}

TEST(FormatNumber, AgreesWithScientificDigitsOnRandomNumbers) {
    std::mt19937_64 random(7);
    std::uniform_real_distribution<double> power(-7, 15);
    for (int i = 0; i < 100000; ++i) {
        const double number = std::pow(10, power(random));
        std::array<char, 40> buffer;
        const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number,
                                       std::chars_format::scientific, 14);
        double expected = 0;
        std::from_chars(buffer.data(), end.ptr, expected);
        ASSERT_EQ(RoundToText(number), expected) << number;
        ASSERT_EQ(ParseNumber(FormatNumber(number)), expected) << number;
    }
}

TEST(IsCanonicalNumber, TextsOfNumbers) {
    for (const NumberCase& one :
         std::vector<NumberCase>{{u"0", 0},
                                 {u"12", 12},
                                 {u"-0.5", -0.5},
                                 {u"-3", -3},
                                 {u"999999999999999", 999999999999999.0},
                                 {u"1E+15", 1e15},
                                 {u"1E-05", 1e-5},
                                 {u"-1.5E-300", -1.5e-300},
                                 {u"0.000123456789012345", 0.000123456789012345}}) {
        double number = -1;
        EXPECT_TRUE(IsCanonicalNumber(one.text, number)) << Shown(one.text);
        EXPECT_EQ(number, one.number) << Shown(one.text);
    }
}

TEST(IsCanonicalNumber, OtherTextsLeaveTheNumberAlone) {
    for (const std::u16string_view text : {u"",
                                           u"-",
                                           u"007",
                                           u"1.50",
                                           u"+5",
                                           u"1e3",
                                           u"1E3",
                                           u"-0",
                                           u"5.",
                                           u".5",
                                           u" 5",
                                           u"5 ",
                                           u"1,234",
                                           u"(5)",
                                           u"５",
                                           u"1000000000000000",
                                           u"0.00001",
                                           u"1E+5",
                                           u"abc",
                                           u"1a",
                                           u"3.333333333333333",
                                           u"00",
                                           u"0.0"}) {
        double number = 77;
        EXPECT_FALSE(IsCanonicalNumber(text, number)) << Shown(text);
        EXPECT_EQ(number, 77) << Shown(text);
    }
}

TEST(RoundPlaces15, TiesToEvenBelowEight) {
    EXPECT_EQ(RoundPlaces15(0.1 + 0.2), 0.3);
    EXPECT_EQ(RoundPlaces15(1e-16), 0);
    EXPECT_EQ(RoundPlaces15(6e-16), 1e-15);
    EXPECT_EQ(RoundPlaces15(-6e-16), -1e-15);
    EXPECT_EQ(RoundPlaces15(1e-300), 0);
    EXPECT_FALSE(std::signbit(RoundPlaces15(-1e-300)));
    // 1 + 2^-52 is 1.000000000000000222..., 1 + 3 * 2^-52 is 1.000000000000000666...
    EXPECT_EQ(RoundPlaces15(std::ldexp(1, -52) + 1), 1);
    EXPECT_EQ(RoundPlaces15(3 * std::ldexp(1, -52) + 1), 1.000000000000001);
}

TEST(RoundPlaces15, UnchangedFromEightOn) {
    const double third = 25.0 / 3;
    EXPECT_EQ(RoundPlaces15(third), third);
    EXPECT_EQ(RoundPlaces15(8), 8);
    EXPECT_EQ(RoundPlaces15(-1e300), -1e300);
    EXPECT_TRUE(std::isinf(RoundPlaces15(std::numeric_limits<double>::infinity())));
}

TEST(ToInt, NearestWithTiesToEven) {
    EXPECT_EQ(ToInt32(2.5), 2);
    EXPECT_EQ(ToInt32(3.5), 4);
    EXPECT_EQ(ToInt32(-2.5), -2);
    EXPECT_EQ(ToInt32(-0.6), -1);
    EXPECT_EQ(ToInt16(0.5), 0);
    EXPECT_EQ(ToInt16(1.5), 2);
}

TEST(ToInt, FailsOutsideTheRange) {
    EXPECT_EQ(ToInt32(2147483647.4), 2147483647);
    EXPECT_EQ(ToInt32(-2147483648.5), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(FailureOf([] { ToInt32(2147483647.5); }), 6);
    EXPECT_EQ(FailureOf([] { ToInt32(-2147483649.0); }), 6);
    EXPECT_EQ(ToInt16(32767.4), 32767);
    EXPECT_EQ(ToInt16(-32768.5), -32768);
    EXPECT_EQ(FailureOf([] { ToInt16(32767.5); }), 6);
    EXPECT_EQ(FailureOf([] { ToInt16(std::nan("")); }), 6);
    EXPECT_EQ(TryInt32(7.5), 8);
    EXPECT_FALSE(TryInt32(1e10).has_value());
    EXPECT_FALSE(TryInt32(std::nan("")).has_value());
}

TEST(ParseInt32, DecimalAndHexadecimal) {
    EXPECT_EQ(ParseInt32(u"12"), 12);
    EXPECT_EQ(ParseInt32(u"-3"), -3);
    EXPECT_EQ(ParseInt32(u"&hFF"), 255);
    EXPECT_EQ(ParseInt32(u"&Hff00"), 0xFF00);
    EXPECT_EQ(ParseInt32(u"&h"), 0);
    EXPECT_EQ(ParseInt32(u"&h8000000F"), std::numeric_limits<std::int32_t>::min() + 15);
    EXPECT_EQ(ParseInt32(u"&hFFFFFFFF"), -1);
}

TEST(ParseInt32, RefusesTheRest) {
    for (const std::u16string_view text :
         {u"", u"&", u"&hG", u"&h123456789", u"赤", u"3000000000", u"&h-1"}) {
        EXPECT_FALSE(ParseInt32(text).has_value()) << Shown(text);
    }
}

}  // namespace
}  // namespace velm
