// Arithmetic.
#include "core/expression.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>

#include "core/run_state.h"
#include "core/velm.h"
#include "data/numbers.h"

namespace velm {
namespace {

class ExpressionTest : public testing::Test {
  protected:
    void SetUp() override {
        TheEngine();
        ResetRunState();
    }
    void TearDown() override {
        ResetRunState();
        run.Status = RunStatus::kIdle;
    }
};

TEST_F(ExpressionTest, PrioritiesAndBrackets) {
    EXPECT_EQ(Calculate(u"1+2*3"), 7);
    EXPECT_EQ(Calculate(u"(1+2)*3"), 9);
    EXPECT_EQ(Calculate(u"（1＋2）×3"), 9);
    EXPECT_EQ(Calculate(u"-2^2"), -4);
    EXPECT_EQ(Calculate(u"2^3^2"), 64);
    EXPECT_EQ(Calculate(u"2*(3-(4-5))"), 8);
    EXPECT_EQ(Calculate(u"((((7))))"), 7);
}

TEST_F(ExpressionTest, MissingOperandsPassOver) {
    EXPECT_EQ(Calculate(u"2*-3"), 3);
    EXPECT_EQ(Calculate(u"2+"), 2);
    EXPECT_EQ(Calculate(u"2*/3"), 3);
    EXPECT_EQ(Calculate(u"+"), 0);
    EXPECT_EQ(Calculate(u""), 0);
}

TEST_F(ExpressionTest, FailuresLeaveTheLeftOperand) {
    EXPECT_EQ(Calculate(u"5/0"), 5);
    EXPECT_EQ(Calculate(u"5%0"), 5);
    EXPECT_EQ(Calculate(u"5\\0"), 5);
    EXPECT_EQ(Calculate(u"2147483648%7"), 2147483648.0);
    EXPECT_EQ(Calculate(u"1e308*10"), 1e308);
    EXPECT_EQ(Calculate(u"(0-8)^0.5"), -8);
}

TEST_F(ExpressionTest, WholeNumberSigns) {
    EXPECT_EQ(Calculate(u"7%3"), 1);
    EXPECT_EQ(Calculate(u"-7%3"), -1);
    EXPECT_EQ(Calculate(u"7%-3"), 3);
    EXPECT_EQ(Calculate(u"-7\\2"), -3);
    EXPECT_EQ(Calculate(u"2.5%2"), 0);
    EXPECT_EQ(Calculate(u"3.5\\1"), 4);
}

TEST_F(ExpressionTest, FifteenDecimalPlaces) {
    EXPECT_EQ(Calculate(u"0.1+0.2"), 0.3);
    EXPECT_EQ(Calculate(u"10^-20"), 20);
    EXPECT_EQ(Calculate(u"1/10^20"), 0);
}

// A random expression of small numbers and its value by recursive descent from the left.
class Maker {
  public:
    explicit Maker(unsigned seed) : random_(seed) {}

    double Sum(std::u16string& text, int depth) {
        double value = Product(text, depth);
        while (random_() % 2 == 0) {
            const bool plus = random_() % 2 == 0;
            text += plus ? u'+' : u'-';
            const double right = Product(text, depth);
            value = plus ? value + right : value - right;
        }
        return value;
    }

  private:
    std::mt19937 random_;

    double Product(std::u16string& text, int depth) {
        double value = Factor(text, depth);
        while (random_() % 3 == 0) {
            text += u'*';
            value *= Factor(text, depth);
        }
        return value;
    }
    double Factor(std::u16string& text, int depth) {
        if (depth > 0 && random_() % 3 == 0) {
            text += u'(';
            const double value = Sum(text, depth - 1);
            text += u')';
            return value;
        }
        const int number = static_cast<int>(random_() % 10);
        text += FormatNumber(number);
        return number;
    }
};

TEST_F(ExpressionTest, AgreesWithTheUsualReading) {
    for (unsigned seed = 0; seed < 2000; ++seed) {
        std::u16string text;
        const double value = Maker(seed).Sum(text, 4);
        if (std::abs(value) > 1e12) continue;
        ASSERT_EQ(Calculate(text), value) << FormatNumber(seed).size();
    }
}

TEST_F(ExpressionTest, LongAndDeepTexts) {
    std::u16string sum = u"0";
    for (int i = 0; i < 5000; ++i) sum += u"+1";
    EXPECT_EQ(Calculate(sum), 5000);
    const std::u16string deep = std::u16string(2000, u'(') + u"3" + std::u16string(2000, u')');
    EXPECT_EQ(Calculate(deep), 3);
}

}  // namespace
}  // namespace velm
