// The commands that act on an object as a whole, as sentences.
#include "objects/object_commands.h"

#include "core/names.h"
#include "core/settings_state.h"
#include "objects/object_canvas.h"
#include "unit/objects/control_test.h"

namespace velm {
namespace {

using ObjectCommands = ControlTest;

TEST_F(ObjectCommands, ChangeIsAPropertySentence) {
    Do(u"ボタン1を作る");
    Do(u"ボタン1の名前を「押す」に変え");
    EXPECT_EQ(Member(u"ボタン1", u"Caption"), u"押す");
    Do(u"ボタン1の幅を100へかえる");
    EXPECT_EQ(Find(u"ボタン1")->Geometry().width, 100);
    Do(u"ボタン1の無いを1に変える");
    EXPECT_EQ(run.ErrorNumber, 102);
}

TEST_F(ObjectCommands, CloseUnloadsAWindow) {
    Do(u"ウィンドウ2を作る");
    const WindowPtr window = objects.CurrentWindow;
    ASSERT_EQ(window->tag, u"ウィンドウ2");
    const int pumps = toolkit.pumps;
    Do(u"ウィンドウ2を閉じる");
    EXPECT_TRUE(window->IsUnloaded());
    EXPECT_FALSE(FindGlobal(u"ウィンドウ2"));
    EXPECT_EQ(toolkit.pumps, pumps + 1);
}

TEST_F(ObjectCommands, CloseUnloadsAControl) {
    Do(u"ボタン1を作る");
    const ObjectPtr button = Find(u"ボタン1");
    Do(u"ボタン1をとじる");
    EXPECT_TRUE(button->IsUnloaded());
    EXPECT_FALSE(Find(u"ボタン1"));
}

TEST_F(ObjectCommands, CloseWithoutAWordIsTheActiveWindow) {
    Do(u"ウィンドウ2を作る");
    const WindowPtr second = objects.CurrentWindow;
    Do(u"ウィンドウ3を作る");
    toolkit.activeWindow = &second->Frame();
    Do(u"閉じる");
    EXPECT_TRUE(second->IsUnloaded());
    const WindowPtr third = objects.CurrentWindow;
    toolkit.activeWindow = nullptr;
    ASSERT_FALSE(third->IsUnloaded());
    Do(u"閉じる");
    EXPECT_TRUE(third->IsUnloaded());
}

TEST_F(ObjectCommands, WhatIsNotThereCantBeClosed) {
    Do(u"無い物を閉じる");
    EXPECT_EQ(run.ErrorNumber, 104);
}

TEST_F(ObjectCommands, KeepOpenOnlySetsItsFlag) {
    const std::vector<std::u16string> notes = toolkit.notes;
    Do(u"閉じない");
    EXPECT_TRUE(objects.KeepOpen);
    EXPECT_EQ(toolkit.notes, notes);
    objects.KeepOpen = false;
    Do(u"とじない");
    EXPECT_TRUE(objects.KeepOpen);
}

TEST_F(ObjectCommands, KeepOpenCancelsTheNextCloseByTheUser) {
    Do(u"ウィンドウ2を作る");
    ControlEvent closing;
    closing.kind = EventKind::kClosing;
    closing.byUser = true;
    const WindowPtr window = objects.CurrentWindow;
    Do(u"閉じない");
    EXPECT_TRUE(Fire(*window, closing));
    EXPECT_FALSE(objects.KeepOpen);
    EXPECT_FALSE(Fire(*window, closing));
}

TEST_F(ObjectCommands, RedrawMakesTheDrawingItsPicture) {
    Do(u"ピクチャー1を作る");
    ObjectCanvas& canvas = *Find(u"ピクチャー1")->Canvas();
    canvas.PSet(3, 4, 255);
    const Pixmap image = canvas.Image();
    canvas.TakeRefresh();
    Do(u"ピクチャー1を再描画");
    EXPECT_EQ(canvas.Picture().At(3, 4), 255U);
    EXPECT_EQ(canvas.Image().pixels, image.pixels);
    EXPECT_TRUE(canvas.TakeRefresh());
    canvas.Cls();
    EXPECT_EQ(canvas.Point(3, 4), 255);
}

TEST_F(ObjectCommands, RedrawOfAnotherObjectRefreshesIt) {
    Do(u"ボタン1を作る");
    Do(u"ボタン1をさいびょうが");
    EXPECT_TRUE(toolkit.HasNote(Of(u"ボタン1").label + u".Refresh"));
}

TEST_F(ObjectCommands, AWindowFollowsTheMouse) {
    Do(u"ウィンドウ2を作る");
    const std::u16string label = Recorded(*objects.CurrentWindow).label;
    Do(u"ウィンドウ2を移動開始");
    EXPECT_EQ(toolkit.notes.back(), label + u".StartMove");
    toolkit.notes.clear();
    Do(u"ウィンドウ2をいどうかいし");
    EXPECT_EQ(toolkit.notes.back(), label + u".StartMove");
    Do(u"ボタン1を作る");
    Do(u"ボタン1を移動開始");
    EXPECT_EQ(run.ErrorNumber, 0);
}

TEST_F(ObjectCommands, AWindowStaysOnTop) {
    Do(u"ウィンドウ2を作る");
    const WindowPtr window = objects.CurrentWindow;
    const auto isOnTop = [&] { return window->GetBool(u"TopMost"); };
    Do(u"ウィンドウ2を常に手前");
    EXPECT_TRUE(isOnTop());
    Do(u"ウィンドウ2を常に手前しない");
    EXPECT_FALSE(isOnTop());
    Do(u"ウィンドウ2を常にてまえ");
    EXPECT_TRUE(isOnTop());
    Do(u"ウィンドウ2を常に手前にしない");
    EXPECT_FALSE(isOnTop());
    Do(u"ボタン1を作る");
    Do(u"ボタン1を常に手前");
    EXPECT_FALSE(isOnTop());
}

TEST_F(ObjectCommands, UndoIsForTexts) {
    for (const std::u16string_view name : {u"テキスト1", u"文章テキスト1"}) {
        Do(std::u16string(name) + u"を作る");
        Do(std::u16string(name) + u"を元に戻す");
        EXPECT_EQ(toolkit.notes.back(), Of(name).label + u".Undo");
    }
    Do(u"リスト1を作る");
    const std::vector<std::u16string> notes = toolkit.notes;
    Do(u"リスト1を元に戻す");
    Do(u"テキスト1を前に戻す");
    EXPECT_EQ(toolkit.notes, notes);
    EXPECT_EQ(run.ErrorNumber, 0);
    Do(u"無い物を元に戻す");
    EXPECT_EQ(run.ErrorNumber, 104);
}

TEST_F(ObjectCommands, AnObjectAdvancesInTheTurtlesDirection) {
    Do(u"ボタン1を作る");
    Do(u"ボタン1の位置は、100,100");
    const auto place = [&] { return Read(u"ボタン1の位置"); };
    settings.TurtleDirection = 0;
    const int pumps = toolkit.pumps;
    Do(u"ボタン1を前へ10だけ進む");
    EXPECT_EQ(place(), u"110,100");
    EXPECT_EQ(toolkit.pumps, pumps + 1);
    Do(u"ボタン1を後ろへ20だけ進める");
    EXPECT_EQ(place(), u"90,100");
    Do(u"ボタン1を左へ10だけすすむ");
    EXPECT_EQ(settings.TurtleDirection, 90);
    EXPECT_EQ(place(), u"90,90");
    Do(u"ボタン1を右へ5だけ進む");
    EXPECT_EQ(settings.TurtleDirection, 0);
    EXPECT_EQ(place(), u"95,90");
    Do(u"ボタン1を上へ5だけ進む");
    EXPECT_EQ(place(), u"95,90");
    EXPECT_EQ(settings.TurtleDirection, 0);
}

TEST_F(ObjectCommands, TheTurtleAdvances) {
    const ObjectPtr turtle = objects.CurrentWindow->MainIcon();
    const PixelBox before = turtle->Geometry();
    Do(u"カメを前へ30だけ進む");
    PixelBox after = before;
    after.top -= 30;
    EXPECT_EQ(turtle->Geometry(), after);
}

TEST_F(ObjectCommands, WordsInHiragana) {
    struct Pair {
        std::u16string_view kana;
        std::u16string_view word;
    };
    for (const Pair& pair :
         {Pair{u"かえ", u"変え"}, Pair{u"せんたく", u"選択"}, Pair{u"ついか", u"追加"},
          Pair{u"とじる", u"閉じる"}, Pair{u"にゅうりょく", u"入力"}, Pair{u"いんさつ", u"印刷"},
          Pair{u"けせ", u"消せ"}, Pair{u"とじない", u"閉じない"}, Pair{u"すす", u"進"},
          Pair{u"さいびょうが", u"再描画"}, Pair{u"いどうかいし", u"移動開始"},
          Pair{u"そうにゅう", u"挿入"}, Pair{u"てまえ", u"手前"}, Pair{u"しない", u"手前"}}) {
        const xxCmdData* kana = Commands.Find(pair.kana);
        ASSERT_NE(kana, nullptr);
        ASSERT_NE(kana->FuncPnt.command, nullptr);
        EXPECT_EQ(kana->FuncPnt.command, Commands.Find(pair.word)->FuncPnt.command);
    }
}

TEST_F(ObjectCommands, AdvanceMovesTheObjectAndNotThePen) {
    Do(u"ボタン1を作る");
    const float x = drawing.DrawTarget->CurrentX;
    Do(u"ボタン1を前へ10だけ進む");
    EXPECT_EQ(drawing.DrawTarget->CurrentX, x);
}

}  // namespace
}  // namespace velm
