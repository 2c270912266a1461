// Properties of lists and drop-downs.
#include "unit/objects/control_test.h"

namespace velm {
namespace {

class ListProperties : public ControlTest {
  protected:
    static void Fill(std::u16string_view name, std::vector<std::u16string> items) {
        Of(name).items = std::move(items);
    }
    static const std::vector<std::u16string>& Items(std::u16string_view name) {
        return Of(name).items;
    }
    using Texts = std::vector<std::u16string>;
};

TEST_F(ListProperties, RowsBothWays) {
    for (const std::u16string_view name : {u"リスト1", u"選択リスト1", u"入力選択リスト1"}) {
        Do(std::u16string(name) + u"を作る");
        Fill(name, {u"a", u"b", u"c"});
        CheckRows(name, {
                            {u"番号", u"2", u"ListIndex", u"2", u"2"},
                            {u"番号", u"-1", u"ListIndex", u"-1", u"-1"},
                            {u"ソート", u"1", u"Sorted", u"True", u"1"},
                            {u"複数選択", u"2", u"MultiSelect", u"2", u"2"},
                        });
        EXPECT_EQ(Read(std::u16string(name) + u"の数"), u"3");
        EXPECT_EQ(Read(std::u16string(name) + u"の個数"), u"3");
        for (const std::u16string_view word : {u"数", u"個数"}) CheckReadOnly(name, word);
        for (const std::u16string_view word : {u"追加", u"削除"}) CheckWriteOnly(name, word);
    }
}

TEST_F(ListProperties, ItemsAreJoinedByCommas) {
    Do(u"リスト1を作る");
    EXPECT_EQ(Read(u"リスト1の一覧"), u"");
    Do(u"リスト1の一覧は、「a,b」");
    EXPECT_EQ(Items(u"リスト1"), (Texts{u"a", u"b"}));
    EXPECT_EQ(Read(u"リスト1の一覧"), u"a,b");
    Do(u"リスト1の一覧は、c,d,e");
    EXPECT_EQ(Items(u"リスト1"), (Texts{u"c", u"d", u"e"}));
    Do(u"リスト1の一覧は、「」");
    EXPECT_EQ(Items(u"リスト1"), Texts());
}

TEST_F(ListProperties, ItemsByLinesKeepTheirCommas) {
    Do(u"リスト1を作る");
    Do(u"行＝「a,b」＆改行");
    Do(u"リスト1の一覧は、行");
    EXPECT_EQ(Items(u"リスト1"), (Texts{u"a,b"}));
    Do(u"行＝「a,b」＆改行＆「c」");
    Do(u"リスト1の一覧は、行");
    EXPECT_EQ(Items(u"リスト1"), (Texts{u"a,b", u"c"}));
    EXPECT_EQ(Read(u"リスト1の個数"), u"2");
}

TEST_F(ListProperties, TheIndexIsKept) {
    Do(u"リスト1を作る");
    Do(u"リスト1の一覧は、「a,b,c」");
    Do(u"リスト1の番号は、1");
    Do(u"リスト1の一覧は、「x,y」");
    EXPECT_EQ(Read(u"リスト1の番号"), u"1");
    EXPECT_EQ(Member(u"リスト1", u"Text"), u"y");
    Do(u"リスト1の一覧は、「z」");
    EXPECT_EQ(Read(u"リスト1の番号"), u"-1");
    EXPECT_EQ(run.ErrorNumber, 0);
}

TEST_F(ListProperties, SingleItemsComeAndGo) {
    Do(u"リスト1を作る");
    Do(u"リスト1の追加は、「a」");
    Do(u"リスト1の追加は、「b,c」");
    EXPECT_EQ(Items(u"リスト1"), (Texts{u"a", u"b,c"}));
    Do(u"リスト1の削除は、0");
    EXPECT_EQ(Items(u"リスト1"), (Texts{u"b,c"}));
    Do(u"リスト1の削除は、5");
    EXPECT_EQ(Items(u"リスト1").size(), 1U);
    EXPECT_EQ(run.ErrorNumber, 0);
}

TEST_F(ListProperties, AChangedOrderRebuildsTheList) {
    Do(u"リスト1を作る");
    Fill(u"リスト1", {u"b", u"a"});
    toolkit.notes.clear();
    Do(u"リスト1のソートは、1");
    const std::u16string label = Of(u"リスト1").label;
    EXPECT_EQ(toolkit.notes, (Texts{label + u".Sorted=True", label + u".Clear",
                                    label + u".AddItem b", label + u".AddItem a"}));
}

TEST_F(ListProperties, SeveralChoicesNeedARefresh) {
    Do(u"リスト1を作る");
    Do(u"リスト1の複数選択は、1");
    EXPECT_TRUE(toolkit.HasNote(Of(u"リスト1").label + u".Refresh"));
}

TEST_F(ListProperties, SelectionOfAList) {
    Do(u"リスト1を作る");
    Fill(u"リスト1", {u"a", u"b", u"c"});
    Do(u"リスト1の選択一覧は、0,2");
    EXPECT_EQ(Read(u"リスト1の選択一覧"), u"a,c");
    Do(u"リスト1の選択一覧は、「b」");
    EXPECT_EQ(Member(u"リスト1", u"Text"), u"b");
}

TEST_F(ListProperties, SelectionOfADropDown) {
    Do(u"選択リスト1を作る");
    Fill(u"選択リスト1", {u"a", u"b", u"c"});
    EXPECT_EQ(Read(u"選択リスト1の選択一覧"), u"");
    Do(u"選択リスト1の選択一覧は、1");
    EXPECT_EQ(Read(u"選択リスト1の番号"), u"1");
    EXPECT_EQ(Read(u"選択リスト1の選択一覧"), u"b");
}

TEST_F(ListProperties, ADropDownHasTheWordsOfItsText) {
    for (const std::u16string_view name : {u"選択リスト1", u"入力選択リスト1"}) {
        Do(std::u16string(name) + u"を作る");
        CheckRows(name, {
                            {u"内容", u"「文」", u"Text", u"文", u"文"},
                            {u"選択", u"「い」", u"SelText", u"い", u"い"},
                            {u"選択スタート", u"2", u"SelStart", u"2", u"2"},
                            {u"選択長さ", u"3", u"SelLength", u"3", u"3"},
                            {u"入力ロック", u"1", u"Locked", u"True", u"1"},
                            {u"ＩＭＥの状態", u"「オフ」", u"IMEMode", u"2", u"オフ"},
                        });
    }
    Do(u"リスト1を作る");
    Do(u"リスト1の選択は、「a」");
    EXPECT_EQ(run.ErrorNumber, 102);
}

}  // namespace
}  // namespace velm
