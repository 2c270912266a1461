// Lists of words and colour words.
#include "core/word_lists.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/eval.h"
#include "core/variables.h"
#include "core/velm.h"
#include "data/failure.h"
#include "data/resources.h"

namespace velm {
namespace {

using Texts = std::vector<std::u16string>;

class WordListsTest : public testing::Test {
  protected:
    void SetUp() override {
        TheEngine();
        ResetRunState();
    }
    void TearDown() override {
        ResetRunState();
        run.Status = RunStatus::kIdle;
    }
    static std::int32_t Color(std::u16string_view word) { return ParseColor(Word(word)); }
};

TEST_F(WordListsTest, SplitOutsideBrackets) {
    EXPECT_EQ(velm::SplitOutsideBrackets(u"甲の「乙の」の丙", u"の", false),
              Texts({u"甲", u"「乙の」", u"丙"}));
    EXPECT_EQ(velm::SplitOutsideBrackets(u"1+1の「a」", u"の", true), Texts({u"2", u"a"}));
    EXPECT_EQ(velm::SplitOutsideBrackets(u"a\tbのc", u"の", false), Texts({u"a", u"b", u"c"}));
    EXPECT_EQ(velm::SplitOutsideBrackets(u"", u"の", false), Texts({u""}));
}

TEST_F(WordListsTest, SplitListEscapesItsItems) {
    EXPECT_EQ(SplitList(u"「a,b」、1+1", true), Texts({u"a{**}b", u"2"}));
    EXPECT_EQ(SplitList(u"「a,b」", true), Texts({u"a,b"}));
    EXPECT_EQ(SplitList(u"甲、 乙 ，丙", false), Texts({u"甲", u"乙", u"丙"}));
}

TEST_F(WordListsTest, ColourWords) {
    EXPECT_EQ(Color(u"赤"), 0x0000FF);
    EXPECT_EQ(Color(u"赤色"), 0x0000FF);
    EXPECT_EQ(Color(u"あか"), 0x0000FF);
    EXPECT_EQ(Color(u"あかいろ"), 0x0000FF);
    EXPECT_EQ(Color(u"青"), 0xFF0000);
    SetVariable(u"好み", Value(u"青"));
    EXPECT_EQ(Color(u"好み"), 0xFF0000);
}

TEST_F(WordListsTest, ColoursInHexAreRedGreenBlue) {
    EXPECT_EQ(Color(u"&hFF0000"), 0x0000FF);
    EXPECT_EQ(Color(u"&H123456"), 0x563412);
    EXPECT_EQ(Color(u"&h8000000F"), static_cast<std::int32_t>(0x8000000F));
    EXPECT_EQ(Color(u"#255"), 255);
}

TEST_F(WordListsTest, ColourNumbers) {
    EXPECT_EQ(Color(u"0"), 0x000000);
    EXPECT_EQ(Color(u"15"), 0xFFFFFF);
    EXPECT_EQ(Color(u"12"), 0x0000FF);
    EXPECT_EQ(Color(u"16"), static_cast<std::int32_t>(0x8000000F));
    EXPECT_EQ(Color(u"20"), static_cast<std::int32_t>(0x80000002));
    EXPECT_EQ(Color(u"22"), static_cast<std::int32_t>(0x8000000D));
    EXPECT_THROW(Color(u"23"), Failure);
    EXPECT_THROW(Color(u"無い色名"), Failure);
}

TEST_F(WordListsTest, ColoursAsText) {
    EXPECT_EQ(ColorToText(0x0000FF), u"&hFF0000");
    EXPECT_EQ(ColorToText(0x563412), u"&h123456");
    EXPECT_EQ(ColorToText(0), u"&h000000");
    EXPECT_EQ(ColorToText(static_cast<std::int32_t>(0x8000000F)), u"&h8000000F");
}

TEST_F(WordListsTest, WordsOfAResourceHoldForOneEvaluation) {
    EXPECT_EQ(EvalWithWords(kMessageBoxWords, Word(u"情報＋はいといいえ")).Text(), u"68");
    EXPECT_EQ(EvalWithWords(kProgramWords, Word(u"電卓")).Text(), u"calc.exe");
    EXPECT_EQ(EvalWithWords(kProgramWords, Word(u"「電卓」")).Text(), u"電卓");
    EXPECT_EQ(EvalText(u"情報＋0").Text(), u"0");
    SetVariable(u"電卓", Value(u"変数"));
    EXPECT_EQ(EvalWithWords(kProgramWords, Word(u"電卓")).Text(), u"変数");
}

TEST_F(WordListsTest, NoDictionaryIsInForceOutside) {
    bool found = true;
    EXPECT_EQ(TryWord(u"情報", found).Text(), u"");
    EXPECT_FALSE(found);
}

TEST_F(WordListsTest, EvaluatingMayRewriteAWord) {
    Word bracketed(u"(5)");
    EXPECT_EQ(EvalWord(bracketed).Text(), u"5");
    EXPECT_EQ(bracketed.Text(), u"5");
    Word wide(u"（6）");
    EXPECT_EQ(EvalWord(wide).Text(), u"6");
    EXPECT_EQ(wide.Text(), u"6");
    Word padded(u"  名  ");
    EXPECT_EQ(EvalWord(padded).Text(), u"名");
    EXPECT_EQ(padded.Text(), u"名");
    Word blanks(u"   ");
    EXPECT_EQ(EvalWord(blanks).Text(), u"");
}

TEST_F(WordListsTest, FunctionsFromOutside) {
    bool found = false;
    EXPECT_EQ(CallFunction(u"左", found, u"「abc」,2").Text(), u"ab");
    EXPECT_TRUE(found);
    EXPECT_EQ(CallFunction(u"左", found, u"「abc」を2文字だけ").Text(), u"ab");
    EXPECT_EQ(CallFunction(u"左", found, u"「abc」を").Text(), u"");
    EXPECT_EQ(CallFunction(u"オン", found, u"").Text(), u"1");
    EXPECT_TRUE(found);
    EXPECT_EQ(CallFunction(u"無い関数", found, u"1").Text(), u"");
    EXPECT_FALSE(found);
    EXPECT_EQ(pendingFailure.number, 0);
}

TEST_F(WordListsTest, NumbersOfWords) {
    EXPECT_EQ(EvalNumber(Word(u"３０度")), 30);
    EXPECT_EQ(EvalNumber(Word(u"「12円」")), 12);
    EXPECT_EQ(EvalNumber(Word(u"言葉")), 0);
    EXPECT_EQ(EvalNumber(Word()), 0);
    EXPECT_EQ(EvalNumber(Word(u"1+2")), 3);
}

}  // namespace
}  // namespace velm
