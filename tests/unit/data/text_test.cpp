// Small operations on text.
#include "data/text.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace velm {
namespace {

using Views = std::vector<std::u16string_view>;

TEST(Text, TrimCutsHalfWidthBlanksOnly) {
    EXPECT_EQ(Trim(u"  a b  "), u"a b");
    EXPECT_EQ(Trim(u"\u3000a\u3000"), u"\u3000a\u3000");
    EXPECT_EQ(Trim(u"   "), u"");
    EXPECT_EQ(TrimLeft(u"  a  "), u"a  ");
    EXPECT_EQ(TrimRight(u"  a  "), u"  a");
}

TEST(Text, TrimRightByCount) {
    EXPECT_EQ(TrimRight(u"abc", 1), u"ab");
    EXPECT_EQ(TrimRight(u"abc", 3), u"");
    EXPECT_EQ(TrimRight(u"abc", 4), u"");
    EXPECT_EQ(TrimRight(u"abc", 0), u"abc");
}

TEST(Text, ReplaceAllDoesNotLookIntoWhatItPut) {
    EXPECT_EQ(ReplaceAll(u"aaa", u"a", u"aa"), u"aaaaaa");
    EXPECT_EQ(ReplaceAll(u"aaa", u"aa", u"b"), u"ba");
    EXPECT_EQ(ReplaceAll(u"abc", u"", u"x"), u"abc");
    EXPECT_EQ(ReplaceAll(u"", u"a", u"x"), u"");
    EXPECT_EQ(ReplaceAll(u"abab", u"b", u""), u"aa");
}

TEST(Text, SplitGivesAtLeastOnePart) {
    EXPECT_EQ(Split(u"", u","), Views({u""}));
    EXPECT_EQ(Split(u"a,,b", u","), Views({u"a", u"", u"b"}));
    EXPECT_EQ(Split(u",", u","), Views({u"", u""}));
    EXPECT_EQ(SplitLines(u"a\r\nb\nc\r\n"), Views({u"a", u"b\nc", u""}));
}

TEST(Text, JoinIsTheWayBack) {
    EXPECT_EQ(Join({u"a", u"", u"b"}, u","), u"a,,b");
    EXPECT_EQ(Join({}, u","), u"");
    EXPECT_EQ(Join({u"a"}, u","), u"a");
}

TEST(Text, CountOf) {
    EXPECT_EQ(CountOf(u"aaaa", u"aa"), 2U);
    EXPECT_EQ(CountOf(u"abc", u"x"), 0U);
    EXPECT_EQ(CountOf(u"abc", u""), 0U);
    EXPECT_EQ(CountOf(u"で,から,して", u","), 2U);
}

TEST(Text, NthTokenCountsFromOne) {
    EXPECT_EQ(NthToken(u"a,b,c", u",", 1), 2U);
    EXPECT_EQ(NthToken(u"a,b,c", u",", 2), 4U);
    EXPECT_EQ(NthToken(u"a,b,c", u",", 3), 0U);
    EXPECT_EQ(NthToken(u"a,b,c", u",", 0), 0U);
}

TEST(Text, BeforeNul) {
    EXPECT_EQ(BeforeNul(std::u16string_view(u"ab\0c", 4)), u"ab");
    EXPECT_EQ(BeforeNul(u"ab"), u"ab");
}

TEST(Text, StripPairNeedsBothEnds) {
    EXPECT_EQ(StripPair(u"「a」", u"「", u"」"), u"a");
    EXPECT_EQ(StripPair(u"「a", u"「", u"」"), u"「a");
    EXPECT_EQ(StripPair(u"a」", u"「", u"」"), u"a」");
    EXPECT_EQ(StripPair(u"\"\"", u"\"", u"\""), u"");
    EXPECT_EQ(StripPair(u"\"", u"\"", u"\""), u"\"");
}

TEST(Text, BetweenPair) {
    EXPECT_EQ(BetweenPair(u"x<a>y<b>", 0, u"<", u">", false), u"a");
    EXPECT_EQ(BetweenPair(u"x<a>y<b>", 2, u"<", u">", false), u"b");
    EXPECT_EQ(BetweenPair(u"x<a>y<b>", 0, u"<", u">", true), u"<a>");
    EXPECT_EQ(BetweenPair(u"x<a", 0, u"<", u">", true), u"");
    EXPECT_EQ(BetweenPair(u"x", 0, u"<", u">", false), u"");
}

TEST(Text, BoolText) {
    EXPECT_EQ(BoolText(true), u"1");
    EXPECT_EQ(BoolText(false), u"0");
}

TEST(Text, PathsAsScriptsWriteThem) {
    EXPECT_EQ(FileNameOf(u"a/b\\c"), u"c");
    EXPECT_EQ(FileNameOf(u"a\\b/c"), u"c");
    EXPECT_EQ(FileNameOf(u"abc"), u"abc");
    EXPECT_EQ(FileNameOf(u"a\\"), u"");
    EXPECT_EQ(FolderOf(u"a/b"), u"");
    EXPECT_EQ(FolderOf(u"C:\\a\\b.txt"), u"C:\\a\\");
    EXPECT_EQ(ExtensionOf(u"a.b.TXT"), u"txt");
    EXPECT_EQ(ExtensionOf(u"abc"), u"");
    EXPECT_EQ(WithBackslash(u"C:\\a"), u"C:\\a\\");
    EXPECT_EQ(WithBackslash(u"C:\\"), u"C:\\");
}

TEST(FindText, AnswersAsTheStandardSearchAtEveryPlace) {
    for (std::size_t before = 0; before < 20; ++before) {
        const std::u16string text =
            std::u16string(before, u'a') + u"桜の" + std::u16string(11, u'桜') + u"木";
        for (const std::u16string_view needle :
             {u"桜", u"桜の", u"桜木", u"木", u"無", u"の桜", u""}) {
            for (std::size_t from = 0; from <= text.size() + 1; ++from) {
                EXPECT_EQ(FindText(text, needle, from), text.find(needle, from)) << before << from;
            }
        }
    }
}

// What the searches do, unit by unit.
struct PlainSearch {
    std::u16string replaced;
    std::vector<std::size_t> places;

