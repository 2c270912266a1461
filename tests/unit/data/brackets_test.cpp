// Bracket-aware searches: which positions are inside, and that a pair counts only when it is balanced
// in the whole text, however far behind the position its other half stands.
#include "data/brackets.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace velm {
namespace {

TEST(Brackets, AScannerAnswersFromLeftToRight) {
    BracketScanner scanner(u"a「b」c", kQuotes);
    EXPECT_FALSE(scanner.IsInside(0));
    EXPECT_TRUE(scanner.IsInside(1));
    EXPECT_TRUE(scanner.IsInside(2));
    EXPECT_FALSE(scanner.IsInside(3));
    EXPECT_FALSE(scanner.IsInside(4));
}

TEST(Brackets, AnUnbalancedPairCountsAsNone) {
    BracketScanner open(u"a「b", kQuotes);
    EXPECT_FALSE(open.IsInside(2));
    const std::u16string far(1000, u'x');
    const std::u16string closed = u"a「b" + far + u"」";
    EXPECT_TRUE(BracketScanner(closed, kQuotes).IsInside(2));
    const std::u16string opened = u"「a」b" + far + u"「";
    EXPECT_FALSE(BracketScanner(opened, kQuotes).IsInside(1));
}

TEST(Brackets, EachPairIsBalancedForItself) {
    BracketScanner scanner(u"（「a）b", kQuotesAndWide);
    EXPECT_TRUE(scanner.IsInside(2));
    EXPECT_FALSE(scanner.IsInside(4));
}

TEST(Brackets, NextCommaPassesOverBracketsAndTheFirstPosition) {
    EXPECT_EQ(NextComma(u"「a,b」,c", 1, false), 6U);
    EXPECT_EQ(NextComma(u"「a,b,c", 1, false), 3U);
    EXPECT_EQ(NextComma(u",a,b", 1, false), 3U);
    EXPECT_EQ(NextComma(u"a、b,c", 1, false), 4U);
    EXPECT_EQ(NextComma(u"a、b,c", 1, true), 2U);
    EXPECT_EQ(NextComma(u"a，b", 1, true), 2U);
    EXPECT_EQ(NextComma(u"abc", 1, true), 0U);
}

TEST(Brackets, MarksCutFromTheStart) {
    using Pieces = std::vector<std::u16string_view>;
    EXPECT_EQ(CutAtMark(u"a", u'＆', kQuotesAndRound), (Pieces{u"a"}));
    EXPECT_EQ(CutAtMark(u"", u'＆', kQuotesAndRound), (Pieces{u""}));
    EXPECT_EQ(CutAtMark(u"a＆b＆", u'＆', kQuotesAndRound), (Pieces{u"a", u"b", u""}));
    EXPECT_EQ(CutAtMark(u"「a＆b」＆（c＆d）", u'＆', kQuotesAndRound),
              (Pieces{u"「a＆b」", u"（c＆d）"}));
    // The closer without its opener leaves with the first piece: the rest is balanced.
    EXPECT_EQ(CutAtMark(u"）＆（a＆b）", u'＆', kQuotesAndRound), (Pieces{u"）", u"（a＆b）"}));
}

}  // namespace
}  // namespace velm
