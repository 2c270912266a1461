// 追加, 挿入, 消せ, クリア and 検索 of objects, as sentences.
#include "objects/object_canvas.h"
#include "unit/objects/control_test.h"

namespace velm {
namespace {

class ItemCommands : public ControlTest {
  protected:
    using Texts = std::vector<std::u16string>;
    static const Texts& Items(std::u16string_view name) { return Of(name).items; }
};

TEST_F(ItemCommands, AddGivesAListAnItemALine) {
    for (const std::u16string_view name : {u"リスト1", u"選択リスト1", u"入力選択リスト1"}) {
        const std::u16string list(name);
        Do(list + u"を作る");
        Do(list + u"に「a,b」を追加");
        EXPECT_EQ(Items(name), (Texts{u"a,b"}));
        Do(u"行＝「c」＆改行＆「d」＆改行");
        Do(u"行を" + list + u"へ追加");
        EXPECT_EQ(Items(name), (Texts{u"a,b", u"c", u"d"}));
        Do(list + u"に「e」をついか");
        EXPECT_EQ(Items(name).size(), 4U);
    }
}

TEST_F(ItemCommands, AddReachesAControlOfANamedWindow) {
    Do(u"ウィンドウ2を作る");
    Do(u"リスト1を作る");
    const ObjectPtr list = Find(u"リスト1");
    Do(u"ウィンドウ3を作る");
    Do(u"リスト1を作る");
    Do(u"ウィンドウ2のリスト1に「a」を追加");
    EXPECT_EQ(Recorded(*list).items, (Texts{u"a"}));
}

TEST_F(ItemCommands, AddToAListsItems) {
    Do(u"リスト1を作る");
    Do(u"リスト1の一覧に「a」を追加");
    EXPECT_EQ(Items(u"リスト1"), (Texts{u"a"}));
    EXPECT_EQ(run.ErrorNumber, 0);
}

TEST_F(ItemCommands, AddMakesTheControlThatItNames) {
    Do(u"リスト4に「a」を追加");
    ASSERT_TRUE(Find(u"リスト4"));
    EXPECT_EQ(Items(u"リスト4"), (Texts{u"a"}));
    Do(u"無い物に「a」を追加");
    EXPECT_EQ(run.ErrorNumber, 104);
    Do(u"「a」を追加");
    EXPECT_EQ(run.ErrorNumber, 105);
}

TEST_F(ItemCommands, WhatTakesNoItemsIgnoresThem) {
    Do(u"ボタン1を作る");
    Do(u"ボタン1に「a」を追加");
    EXPECT_EQ(run.ErrorNumber, 0);
}

TEST_F(ItemCommands, TheTrayTakesTheWindow) {
    Do(u"ウィンドウ2を作る");
    Do(u"ウィンドウ2の名前は、「題」");
    Do(u"タスクトレイに追加");
    EXPECT_TRUE(toolkit.hasTrayIcon);
    EXPECT_EQ(toolkit.trayTip, u"題");
    Do(u"タスクトレイを消せ");
    EXPECT_FALSE(toolkit.hasTrayIcon);
}

TEST_F(ItemCommands, InsertPutsTextInPlaceOfTheSelection) {
    for (const std::u16string_view name :
         {u"テキスト1", u"文章テキスト1", u"選択リスト1", u"入力選択リスト1", u"拡張テキスト1"}) {
        Do(std::u16string(name) + u"を作る");
        Do(std::u16string(name) + u"に「あ」＆「い」を挿入");
        EXPECT_EQ(Member(name, u"SelText"), u"あい");
    }
    for (const std::u16string_view name : {u"リスト1", u"ボタン1", u"ラベル1"}) {
        Do(std::u16string(name) + u"を作る");
        Do(std::u16string(name) + u"に「あ」を挿入");
        EXPECT_EQ(run.ErrorNumber, 105);
    }
}

TEST_F(ItemCommands, RemoveTakesAControl) {
    Do(u"ボタン1を作る");
    const ObjectPtr button = Find(u"ボタン1");
    Do(u"ボタン1を消せ");
    EXPECT_TRUE(button->IsUnloaded());
    EXPECT_FALSE(Find(u"ボタン1"));
    Do(u"ボタン1を作る");
    EXPECT_TRUE(Find(u"ボタン1"));
    EXPECT_EQ(run.ErrorNumber, 0);
    Do(u"ボタン1を消す");
    EXPECT_FALSE(Find(u"ボタン1"));
    Do(u"無い物をけせ");
    EXPECT_EQ(run.ErrorNumber, 104);
}

TEST_F(ItemCommands, RemoveTakesAnItemByItsNumber) {
    Do(u"リスト1を作る");
    Do(u"リスト1の一覧は、「a,b,c」");
    Do(u"番＝1");
    Do(u"リスト1の番を消せ");
    EXPECT_EQ(Items(u"リスト1"), (Texts{u"a", u"c"}));
    Do(u"リスト1の0を消せ");
    EXPECT_EQ(Items(u"リスト1"), (Texts{u"c"}));
    Do(u"リスト1の7を消せ");
    EXPECT_EQ(Items(u"リスト1"), (Texts{u"c"}));
    EXPECT_EQ(run.ErrorNumber, 0);
}

TEST_F(ItemCommands, OthersHaveNoItemsToRemove) {
    Do(u"ラベル1を作る");
    Do(u"ラベル1の1を消せ");
    EXPECT_TRUE(Find(u"ラベル1"));
    EXPECT_EQ(run.ErrorNumber, 0);
    EXPECT_TRUE(installed.dialogs.reported.empty());
}

TEST_F(ItemCommands, ClearEmptiesLists) {
    for (const std::u16string_view name : {u"リスト1", u"選択リスト1", u"入力選択リスト1"}) {
        Do(std::u16string(name) + u"を作る");
        Do(std::u16string(name) + u"の一覧は、「a,b」");
        Do(std::u16string(name) + u"をクリア");
        EXPECT_EQ(Items(name), Texts());
    }
    Do(u"ボタン1を作る");
    Do(u"ボタン1をクリア");
    EXPECT_EQ(run.ErrorNumber, 0);
    Do(u"無い物をクリア");
    EXPECT_EQ(run.ErrorNumber, 104);
}

TEST_F(ItemCommands, ClearErasesSurfaces) {
    Do(u"ピクチャー1を作る");
    Object& picture = *Find(u"ピクチャー1");
    ShowPicture(picture, Pixmap(3, 3, 255), u"C:\\a.png");
    picture.Canvas()->DrawWidth = 5;
    picture.Canvas()->PSet(10, 10, 255);
    Do(u"ピクチャー1をクリア");
    EXPECT_EQ(picture.Canvas()->Picture().width, 0);
    EXPECT_EQ(picture.Canvas()->DrawWidth, 1);
    EXPECT_NE(picture.Canvas()->Point(10, 10), 255);
    EXPECT_EQ(Read(u"ピクチャー1の絵"), u"");

    Do(u"ウィンドウ2を作る");
    ObjectCanvas& canvas = *objects.CurrentWindow->Canvas();
    canvas.DrawWidth = 5;
    canvas.PSet(10, 10, 255);
    canvas.TakeRefresh();
    Do(u"ウィンドウ2をクリア");
    EXPECT_NE(canvas.Point(10, 10), 255);
    EXPECT_EQ(canvas.DrawWidth, 5);
    EXPECT_TRUE(canvas.TakeRefresh());
}

TEST_F(ItemCommands, ClearWithoutAWordIsTheDrawing) {
    drawing.DrawTarget->DrawWidth = 7;
    drawing.DrawTarget->CurrentX = 1;
    Do(u"クリア");
    EXPECT_EQ(drawing.DrawTarget->DrawWidth, 1);
    EXPECT_EQ(drawing.DrawTarget->CurrentX, drawing.DrawTarget->ScaleWidth() / 2);
}

TEST_F(ItemCommands, ClearOfAllObjectsTakesTheLastOneFirst) {
    Do(u"ボタン1を作る");
    Do(u"テキスト1を作る");
    Do(u"ボタン2を作る");
    const Texts ends = {u"end " + Of(u"ボタン2").label, u"end " + Of(u"テキスト1").label,
                        u"end " + Of(u"ボタン1").label};
    toolkit.notes.clear();
    Do(u"オブジェクトをクリア");
    Texts found;
    for (const std::u16string& note : toolkit.notes) {
        if (note.starts_with(u"end ")) found.push_back(note);
    }
    EXPECT_EQ(found, ends);
    EXPECT_FALSE(Find(u"ボタン1"));
    EXPECT_TRUE(objects.CurrentWindow->MainIcon());
    Do(u"ボタン1を作る");
    EXPECT_EQ(run.ErrorNumber, 0);
    EXPECT_TRUE(Find(u"ボタン1"));
}

TEST_F(ItemCommands, SearchPicksTheItem) {
    Do(u"リスト1を作る");
    Do(u"リスト1の一覧は、「abc,Ab,ab」");
    Do(u"「ab」をリスト1から検索");
    EXPECT_EQ(Read(u"リスト1の番号"), u"1");
    Do(u"「abc」をリスト1から検索");
    EXPECT_EQ(Read(u"リスト1の番号"), u"0");
    Do(u"「b」をリスト1から検索");
    EXPECT_EQ(Read(u"リスト1の番号"), u"-1");
    EXPECT_EQ(run.ErrorNumber, 0);
    Do(u"ボタン1を作る");
    Do(u"「b」をボタン1から検索");
    EXPECT_EQ(run.ErrorNumber, 105);
}

}  // namespace
}  // namespace velm
