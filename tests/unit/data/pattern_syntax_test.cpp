// Checking and rewriting patterns, and replacement texts.
#include "data/pattern_syntax.h"

#include <gtest/gtest.h>

#include <string>

#include "data/failure.h"

namespace velm {
namespace {

int ErrorOf(std::u16string_view pattern) {
    try {
        RewritePattern(pattern);
    } catch (const Failure& failed) {
        return failed.Number();
    }
    return 0;
}

std::u16string Replaced(std::u16string_view replacement, std::u16string_view text,
                        const RegexMatch& match) {
    std::u16string out;
    AppendReplacement(out, replacement, text, match);
    return out;
}

TEST(PatternSyntax, LettersDigitsAndJapaneseStay) {
    EXPECT_EQ(RewritePattern(u"abc012漢字"), u"abc012漢字");
    EXPECT_EQ(RewritePattern(u""), u"");
}

TEST(PatternSyntax, OtherSignsBecomeNumbers) {
    EXPECT_EQ(RewritePattern(u"a-b"), u"a\\x{2d}b");
    EXPECT_EQ(RewritePattern(u"]}"), u"\\x{5d}\\x{7d}");
    EXPECT_EQ(RewritePattern(u"#_"), u"\\x{23}\\x{5f}");
}

TEST(PatternSyntax, Operators) {
    EXPECT_EQ(RewritePattern(u"^a.b|c$"), u"^a.b|c$");
    EXPECT_EQ(RewritePattern(u"(a)(?:b)(?=c)(?!d)"), u"(a)(?:b)(?=c)(?!d)");
    EXPECT_EQ(RewritePattern(u"a*b+c?"), u"a*b+c?");
    EXPECT_EQ(RewritePattern(u"a*?b+?c??"), u"a*?b+?c??");
}

TEST(PatternSyntax, Braces) {
    EXPECT_EQ(RewritePattern(u"a{2}"), u"a{2,2}");
    EXPECT_EQ(RewritePattern(u"a{2,}?"), u"a{2,}?");
    EXPECT_EQ(RewritePattern(u"a{0,12}"), u"a{0,12}");
    EXPECT_EQ(RewritePattern(u"a{1,99999}"), u"a{1,}");
    EXPECT_EQ(RewritePattern(u"a{"), u"a\\x{7b}");
    EXPECT_EQ(RewritePattern(u"a{,2}"), u"a\\x{7b}\\x{2c}2\\x{7d}");
    EXPECT_EQ(RewritePattern(u"{x}"), u"\\x{7b}x\\x{7d}");
    EXPECT_EQ(RewritePattern(u"a{1,2"), u"a\\x{7b}1\\x{2c}2");
}

TEST(PatternSyntax, CharacterEscapes) {
    EXPECT_EQ(RewritePattern(u"\\f\\n\\r\\t\\v"), u"\\x{c}\\x{a}\\x{d}\\x{9}\\x{b}");
    EXPECT_EQ(RewritePattern(u"\\x41\\u3042"), u"Aあ");
    EXPECT_EQ(RewritePattern(u"\\xZ\\u12"), u"xZu12");
    EXPECT_EQ(RewritePattern(u"\\cA\\cj\\c1"), u"\\x{1}\\x{a}c1");
    EXPECT_EQ(RewritePattern(u"\\0\\101\\400"), u"\\x{0}A\\x{20}0");
    EXPECT_EQ(RewritePattern(u"\\.\\\\\\/\\q"), u"\\x{2e}\\x{5c}\\x{2f}q");
}

TEST(PatternSyntax, ClassEscapes) {
    EXPECT_EQ(RewritePattern(u"\\d"), u"[0-9]");
    EXPECT_EQ(RewritePattern(u"\\w+"), u"[0-9A-Z_a-z]+");
    EXPECT_EQ(RewritePattern(u"\\s"), u"[\\x{9}-\\x{d}\\x{20}]");
    EXPECT_EQ(RewritePattern(u"\\D"), u"[\\x{0}-\\x{2f}\\x{3a}-\\x{ffff}]");
    EXPECT_EQ(RewritePattern(u"\\S"), u"[\\x{0}-\\x{8}\\x{e}-\\x{1f}\\x{21}-\\x{ffff}]");
}

TEST(PatternSyntax, NumbersAreGroupsWhereThereAreSoMany) {
    EXPECT_EQ(RewritePattern(u"(a)\\1"), u"(a)\\g{1}");
    EXPECT_EQ(RewritePattern(u"\\1(a)"), u"\\g{1}(a)");
    EXPECT_EQ(RewritePattern(u"(a)\\2"), u"(a)\\x{2}");
    EXPECT_EQ(RewritePattern(u"\\8"), u"8");
    EXPECT_EQ(RewritePattern(u"(?:a)\\1"), u"(?:a)\\x{1}");
    // Parentheses in a class or behind a backslash are no groups.
    EXPECT_EQ(RewritePattern(u"[(]\\(\\1"), u"[\\x{28}]\\x{28}\\x{1}");
}

TEST(PatternSyntax, Classes) {
    EXPECT_EQ(RewritePattern(u"[a-zあ-ん]"), u"[a-zあ-ん]");
    EXPECT_EQ(RewritePattern(u"[^\\d,]"), u"[^0-9\\x{2c}]");
    EXPECT_EQ(RewritePattern(u"[a-]"), u"[a\\x{2d}]");
    EXPECT_EQ(RewritePattern(u"[-a]"), u"[\\x{2d}a]");
    EXPECT_EQ(RewritePattern(u"[\\w-z]"), u"[0-9A-Z_a-z\\x{2d}z]");
    EXPECT_EQ(RewritePattern(u"[\\b[:alpha:]"), u"[\\x{8}\\x{5b}\\x{3a}alpha\\x{3a}]");
    EXPECT_EQ(RewritePattern(u"[\\]\\x41-\\u0043]"), u"[\\x{5d}A-C]");
    EXPECT_EQ(RewritePattern(u"[]"), u"(?:(?!))");
    EXPECT_EQ(RewritePattern(u"[^]"), u"[\\x{0}-\\x{ffff}]");
}

TEST(PatternSyntax, WrongPatterns) {
    for (const char16_t* pattern :
         {u"*", u"a**", u"a+*", u"(+)", u"a|?", u"^*", u"$+", u"\\b*", u"{2}", u"a{2}{3}",
          u"a{3,2}", u"a{70000}", u"(?<n>a)", u"(?i)a", u"(*UTF)", u"a++"}) {
        EXPECT_EQ(ErrorOf(pattern), pattern_error::kQuantifier) << std::u16string(pattern).size();
    }
    EXPECT_EQ(ErrorOf(u"(a"), pattern_error::kOpenGroup);
    EXPECT_EQ(ErrorOf(u"a)"), pattern_error::kSyntax);
    EXPECT_EQ(ErrorOf(u"a\\"), pattern_error::kSyntax);
    EXPECT_EQ(ErrorOf(u"[a"), pattern_error::kOpenClass);
    EXPECT_EQ(ErrorOf(u"[a\\"), pattern_error::kOpenClass);
    EXPECT_EQ(ErrorOf(u"[z-a]"), pattern_error::kRange);
}

TEST(PatternSyntax, EachErrorHasItsDescription) {
    const int numbers[] = {pattern_error::kSyntax, pattern_error::kQuantifier,
                           pattern_error::kOpenClass, pattern_error::kOpenGroup,
                           pattern_error::kRange};
    std::u16string before;
    for (const int number : numbers) {
        const Failure failed = PatternFailure(number);
        EXPECT_EQ(failed.Number(), number);
        EXPECT_FALSE(failed.Description().empty());
        EXPECT_NE(failed.Description(), before);
        before = failed.Description();
    }
}

TEST(PatternSyntax, Replacements) {
    const std::u16string text = u"abcde";
    const RegexMatch match = {{1, 4}, {1, 2}, {}, {3, 4}};  // bcd, b, none, d
    EXPECT_EQ(Replaced(u"", text, match), u"");
    EXPECT_EQ(Replaced(u"x", text, match), u"x");
    EXPECT_EQ(Replaced(u"$&-$1-$2-$3", text, match), u"bcd-b--d");
    EXPECT_EQ(Replaced(u"$`|$'", text, match), u"a|e");
    EXPECT_EQ(Replaced(u"$$1", text, match), u"$1");
    EXPECT_EQ(Replaced(u"$4$0$x$", text, match), u"$4$0$x$");
    EXPECT_EQ(Replaced(u"$01$12$00", text, match), u"bb2$00");
}

TEST(PatternSyntax, ReplacementsWithManyGroups) {
    RegexMatch match(13, RegexSpan{0, 1});
    match[12] = {1, 2};
    EXPECT_EQ(Replaced(u"$12$13", u"ab", match), u"ba3");
}

}  // namespace
}  // namespace velm
