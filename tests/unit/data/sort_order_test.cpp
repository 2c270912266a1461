// The orders of 並び替え against the plain algorithms that they must reproduce, swap for swap.
#include "data/sort_order.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace velm {
namespace {

// The plain selection sort: first least key, strictly less, swapped into place.
template <class Key, class Before>
SortOrder PlainSelection(std::vector<Key> keys, Before before) {
    SortOrder order = UnsortedOrder(keys.size());
    for (std::size_t i = 0; i + 1 < keys.size(); ++i) {
        std::size_t found = i;
        for (std::size_t j = i + 1; j < keys.size(); ++j) {
            if (before(keys[j], keys[found])) found = j;
        }
        std::swap(keys[i], keys[found]);
        std::swap(order[i], order[found]);
    }
    return order;
}

// The plain Shell sort, with its gaps worked out in floating point and its last pass at gap 0.
template <class Key>
SortOrder PlainShell(std::vector<Key> keys) {
    SortOrder order = UnsortedOrder(keys.size());
    const auto last = static_cast<long>(keys.size()) - 1;
    long gap = 1;
    while (gap <= last) gap = gap * 3 + 1;
    do {
        gap = static_cast<long>(static_cast<double>(gap) / 3 + 0.5);
        for (long i = gap; i <= last; ++i) {
            const Key held = keys[static_cast<std::size_t>(i)];
            const std::uint32_t place = order[static_cast<std::size_t>(i)];
            long j = i;
            while (gap > 0 && j >= gap && keys[static_cast<std::size_t>(j - gap)] > held) {
                keys[static_cast<std::size_t>(j)] = keys[static_cast<std::size_t>(j - gap)];
                order[static_cast<std::size_t>(j)] = order[static_cast<std::size_t>(j - gap)];
                j -= gap;
            }
            keys[static_cast<std::size_t>(j)] = held;
            order[static_cast<std::size_t>(j)] = place;
        }
    } while (gap != 0);
    return order;
}

std::vector<double> RandomNumbers(std::mt19937& random, std::size_t count, int range) {
    std::uniform_int_distribution<int> number(-range, range);
    std::vector<double> keys(count);
    for (double& key : keys) key = number(random) / 2.0;
    return keys;
}

std::u16string RandomText(std::mt19937& random) {
    std::uniform_int_distribution<int> length(0, 6);
    std::uniform_int_distribution<int> letter(0, 2);
    std::u16string text;
    for (int left = length(random); left > 0; --left) text += u"aあ\xFFFF"[letter(random)];
    return text;
}

std::vector<std::u16string_view> Views(const std::vector<std::u16string>& texts) {
    return {texts.begin(), texts.end()};
}

TEST(SortOrder, SelectionMovesEqualKeysAsTheSwapsDo) {
    // 2a 2b 1: the 1 changes places with 2a, which so comes behind 2b.
    EXPECT_EQ(SelectionOrder(RankNumbers({2, 2, 1})), (SortOrder{2, 1, 0}));
    // Nothing is swapped where the first least key already stands in its place.
    EXPECT_EQ(SelectionOrder(RankNumbers({1, 1, 2})), (SortOrder{0, 1, 2}));
    EXPECT_EQ(SelectionOrder(Reversed(RankNumbers({1, 1, 2}))), (SortOrder{2, 1, 0}));
}

TEST(SortOrder, EmptyAndSingle) {
    EXPECT_TRUE(SelectionOrder(RankNumbers({})).empty());
    EXPECT_TRUE(SelectionOrder(Reversed(RankNumbers({}))).empty());
    EXPECT_TRUE(ShellOrder(RankTexts({})).empty());
    EXPECT_EQ(SelectionOrder(RankNumbers({7})), (SortOrder{0}));
    EXPECT_EQ(ShellOrder(RankTexts({u"x"})), (SortOrder{0}));
}

TEST(SortOrder, SelectionAscendingIsThePlainOne) {
    std::mt19937 random(1);
    for (std::size_t count = 0; count < 400; ++count) {
        for (const int range : {0, 2, 10, 1000}) {
            const std::vector<double> keys = RandomNumbers(random, count, range);
            const auto less = [](double left, double right) { return left < right; };
            ASSERT_EQ(SelectionOrder(RankNumbers(keys)), PlainSelection(keys, less)) << count;
        }
    }
}

TEST(SortOrder, SelectionDescendingIsThePlainOne) {
    std::mt19937 random(2);
    for (std::size_t count = 0; count < 400; ++count) {
        for (const int range : {0, 2, 10, 1000}) {
            const std::vector<double> keys = RandomNumbers(random, count, range);
            const auto greater = [](double left, double right) { return left > right; };
            ASSERT_EQ(SelectionOrder(Reversed(RankNumbers(keys))), PlainSelection(keys, greater))
                << count;
        }
    }
}

TEST(SortOrder, ShellIsThePlainOne) {
    std::mt19937 random(3);
    for (std::size_t count = 0; count < 400; ++count) {
        std::vector<std::u16string> keys(count);
        for (std::u16string& key : keys) key = RandomText(random);
        ASSERT_EQ(ShellOrder(RankTexts(Views(keys))), PlainShell(keys)) << count;
    }
}

TEST(SortOrder, ShellIsNotStable) {
    // Gap 4 moves the first of the equal keys behind the others.
    EXPECT_EQ(ShellOrder(RankTexts({u"b", u"b", u"b", u"b", u"a"})), (SortOrder{4, 1, 2, 3, 0}));
}

TEST(SortOrder, LongRunsStayQuick) {
    std::mt19937 random(4);
    const std::vector<double> keys = RandomNumbers(random, 300'000, 20);
    const SortOrder order = SelectionOrder(RankNumbers(keys));
    for (std::size_t i = 1; i < order.size(); ++i) {
        ASSERT_LE(keys[order[i - 1]], keys[order[i]]);
    }
}

TEST(SortOrder, TextsCompareByUnits) {
    const std::vector<std::u16string> keys = {u"abcde",        u"abcd",   u"",   u"abcdd", u"B",
                                              u"\xD842\xDFB7", u"\xFF21", u"亜", u"ア",    u"あ"};
    EXPECT_EQ(RankTexts(Views(keys)).sorted, (SortOrder{2, 4, 1, 3, 0, 9, 8, 7, 5, 6}));
    // A NUL is a unit like any other.
    const std::vector<std::u16string> nuls = {std::u16string(2, u'\0'), std::u16string(1, u'\0'),
                                              u"", std::u16string(5, u'\0')};
    EXPECT_EQ(RankTexts(Views(nuls)).sorted, (SortOrder{2, 1, 0, 3}));
    EXPECT_TRUE(RankTexts(Views(nuls)).distinct);
}

// The places of keys as a stable sort gives them.
template <class Key>
SortOrder StableOrder(const std::vector<Key>& keys) {
    SortOrder order = UnsortedOrder(keys.size());
    std::stable_sort(order.begin(), order.end(),
                     [&](std::uint32_t a, std::uint32_t b) { return keys[a] < keys[b]; });
    return order;
}

TEST(SortOrder, ManyNumbersOfEveryKind) {
    std::mt19937 random(5);
    std::uniform_real_distribution<double> fraction(-1, 1);
    for (const double scale : {1.0, 3000.0, 1e14, 1e300}) {
        for (const bool whole : {false, true}) {
            std::vector<double> keys(3000);
            for (double& key : keys) {
                key = fraction(random) * scale;
                if (whole) key = std::trunc(key);
            }
            keys[7] = -0.0;
            keys[8] = 0;
            EXPECT_EQ(RankNumbers(keys).sorted, StableOrder(keys)) << scale << whole;
        }
    }
}

TEST(SortOrder, ManyTextsOfEveryKind) {
    std::mt19937 random(6);
    const std::u16string_view kUnits[] = {u"ab", u"0123456789", u"aあ亜\xFFFF\x0001\xD842\xDFB7"};
    for (const std::u16string_view units : kUnits) {
        for (const int longest : {2, 9, 90}) {
            std::uniform_int_distribution<int> length(0, longest);
            std::uniform_int_distribution<std::size_t> unit(0, units.size() - 1);
            std::vector<std::u16string> keys(3000);
            for (std::u16string& key : keys) {
                key = u"同じ始まりの";
                for (int left = length(random); left > 0; --left) key += units[unit(random)];
            }
            EXPECT_EQ(RankTexts(Views(keys)).sorted, StableOrder(keys)) << longest;
        }
    }
}

TEST(SortOrder, TextsThatContinueOneAnother) {
    std::vector<std::u16string> keys;
    for (std::size_t size = 1500; size-- > 0;) keys.emplace_back(size, u'\0');
    keys.push_back(keys.front());
    const KeyRanks ranks = RankTexts(Views(keys));
    EXPECT_EQ(ranks.sorted, StableOrder(keys));
    EXPECT_FALSE(ranks.distinct);
}

TEST(SortOrder, Ranks) {
    const KeyRanks ranks = RankNumbers({5, -1, 5, 0});
    EXPECT_EQ(ranks.ranks, (std::vector<std::uint32_t>{2, 0, 2, 1}));
    EXPECT_EQ(ranks.sorted, (SortOrder{1, 3, 0, 2}));
    EXPECT_FALSE(ranks.distinct);
    const KeyRanks reversed = Reversed(ranks);
    EXPECT_EQ(reversed.ranks, (std::vector<std::uint32_t>{0, 2, 0, 1}));
    EXPECT_EQ(reversed.sorted, (SortOrder{0, 2, 3, 1}));
}

}  // namespace
}  // namespace velm
