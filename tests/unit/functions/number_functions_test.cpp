// The random numbers behind 乱数.
#include "functions/number_functions.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "core/tables.h"

namespace velm {
namespace {

// The first 64-bit numbers that the published generator gives for the seed 1234567.
TEST(Random, IsThePublishedGenerator) {
    constexpr double kOneIn53Bits = 1.0 / 9007199254740992.0;
    const std::array<std::uint64_t, 5> published = {6457827717110365317U, 3203168211198807973U,
                                                    9817491932198370423U, 4593380528125082431U,
                                                    16408922859458223821U};
    SeedRandom(1234567);
    for (const std::uint64_t bits : published) {
        EXPECT_EQ(NextRandom(), static_cast<double>(bits >> 11) * kOneIn53Bits);
    }
}

TEST(Random, ASeedGivesTheSameNumbersAgain) {
    SeedRandom(42);
    const double first = NextRandom();
    const double second = NextRandom();
    EXPECT_NE(first, second);
    SeedRandom(42);
    EXPECT_EQ(NextRandom(), first);
    EXPECT_EQ(NextRandom(), second);
    SeedRandom(43);
    EXPECT_NE(NextRandom(), first);
}

// 100,000 numbers in ten classes: each holds 10,000 give or take 100 (one standard deviation is 95);
// five deviations are allowed.
TEST(Random, NumbersAreSpreadEvenly) {
    constexpr int kCount = 100000;
    std::array<int, 10> classes = {};
    SeedRandom(1);
    for (int i = 0; i < kCount; ++i) {
        const double number = NextRandom();
        ASSERT_GE(number, 0.0);
        ASSERT_LT(number, 1.0);
        ++classes[static_cast<std::size_t>(number * 10)];
    }
    for (const int size : classes) EXPECT_NEAR(size, kCount / 10, 475);
}

}  // namespace
}  // namespace velm