    PlainSearch(std::u16string_view text, std::u16string_view needle,
                std::u16string_view replacement) {
        for (std::size_t at = 0; at < text.size();) {
            if (!needle.empty() && text.substr(at).starts_with(needle)) {
                places.push_back(at);
                replaced.append(replacement);
                at += needle.size();
            } else {
                replaced += text[at++];
            }
        }
    }
};

std::u16string RandomText(std::mt19937& random, std::size_t size, std::u16string_view units) {
    std::u16string text(size, u' ');
    for (char16_t& unit : text) unit = units[random() % units.size()];
    return text;
}

// Few different units, so that occurrences meet, overlap and end where a step of eight ends.
TEST(FindText, EverySearchAnswersAsAWalkUnitByUnit) {
    std::mt19937 random(7);
    const std::u16string_view units = u"ab\xD83D\xDE00";
    for (int round = 0; round < 4000; ++round) {
        const std::u16string text = RandomText(random, random() % 45, units);
        const std::u16string needle = RandomText(random, random() % 12, units);
        const std::u16string put = RandomText(random, random() % 4, units);
        const PlainSearch plain(text, needle, put);
        ASSERT_EQ(CountOf(text, needle), plain.places.size());
        ASSERT_EQ(ReplaceAll(text, needle, put), plain.replaced);
        ASSERT_EQ(Split(text, needle).size(), plain.places.size() + 1);
        for (std::size_t n = 1; n <= plain.places.size(); ++n) {
            ASSERT_EQ(NthToken(text, needle, n), plain.places[n - 1] + 1);
        }
        ASSERT_EQ(NthToken(text, needle, plain.places.size() + 1), 0U);
    }
}

TEST(FindText, LooksNowhereBehindTheText) {
    EXPECT_EQ(FindText(u"0123456789", u"9", kNotFound), kNotFound);
    EXPECT_EQ(FindText(u"0123456789", u"9", kNotFound - 4), kNotFound);
    EXPECT_EQ(FindText(std::u16string_view(u"0123456789").substr(0, 9), u"89"), kNotFound);
}

TEST(Text, AppendReplacedKeepsWhatIsThere) {
    std::u16string out = u"x";
    AppendReplaced(out, u"abab", u"b", u"--");
    AppendReplaced(out, u"ab", u"", u"--");
    AppendReplaced(out, u"", u"b", u"--");
    EXPECT_EQ(out, u"xa--a--ab");
}

}  // namespace
}  // namespace velm
