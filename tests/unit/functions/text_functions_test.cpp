// The text functions on texts of many lengths: what they make is written in blocks, or by steps of several
// units.
#include "functions/text_functions.h"

#include <gtest/gtest.h>

#include <string>

#include "core/eval.h"
#include "core/run_state.h"
#include "core/variables.h"
#include "core/velm.h"
#include "data/numbers.h"

namespace velm {
namespace {

class TextFunctionsTest : public testing::Test {
  protected:
    void SetUp() override {
        TheEngine();
        ResetRunState();
    }
    void TearDown() override {
        ResetRunState();
        run.Status = RunStatus::kIdle;
    }
    static std::u16string Of(std::u16string_view word) { return EvalText(word).Text(); }
};

std::u16string Repeated(std::u16string_view text, std::size_t times) {
    std::u16string out;
    for (std::size_t i = 0; i < times; ++i) out.append(text);
    return out;
}

TEST_F(TextFunctionsTest, RepeatedTextsOfEveryLength) {
    for (const std::size_t size : {0U, 1U, 2U, 7U, 63U, 4095U, 4096U, 4097U, 9000U}) {
        std::u16string text;
        for (std::size_t i = 0; i < size; ++i) text += static_cast<char16_t>(u'あ' + i % 83);
        SetVariable(u"T", Value(text));
        for (const std::size_t times : {0U, 1U, 2U, 3U, 5U, 130U}) {
            SetVariable(u"N", Value::OfInteger(static_cast<std::int64_t>(times)));
            ASSERT_EQ(Of(u"繰り返せ（N、T）"), Repeated(text, times)) << size << " " << times;
        }
    }
    EXPECT_EQ(Of(u"スペース（5000）"), std::u16string(5000, u' '));
}

TEST_F(TextFunctionsTest, ArgumentsKeepTheirTexts) {
    SetVariable(u"T", Value(u"aあz"));
    EXPECT_EQ(Of(u"大文字（T）"), u"AあZ");
    EXPECT_EQ(Of(u"置き換え（T、「あ」、T）"), u"aaあzz");
    EXPECT_EQ(Of(u"左（T、9）"), u"aあz");
    EXPECT_EQ(Of(u"T＆T＆5＆T"), u"aあzaあz5aあz");
    EXPECT_EQ(Of(u"T＆大文字（T）＆T＆T＆T＆T＆T"), u"aあzAあZaあzaあzaあzaあzaあz");
    EXPECT_EQ(Of(u"T"), u"aあz");
}

TEST_F(TextFunctionsTest, JoinsOfLongAndEmptyTexts) {
    for (const std::size_t size : {0U, 1U, 95U, 96U, 97U, 4096U, 4097U}) {
        const std::u16string text(size, u'字');
        SetVariable(u"T", Value(text));
        EXPECT_EQ(Of(u"T＆0.5＆T"), text + u"0.5" + text);
        EXPECT_EQ(Of(u"T＆「」＆T"), text + text);
        EXPECT_EQ(Of(u"「」＆T"), text);
        EXPECT_EQ(Of(u"T＆「」"), text);
        EXPECT_EQ(Of(u"左（T、1）＆T"), text.substr(0, 1) + text);
    }
}

TEST_F(TextFunctionsTest, SurrogatesCountAsTwoUnits) {
    SetVariable(u"T", Value(u"a😀b😀"));
    EXPECT_EQ(Of(u"文字数（T）"), u"6");
    EXPECT_EQ(Of(u"いくつ（T、「😀」）"), u"2");
    EXPECT_EQ(Of(u"探せ（3、T、「😀」）"), u"5");
    EXPECT_EQ(Of(u"置き換え（T、「😀」、「」）"), u"ab");
}

}  // namespace
}  // namespace velm
