// What the table functions do beside their result: the mouse pointer, the answer register, and time that
// grows with the table and no faster.
#include "functions/table_functions.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/eval.h"
#include "core/hooks.h"
#include "core/run_state.h"
#include "core/variables.h"
#include "core/velm.h"
#include "data/numbers.h"

namespace velm {
namespace {

std::vector<int> pointers;

class TableFunctionsTest : public testing::Test {
  protected:
    void SetUp() override {
        TheEngine();
        ResetRunState();
        saved_ = hooks;
        pointers.clear();
        hooks.SetScreenPointer = [](int pointer) { pointers.push_back(pointer); };
    }
    void TearDown() override {
        hooks = saved_;
        ResetRunState();
        run.Status = RunStatus::kIdle;
    }
    static std::u16string Of(std::u16string_view word) { return EvalText(word).Text(); }

  private:
    Hooks saved_;
};

TEST_F(TableFunctionsTest, HourglassWhileSearchingAndMapping) {
    EXPECT_EQ(Of(u"配列検索（「a,b」、「b」）"), u"2");
    EXPECT_EQ(pointers, (std::vector<int>{11, 0}));
    pointers.clear();
    EXPECT_EQ(Of(u"配列処理（「1,2」、1、それ＋1）"), u"2,3");
    EXPECT_EQ(pointers, (std::vector<int>{11, 0}));
    pointers.clear();
    EXPECT_EQ(Of(u"配列取り出し（「a,b」、「b」）"), u"b");
    EXPECT_TRUE(pointers.empty());
}

TEST_F(TableFunctionsTest, HourglassStaysWhereARowIsTooShort) {
    EXPECT_EQ(Of(u"配列処理（「a」、2列目、それ＋1）"), u"");
    EXPECT_EQ(pointers, (std::vector<int>{11}));
    pointers.clear();
    SetVariable(u"表", Value(u"1\r\n2"));
    EXPECT_EQ(Of(u"配列処理（表、2行目、それ＋1）"), u"");
    EXPECT_EQ(pointers, (std::vector<int>{11}));
}

TEST_F(TableFunctionsTest, TheAnswerHoldsTheLastItemUnescaped) {
    EXPECT_EQ(Of(u"配列判別（「a,x{**}y」、それ＝1）"), u",");
    EXPECT_EQ(run.Response.Text(), u"x,y");
    EXPECT_EQ(Of(u"配列検索（「a,b」、「b」）"), u"2");
    EXPECT_EQ(run.Response.Text(), u"x,y");
}

TEST_F(TableFunctionsTest, LargeTables) {
    std::u16string list;
    for (int i = 1; i <= 100'000; ++i) {
        if (i != 1) list += u',';
        AppendNumber(list, i);
    }
    SetVariable(u"表", Value(list));
    EXPECT_EQ(Of(u"配列数（表）"), u"100000");
    EXPECT_EQ(Of(u"合計（表）"), u"5000050000");
    EXPECT_EQ(Of(u"平均（表）"), u"50000.5");
    EXPECT_EQ(Of(u"配列検索（表、「99999」、0、完全一致）"), u"99999");
    EXPECT_EQ(Of(u"配列数（配列判別（表、それ＞99990））"), u"10");
    EXPECT_EQ(Of(u"配列削除（表、100000）"), list.substr(0, list.size() - 7));
    EXPECT_EQ(Of(u"配列挿入（表、200000、100001）"), list + u",100001");
    EXPECT_EQ(Of(u"合計（配列処理（表、1、それ＊2））"), u"10000100000");
    EXPECT_EQ(Of(u"区切れ（繋げろ（表、「/」）、「/」）"), list);
}

}  // namespace
}  // namespace velm
