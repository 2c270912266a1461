// Matching: what patterns mean, what is cut off, and that compiled patterns are kept.
#include "platform/regex.h"

#include <gtest/gtest.h>

#include <string>

#include "data/failure.h"
#include "data/numbers.h"
#include "data/pattern_syntax.h"

namespace velm {
namespace {

// The first match with letter case, or "-" without one.
std::u16string First(std::u16string_view pattern, std::u16string_view text) {
    RegexMatch match;
    if (!CompileRegex(pattern, RegexCase::kExact)->Search(text, 0, match)) return u"-";
    return std::u16string(match[0].Of(text));
}

int CutOff(std::u16string_view pattern, const std::u16string& text) {
    try {
        RegexTest(pattern, text);
    } catch (const Failure& failed) {
        return failed.Number();
    }
    return 0;
}

TEST(Regex, PlainPatterns) {
    EXPECT_EQ(First(u"b.d", u"abcde"), u"bcd");
    EXPECT_EQ(First(u"x", u"abc"), u"-");
    EXPECT_EQ(First(u"", u"abc"), u"");
    EXPECT_EQ(First(u"a{2,3}", u"aaaa"), u"aaa");
    EXPECT_EQ(First(u"a{2,3}?", u"aaaa"), u"aa");
    EXPECT_EQ(First(u"[]a]", u"a]"), u"-");
    EXPECT_EQ(First(u"[^]", u"\n"), u"\n");
}

TEST(Regex, EndsAndLines) {
    EXPECT_EQ(First(u"b$", u"b\n"), u"-");
    EXPECT_EQ(First(u"^b", u"a\nb"), u"-");
    EXPECT_EQ(First(u".+", u"ab\r\nc"), u"ab\r");
    EXPECT_EQ(First(u".+", u"\x2028"), u"\x2028");
}

TEST(Regex, ClassesAreAscii) {
    EXPECT_EQ(First(u"\\d+", u"１2"), u"2");
    EXPECT_EQ(First(u"\\w+", u"あa_1é"), u"a_1");
    EXPECT_EQ(First(u"\\s", u"　\xA0"), u"-");
    EXPECT_EQ(First(u"\\s+", u"a \t\v\f\r\nb"), u" \t\v\f\r\n");
    EXPECT_EQ(First(u"\\bb", u"あb"), u"b");
    EXPECT_EQ(First(u"\\Bb", u"b ab"), u"b");
    EXPECT_EQ(First(u"[\\D]+", u"12あx3"), u"あx");
}

TEST(Regex, UnitsAreUnits) {
    EXPECT_EQ(First(u".", u"\xD842\xDFB7"), u"\xD842");
    EXPECT_EQ(First(u"[\\uD842]", u"x\xD842"), u"\xD842");
    EXPECT_EQ(First(u"\\uDFB7$", u"\xD842\xDFB7"), u"\xDFB7");
}

TEST(Regex, LetterCase) {
    EXPECT_TRUE(RegexTest(u"ABC", u"xabcx"));
    EXPECT_TRUE(RegexTest(u"[ａ-ｃ]", u"Ｂ"));
    EXPECT_TRUE(RegexTest(u"ж", u"Ж"));
    EXPECT_TRUE(RegexTest(u"(a)\\1", u"xaA"));
    EXPECT_EQ(First(u"ABC", u"abc"), u"-");
    EXPECT_FALSE(RegexTest(u"[\\W]", u"sk"));
}

TEST(Regex, Groups) {
    RegexMatch match;
    const std::u16string text = u"xaby";
    ASSERT_TRUE(CompileRegex(u"(a)(b)?(c)?", RegexCase::kExact)->Search(text, 0, match));
    ASSERT_EQ(match.size(), 4U);
    EXPECT_EQ(match[0].from, 1U);
    EXPECT_EQ(match[0].to, 3U);
    EXPECT_EQ(match[2].Of(text), u"b");
    EXPECT_FALSE(match[3].IsSet());
    EXPECT_EQ(match[3].Of(text), u"");
}

TEST(Regex, AGroupThatTookNoPartMatchesNothing) {
    EXPECT_EQ(First(u"(a)?b\\1c", u"bc"), u"bc");
    EXPECT_EQ(First(u"(?=(a))ab", u"ab"), u"ab");
    EXPECT_EQ(First(u"a(?!b).", u"abac"), u"ac");
}

TEST(Regex, SearchFromAPlaceSeesWhatStandsBefore) {
    RegexMatch match;
    const auto regex = CompileRegex(u"^a|\\Bb", RegexCase::kExact);
    EXPECT_TRUE(regex->Search(u"ab", 1, match));
    EXPECT_EQ(match[0].from, 1U);
    EXPECT_FALSE(regex->Search(u"aa", 1, match));
    EXPECT_FALSE(regex->Search(u"aa", 2, match));
}

TEST(Regex, LongTexts) {
    std::u16string text(1'000'000, u'a');
    text += u"bc";
    EXPECT_EQ(First(u"b", text), u"b");
    EXPECT_EQ(First(u"a*b", text).size(), 1'000'001U);
    EXPECT_EQ(First(u"(?:a|b)*c", text).size(), 1'000'002U);
    EXPECT_EQ(First(u"c$", text), u"c");
    EXPECT_EQ(First(u"[xy]+", text), u"-");
}

TEST(Regex, EndlessPatternsAreCutOff) {
    EXPECT_EQ(CutOff(u"(a+)+$", std::u16string(40, u'a') + u"c"), failure::kOutOfStack);
    EXPECT_EQ(CutOff(u"(a|aa)+$", std::u16string(80, u'a') + u"c"), failure::kOutOfStack);
    EXPECT_EQ(CutOff(u"(x+x+)+y?$", std::u16string(60, u'x') + u"z"), failure::kOutOfStack);
}

TEST(Regex, PatternsTooLargeAreWrong) {
    EXPECT_EQ(CutOff(u"((a{9999}){9999}){9999}", u"a"), pattern_error::kSyntax);
    EXPECT_EQ(CutOff(std::u16string(5000, u'(') + std::u16string(5000, u')'), u"a"),
              pattern_error::kSyntax);
}

TEST(Regex, CompiledPatternsAreKept) {
    const auto first = CompileRegex(u"kept", RegexCase::kExact);
    EXPECT_EQ(CompileRegex(u"kept", RegexCase::kExact), first);
    EXPECT_NE(CompileRegex(u"kept", RegexCase::kIgnore), first);
    for (int i = 0; i < 100; ++i) CompileRegex(u"p" + FormatNumber(i), RegexCase::kExact);
    EXPECT_NE(CompileRegex(u"kept", RegexCase::kExact), first);
    RegexMatch match;
    EXPECT_TRUE(first->Search(u"kept", 0, match));
}

}  // namespace
}  // namespace velm
