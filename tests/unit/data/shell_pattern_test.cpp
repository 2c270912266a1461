// Matching of file name patterns, element by element.
#include "data/shell_pattern.h"

#include <gtest/gtest.h>

#include <string>

namespace velm {
namespace {

TEST(ShellPattern, PlainTextMatchesItself) {
    EXPECT_TRUE(MatchesShellPattern(u"a.txt", u"a.txt"));
    EXPECT_FALSE(MatchesShellPattern(u"a.txt", u"a.tx"));
    EXPECT_FALSE(MatchesShellPattern(u"a.tx", u"a.txt"));
    EXPECT_FALSE(MatchesShellPattern(u"A.txt", u"a.txt"));
    EXPECT_TRUE(MatchesShellPattern(u"", u""));
    EXPECT_FALSE(MatchesShellPattern(u"a", u""));
}

TEST(ShellPattern, StarStandsForAnyRun) {
    EXPECT_TRUE(MatchesShellPattern(u"", u"*"));
    EXPECT_TRUE(MatchesShellPattern(u"写し.txt", u"*.txt"));
    EXPECT_TRUE(MatchesShellPattern(u"aXbXc", u"a*b*c"));
    EXPECT_TRUE(MatchesShellPattern(u"aab", u"*ab"));
    EXPECT_FALSE(MatchesShellPattern(u"aab", u"*aab*a"));
    EXPECT_FALSE(MatchesShellPattern(u"readme", u"*.*"));
    EXPECT_TRUE(MatchesShellPattern(u".profile", u"*.*"));
}

TEST(ShellPattern, QuestionMarkAndNumberSign) {
    EXPECT_TRUE(MatchesShellPattern(u"r01.md", u"r??.md"));
    EXPECT_FALSE(MatchesShellPattern(u"r1.md", u"r??.md"));
    EXPECT_TRUE(MatchesShellPattern(u"v7.dat", u"v#.dat"));
    EXPECT_FALSE(MatchesShellPattern(u"vx.dat", u"v#.dat"));
    EXPECT_FALSE(MatchesShellPattern(u"v７.dat", u"v#.dat"));
}

TEST(ShellPattern, Sets) {
    EXPECT_TRUE(MatchesShellPattern(u"b", u"[abc]"));
    EXPECT_FALSE(MatchesShellPattern(u"d", u"[abc]"));
    EXPECT_TRUE(MatchesShellPattern(u"m", u"[a-z]"));
    EXPECT_TRUE(MatchesShellPattern(u"5", u"[a-c0-9]"));
    EXPECT_FALSE(MatchesShellPattern(u"-", u"[a-c0-9]"));
    EXPECT_TRUE(MatchesShellPattern(u"-", u"[-a]"));
    EXPECT_TRUE(MatchesShellPattern(u"-", u"[a-]"));
    EXPECT_TRUE(MatchesShellPattern(u"x", u"[!a-c]"));
    EXPECT_FALSE(MatchesShellPattern(u"b", u"[!a-c]"));
    EXPECT_FALSE(MatchesShellPattern(u"", u"[!a-c]"));
    EXPECT_TRUE(MatchesShellPattern(u"う", u"[あ-お]"));
    EXPECT_TRUE(MatchesShellPattern(u"*", u"[*]"));
    EXPECT_FALSE(MatchesShellPattern(u"x", u"[*]"));
    EXPECT_TRUE(MatchesShellPattern(u"!", u"[!]"));
}

TEST(ShellPattern, EmptyAndUnclosedSets) {
    EXPECT_TRUE(MatchesShellPattern(u"ab", u"a[]b"));
    EXPECT_TRUE(MatchesShellPattern(u"a", u"a[]"));
    EXPECT_TRUE(MatchesShellPattern(u"a[1", u"a[1"));
    EXPECT_FALSE(MatchesShellPattern(u"a1", u"a[1"));
    EXPECT_TRUE(MatchesShellPattern(u"a]", u"a]"));
    EXPECT_TRUE(MatchesShellPattern(u"xxa", u"*[]a"));
}

TEST(ShellPattern, ManyStarsStayCheap) {
    const std::u16string text(20000, u'a');
    std::u16string pattern;
    for (int i = 0; i < 50; ++i) pattern += u"*a";
    EXPECT_FALSE(MatchesShellPattern(text, pattern + u"b"));
    EXPECT_TRUE(MatchesShellPattern(text, pattern));
}

}  // namespace
}  // namespace velm
