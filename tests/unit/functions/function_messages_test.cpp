// What functions report: the number, the icon of the box, and the words that fill the message in. The
// box of a report offers the way out of the run too, so that its style is the icon plus two buttons.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <string_view>

#include "core/eval.h"
#include "core/run_state.h"
#include "core/velm.h"
#include "data/failure.h"
#include "data/text.h"
#include "platform/dialogs.h"
#include "unit/recorded_dialogs.h"

namespace velm {
namespace {

constexpr int kStop = 16;
constexpr int kWarning = 48;
constexpr int kInformation = 64;

class FunctionMessagesTest : public testing::Test {
  protected:
    void SetUp() override {
        TheEngine();
        ResetRunState();
    }
    void TearDown() override {
        ResetRunState();
        run.Status = RunStatus::kIdle;
    }

    // The word reports once, with this number, icon and beginning of the text, and gives nothing.
    void ExpectReport(std::u16string_view word, int number, int icon, std::u16string_view text) {
        dialogs_.reported.clear();
        EXPECT_EQ(EvalText(word).Text(), u"");
        EXPECT_EQ(run.ErrorNumber, number);
        EXPECT_EQ(pendingFailure.number, 0);
        ASSERT_EQ(dialogs_.reported.size(), 1U);
        EXPECT_EQ(dialogs_.reported[0].style, icon + box::kOkCancel);
        EXPECT_EQ(run.ErrorText, text);
        EXPECT_TRUE(dialogs_.reported[0].text.starts_with(text));
    }

    RecordedDialogs dialogs_;
};

TEST_F(FunctionMessagesTest, OverflowsWarn) {
    const std::u16string text =
        u"有効桁数をオーバーしています。\r\n"
        u"整数のみ指定可能な場合は10桁、小数は15桁まで有効です";
    ExpectReport(u"左（「abc」、2147483648）", 90, kWarning, text);
    ExpectReport(u"左（「abc」、-2147483649）", 90, kWarning, text);
    ExpectReport(u"一行だけ（「abc」、-32769）", 90, kWarning, text);
    ExpectReport(u"べき乗（1000）", 90, kWarning, text);
}

TEST_F(FunctionMessagesTest, APlaceBelowTheFirstWarns) {
    const std::u16string text = u"数字が範囲を越えているか、正しくありません";
    ExpectReport(u"真ん中（「abc」、0）", 31, kWarning, text);
    ExpectReport(u"真ん中（「abc」、1、-1）", 31, kWarning, text);
}

TEST_F(FunctionMessagesTest, RowsAndItemsThatAreNotThereInform) {
    const std::u16string row = u"指定した行がありません。\r\n";
    const std::u16string item = u"指定した列がありません。\r\n";
    ExpectReport(u"配列挿入（「a」、0、「x」）", 10, kInformation, item + u"0列目");
    ExpectReport(u"配列挿入（「a」、0行目、「x」）", 9, kInformation, row + u"0行目");
    ExpectReport(u"配列挿入（「a」、0列目、「x」）", 10, kInformation, item + u"0列目");
    ExpectReport(u"配列削除（「a」、2）", 10, kInformation, item + u"2列目");
    ExpectReport(u"配列削除（「a」、0）", 10, kInformation, item + u"0列目");
    ExpectReport(u"配列削除（「a」、2行目）", 9, kInformation, row + u"2行目");
    ExpectReport(u"配列処理（「a」、2行目、「x」）", 9, kInformation, row + u"2行目");
}

TEST_F(FunctionMessagesTest, PatternsRandomNumbersAndReadingsStop) {
    ExpectReport(u"パターン置き換え（「a」、「*」、「x」）", 38, kStop,
                 u"正規表現が正しくありません。エラー番号:5018");
    ExpectReport(u"乱数（2147483647）", 11, kStop, u"数値が大きすぎます");
    ASSERT_EQ(setenv("VELM_MECAB_DICTIONARY", "/nowhere", 1), 0);
    ExpectReport(u"ふりがな（「東京」）", 27, kStop,
                 u"この機能を利用するにはMS-IME98が必要です\r\nMeCab の辞書が見つかりません。");
    ASSERT_EQ(unsetenv("VELM_MECAB_DICTIONARY"), 0);
}

TEST_F(FunctionMessagesTest, OtherFailuresAreSilent) {
    for (const std::u16string_view word :
         {u"左（「abc」、-1）", u"左（「abc」、「x」）", u"左（「a」、1、1）",
          u"後ろから左（「a」、2）", u"アスキー（「」）", u"キャラクタ（65536）", u"平方根（-1）",
          u"ログ（0）", u"アークサイン（1）", u"年（「春」）", u"平均（「」）",
          u"１０進数（「G」）"}) {
        EXPECT_EQ(EvalText(word).Text(), u"");
        EXPECT_EQ(pendingFailure.number, 0);
    }
    EXPECT_EQ(run.ErrorNumber, 0);
    EXPECT_TRUE(dialogs_.reported.empty());
}

TEST(MadeLength, HasALimit) {
    EXPECT_NO_THROW(CheckMadeLength(0));
    EXPECT_NO_THROW(CheckMadeLength(100'000'000));
    EXPECT_THROW(CheckMadeLength(100'000'001), Failure);
}

}  // namespace
}  // namespace velm
