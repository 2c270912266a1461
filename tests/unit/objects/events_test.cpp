// Events: which procedures are tried and in what order, what they find set, and what they may do.
#include "objects/events.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "core/event_data.h"
#include "core/run_state.h"
#include "core/variables.h"
#include "objects/create.h"
#include "objects/object_canvas.h"
#include "objects/resolve.h"
#include "objects/window_keys.h"
#include "unit/objects/recording_toolkit.h"

namespace velm {
namespace {

// Each procedure of a test adds its mark to the variable 記録.
class EventsTest : public ::testing::Test {
  protected:
    InstallRecordingToolkit installed_;

    static std::u16string Procedure(std::u16string_view name, std::u16string_view mark) {
        std::u16string text = u"\r\n手順は\u3000";
        text += name;
        text += u"\r\n記録＝記録＆「";
        text += mark;
        text += u"」\r\n終わり";
        return text;
    }
    static void Run(const std::u16string& source) { RunLines(u"記録＝「」\r\n" + source); }
    static std::u16string Record() {
        const Value* value = FindVariable(Word(u"記録").AsName());
        return value == nullptr ? std::u16string(u"?") : value->Text();
    }
    static std::u16string Take() {
        std::u16string record = Record();
        SetVariable(u"記録", Value());
        return record;
    }
    static Object& Named(std::u16string_view name) {
        const ObjectPtr object = ResolveObject(name, true);
        if (object == nullptr) throw std::runtime_error("no such object");
        return *object;
    }
    static ControlEvent Mouse(EventKind kind, std::int32_t button, double x = 0, double y = 0) {
        ControlEvent event;
        event.kind = kind;
        event.button = button;
        event.x = x;
        event.y = y;
        return event;
    }
    static ControlEvent Key(EventKind kind, std::int32_t code, std::int32_t shift = 0) {
        ControlEvent event;
        event.kind = kind;
        event.code = code;
        event.shift = shift;
        return event;
    }
    static ControlEvent Files(std::vector<std::u16string> files) {
        ControlEvent event;
        event.kind = EventKind::kDrop;
        event.files = std::move(files);
        return event;
    }
};

TEST_F(EventsTest, TheControlsOwnProcedureComesFirst) {
    Run(u"ウィンドウ2を作る\r\nボタン1を作る" +
        Procedure(u"ウィンドウ2のボタン1をクリック", u"own") +
        Procedure(u"ウィンドウ2のボタンをクリック", u"kind") +
        Procedure(u"ウィンドウのボタン1をクリック", u"type"));
    Fire(Named(u"ボタン1"), EventKind::kClick);
    EXPECT_EQ(Record(), u"own");
}

TEST_F(EventsTest, ThenThatOfAllControlsOfTheKind) {
    Run(u"ウィンドウ2を作る\r\nボタン1を作る" +
        Procedure(u"ウィンドウ2のボタンをクリック", u"kind") +
        Procedure(u"ウィンドウのボタン1をクリック", u"type"));
    Fire(Named(u"ボタン1"), EventKind::kClick);
    EXPECT_EQ(Record(), u"kind");
}

TEST_F(EventsTest, ThenThatOfTheWindowsType) {
    Run(u"ウィンドウ2を作る\r\nボタン1を作る" +
        Procedure(u"ウィンドウのボタン1をクリック", u"type"));
    Fire(Named(u"ボタン1"), EventKind::kClick);
    EXPECT_EQ(Record(), u"type");
}

TEST_F(EventsTest, AWindowWithoutANameNeedsNone) {
    Run(u"ボタン1を作る" + Procedure(u"ボタン1をクリック", u"a") +
        Procedure(u"ボタンをクリック", u"b"));
    Fire(Named(u"ボタン1"), EventKind::kClick);
    EXPECT_EQ(Record(), u"a");
}

TEST_F(EventsTest, WidthsOfLettersMeet) {
    Run(u"ウィンドウ1を作る\r\nボタン1を作る" +
        Procedure(u"ウィンドウ１のボタン１をクリック", u"a"));
    Fire(Named(u"ボタン1"), EventKind::kClick);
    EXPECT_EQ(Record(), u"a");
}

TEST_F(EventsTest, AnAliasNamesTheProcedure) {
    Run(u"ウィンドウ1を作る\r\nボタン1を「開始」として作る" +
        Procedure(u"ウィンドウ1の開始をクリック", u"alias"));
    Fire(Named(u"開始"), EventKind::kClick);
    EXPECT_EQ(Record(), u"alias");
}

TEST_F(EventsTest, ThisAndThatAreTheSendersMeanwhile) {
    Run(u"ウィンドウ1を作る\r\nボタン1を作る\r\nボタン2を作る\r\nこれ＝1\r\n手順は　ウィンドウ1のボ"
        u"タン1を"
        u"クリック\r\nこの名前は 「押された」\r\nテキスト1を作る\r\n終わり");
    Fire(Named(u"ボタン1"), EventKind::kClick);
    EXPECT_EQ(Named(u"ボタン1").GetText(u"Caption"), u"押された");
    ResolveObject(u"ボタン2", true);
    Fire(Named(u"ボタン1"), EventKind::kClick);
    EXPECT_EQ(objects.ThisObject, nullptr);
    EXPECT_EQ(objects.ThatObject, ResolveObject(u"ボタン1", true));
}

TEST_F(EventsTest, AnEventOfAWindowLeavesItCurrent) {
    Run(u"ウィンドウ1を作る\r\nウィンドウ2を作る" + Procedure(u"ウィンドウ1をクリック", u"w"));
    const ObjectPtr first = FindGlobal(u"ウィンドウ1");
    ASSERT_NE(objects.CurrentWindow, first);
    Fire(*first, EventKind::kClick);
    EXPECT_EQ(Record(), u"w");
    EXPECT_EQ(objects.CurrentWindow, first);
}

TEST_F(EventsTest, SuffixesOfAText) {
    Run(u"テキスト1を作る" + Procedure(u"テキスト1をクリック", u"1") +
        Procedure(u"テキスト1をダブルクリック", u"2") + Procedure(u"テキスト1が変化", u"3") +
        Procedure(u"テキスト1に入る", u"4") + Procedure(u"テキスト1を離れる", u"5") +
        Procedure(u"テキスト1でマウスのボタンを下げる", u"6") +
        Procedure(u"テキスト1でマウスが動く", u"7") + Procedure(u"テキスト1を左クリック", u"8") +
        Procedure(u"テキスト1を右クリック", u"9") +
        Procedure(u"テキスト1でマウスのボタンを上げる", u"A"));
    Object& text = Named(u"テキスト1");
    Fire(text, EventKind::kClick);
    Fire(text, EventKind::kDoubleClick);
    Fire(text, EventKind::kChange);
    Fire(text, EventKind::kFocusIn);
    Fire(text, EventKind::kFocusOut);
    EXPECT_EQ(Take(), u"12345");
    Fire(text, Mouse(EventKind::kMouseDown, mouse_button::kLeft));
    Fire(text, Mouse(EventKind::kMouseMove, 0));
    Fire(text, Mouse(EventKind::kMouseUp, mouse_button::kLeft));
    EXPECT_EQ(Take(), u"678A");
    Fire(text, Mouse(EventKind::kMouseUp, mouse_button::kRight));
    EXPECT_EQ(Take(), u"9A");
    Fire(text, Mouse(EventKind::kMouseUp, mouse_button::kMiddle));
    EXPECT_EQ(Take(), u"A");
}

TEST_F(EventsTest, MouseEventsLeaveTheirData) {
    Run(u"ボタン1を作る");
    Fire(Named(u"ボタン1"), Mouse(EventKind::kMouseDown, mouse_button::kRight, 12, 7));
    EXPECT_EQ(eventData.EventButton, u"2");
    EXPECT_EQ(eventData.EventX, 12);
    EXPECT_EQ(eventData.EventY, 7);
    Fire(Named(u"ボタン1"), Mouse(EventKind::kMouseMove, 0, 3, 4));
    EXPECT_EQ(eventData.EventButton, u"2");
    EXPECT_EQ(eventData.EventX, 3);
    Fire(Named(u"ボタン1"), Mouse(EventKind::kMouseMove, 0, 40000, 4));
    EXPECT_EQ(eventData.EventX, 3) << "a number beyond the type is passed over";
}

TEST_F(EventsTest, ACheckTellsItsClickOnlyWhileTheWindowIsVisible) {
    Run(u"チェック1を作る" + Procedure(u"チェック1をクリック", u"c"));
    Fire(Named(u"チェック1"), EventKind::kClick);
    EXPECT_EQ(Record(), u"");
    objects.CurrentWindow->Set(u"Visible", true);
    Fire(Named(u"チェック1"), EventKind::kClick);
    EXPECT_EQ(Record(), u"c");
}

TEST_F(EventsTest, AnOptionTellsItsClickWhenTheButtonComesUp) {
    Run(u"オプション1を作る" + Procedure(u"オプション1をクリック", u"c") +
        Procedure(u"オプション1を右クリック", u"r") + Procedure(u"オプション1を左クリック", u"l") +
        Procedure(u"オプション1でマウスのボタンを上げる", u"u"));
    Fire(Named(u"オプション1"), EventKind::kClick);
    EXPECT_EQ(Record(), u"");
    Fire(Named(u"オプション1"), Mouse(EventKind::kMouseUp, mouse_button::kLeft));
    EXPECT_EQ(Take(), u"cu");
    Fire(Named(u"オプション1"), Mouse(EventKind::kMouseUp, mouse_button::kRight));
    EXPECT_EQ(Take(), u"ru");
}

TEST_F(EventsTest, AFrameTellsItsClickAndThenTheLeftOne) {
    Run(u"フレーム1を作る" + Procedure(u"フレーム1をクリック", u"c") +
        Procedure(u"フレーム1を左クリック", u"l") + Procedure(u"フレーム1を右クリック", u"r"));
    Object& frame = Named(u"フレーム1");
    Fire(frame, Mouse(EventKind::kMouseUp, mouse_button::kLeft));
    Fire(frame, EventKind::kClick);
    EXPECT_EQ(Take(), u"cl");
    Fire(frame, Mouse(EventKind::kMouseUp, mouse_button::kRight));
    EXPECT_EQ(Take(), u"r");
}

TEST_F(EventsTest, ScrollBarsAndLists) {
    Run(u"縦スクロールバー1を作る\r\n横スクロールバー1を作る\r\nリスト1を作る" +
        Procedure(u"縦スクロールバー1をクリック", u"1") +
        Procedure(u"縦スクロールバー1を移動", u"2") +
        Procedure(u"横スクロールバー1をクリック", u"3") +
        Procedure(u"横スクロールバー1を移動", u"4") + Procedure(u"リスト1を移動", u"5") +
        Procedure(u"リスト1をクリック", u"6") + Procedure(u"リスト1に入る", u"x"));
    for (const auto* name : {u"縦スクロールバー1", u"横スクロールバー1"}) {
        Fire(Named(name), EventKind::kChange);
        Fire(Named(name), EventKind::kScroll);
    }
    Fire(Named(u"リスト1"), EventKind::kScroll);
    Fire(Named(u"リスト1"), EventKind::kClick);
    Fire(Named(u"リスト1"), EventKind::kFocusIn);
    EXPECT_EQ(Record(), u"123456");
}

TEST_F(EventsTest, KindsWithoutAnEventTellNothing) {
    Run(u"ボタン1を作る\r\n文章テキスト1を作る\r\nラベル1を作る\r\n選択リスト1を作る" +
        Procedure(u"ボタン1をダブルクリック", u"1") + Procedure(u"文章テキスト1に入る", u"2") +
        Procedure(u"ラベル1でキーボードを押す", u"3") +
        Procedure(u"ボタン1でキーボードを押す", u"4") +
        Procedure(u"選択リスト1でマウスが動く", u"5"));
    Fire(Named(u"ボタン1"), EventKind::kDoubleClick);
    Fire(Named(u"文章テキスト1"), EventKind::kFocusIn);
    Fire(Named(u"ラベル1"), Key(EventKind::kKeyDown, 65));
    Fire(Named(u"ボタン1"), Key(EventKind::kKeyDown, 65));
    Fire(Named(u"選択リスト1"), Mouse(EventKind::kMouseMove, 0));
    EXPECT_EQ(Record(), u"");
}

TEST_F(EventsTest, KeysOfAControlGoOnToTheWindow) {
    Run(u"ウィンドウ1を作る\r\nテキスト1を作る\r\nボタン1を作る" +
        Procedure(u"ウィンドウ1のテキスト1でキーボードを押す", u"t") +
        Procedure(u"ウィンドウ1でキーボードを押す", u"w") +
        Procedure(u"ウィンドウ1でAを押す", u"a") +
        Procedure(u"ウィンドウ1でキーボードAを押す", u"k") + Procedure(u"キーボードAを押す", u"x"));
    Fire(Named(u"テキスト1"), Key(EventKind::kKeyDown, 65));
    EXPECT_EQ(Take(), u"twak");
    EXPECT_EQ(eventData.EventKey, u"A");
    Fire(Named(u"ボタン1"), Key(EventKind::kKeyDown, 65));
    EXPECT_EQ(Take(), u"wak");
}

TEST_F(EventsTest, ThePlainKeyProcedureIsTheLastOne) {
    Run(u"ウィンドウ1を作る" + Procedure(u"ウィンドウ1でAを押す", u"a") +
        Procedure(u"キーボードAを押す", u"x"));
    Fire(*objects.CurrentWindow, Key(EventKind::kKeyDown, 65));
    EXPECT_EQ(Record(), u"ax");
}

TEST_F(EventsTest, KeysThatComeUp) {
    Run(u"ウィンドウ1を作る" + Procedure(u"ウィンドウ1でキーボードを離す", u"1") +
        Procedure(u"ウィンドウ1でコントロール＋Aを離す", u"2") +
        Procedure(u"コントロール＋Aを離す", u"3") +
        Procedure(u"キーボードコントロール＋Aを離す", u"4") +
        Procedure(u"キーボードBを離す", u"5"));
    Fire(*objects.CurrentWindow, Key(EventKind::kKeyUp, 65, shift_state::kControl));
    EXPECT_EQ(Take(), u"123");
    Fire(*objects.CurrentWindow, Key(EventKind::kKeyUp, 66));
    EXPECT_EQ(Take(), u"15");
    EXPECT_EQ(eventData.EventKey, u"B");
}

TEST_F(EventsTest, TypedCharacters) {
    Run(u"テキスト1を作る" + Procedure(u"テキスト1にaを入力", u"1") +
        Procedure(u"テキスト1に入力", u"2"));
    ControlEvent event;
    event.kind = EventKind::kKeyPress;
    event.text = u"a";
    EXPECT_FALSE(Fire(Named(u"テキスト1"), event));
    EXPECT_EQ(Take(), u"12");
    event.text = u"漢";
    Fire(Named(u"テキスト1"), event);
    EXPECT_EQ(Take(), u"2");
    EXPECT_EQ(eventData.EventKey, u"漢");
}

TEST_F(EventsTest, NamesOfKeys) {
    EXPECT_EQ(KeyName(65, 0), u"A");
    EXPECT_EQ(KeyName(48, 0), u"0");
    EXPECT_EQ(KeyName(47, 0), u"/");
    EXPECT_EQ(KeyName(90, 0), u"Z");
    EXPECT_EQ(KeyName(91, 0), u"");
    EXPECT_EQ(KeyName(112, 0), u"") << "function keys have none";
    EXPECT_EQ(KeyName(126, 0), u"");
    EXPECT_EQ(KeyName(46, 0), u"");
    EXPECT_EQ(KeyName(186, 0), u"*");
    EXPECT_EQ(KeyName(191, 0), u"/");
    EXPECT_EQ(KeyName(192, 0), u"@");
    EXPECT_EQ(KeyName(223, 0), u"_");
    EXPECT_EQ(KeyName(224, 0), u"");
    EXPECT_EQ(KeyName(226, 0), u"_");
    EXPECT_EQ(KeyName(13, 0), u"エンター");
    EXPECT_EQ(KeyName(8, 0), u"BackSpace");
    EXPECT_EQ(KeyName(9, 0), u"Tab");
    EXPECT_EQ(KeyName(65, 2), u"コントロール＋A");
    EXPECT_EQ(KeyName(65, 7), u"コントロール＋オルト＋シフト＋A");
    EXPECT_EQ(KeyName(16, 1), u"") << "a modifier isn't told of itself";
    EXPECT_EQ(KeyName(17, 3), u"シフト＋");
    EXPECT_EQ(KeyName(18, 6), u"コントロール＋");
}

TEST_F(EventsTest, WindowEvents) {
    Run(u"固定ウィンドウ3を作る" + Procedure(u"固定ウィンドウ3をクリック", u"1") +
        Procedure(u"固定ウィンドウをダブルクリック", u"2") +
        Procedure(u"固定ウィンドウ3の大きさが変わる", u"3") +
        Procedure(u"固定ウィンドウ3でマウスのボタンを下げる", u"4") +
        Procedure(u"固定ウィンドウ3でマウスが動く", u"5") +
        Procedure(u"固定ウィンドウ3を左クリック", u"6") +
        Procedure(u"固定ウィンドウ3でマウスのボタンを上げる", u"7"));
    Window& window = *objects.CurrentWindow;
    Fire(window, EventKind::kClick);
    Fire(window, EventKind::kDoubleClick);
    window.Set(u"Visible", false);
    Fire(window, EventKind::kResize);
    EXPECT_EQ(Take(), u"12");
    window.Set(u"Visible", true);
    Fire(window, EventKind::kResize);
    Fire(window, Mouse(EventKind::kMouseDown, mouse_button::kLeft, 5, 6));
    Fire(window, Mouse(EventKind::kMouseMove, 0));
    Fire(window, Mouse(EventKind::kMouseUp, mouse_button::kLeft));
    EXPECT_EQ(Take(), u"34567");
}

TEST_F(EventsTest, AStoppedRunHearsNothing) {
    Run(u"ウィンドウ1を作る" + Procedure(u"ウィンドウ1をクリック", u"1"));
    run.StopFlag = true;
    Fire(*objects.CurrentWindow, EventKind::kClick);
    EXPECT_EQ(Record(), u"");
}

TEST_F(EventsTest, DropsOnAWindow) {
    Run(u"ウィンドウ1を作る" + Procedure(u"ウィンドウ1にドラッグ＆ドロップ", u"1"));
    Fire(*objects.CurrentWindow, Files({u"a", u"b", u"c"}));
    EXPECT_EQ(Record(), u"1");
    EXPECT_EQ(eventData.DroppedFiles, u"a,b,c");
}

TEST_F(EventsTest, ADropThatAnotherProcedureTookMakesNoList) {
    Run(u"ウィンドウ1を作る" + Procedure(u"ドラッグ＆ドロップされた", u"1") +
        Procedure(u"ウィンドウ1にドラッグ＆ドロップされた", u"2") +
        Procedure(u"ウィンドウ1にドラッグ＆ドロップ", u"3"));
    Fire(*objects.CurrentWindow, Files({u"a", u"b"}));
    EXPECT_EQ(Record(), u"12");
    EXPECT_EQ(eventData.DroppedFiles, u"a");
}

TEST_F(EventsTest, DropsOnControls) {
    Run(u"テキスト1を作る\r\nボタン1を作る" + Procedure(u"テキスト1にドラッグ＆ドロップ", u"1") +
        Procedure(u"ボタン1にドラッグ＆ドロップ", u"2"));
    ControlEvent over;
    over.kind = EventKind::kDragOver;
    EXPECT_TRUE(Fire(Named(u"テキスト1"), over));
    EXPECT_FALSE(Fire(Named(u"ボタン1"), over));
    Fire(Named(u"テキスト1"), Files({u"a", u"b"}));
    Fire(Named(u"ボタン1"), Files({u"x"}));
    EXPECT_EQ(Record(), u"1");
    EXPECT_EQ(eventData.DroppedFiles, u"a,b");
    ControlEvent text;
    text.kind = EventKind::kDrop;
    text.text = u"文";
    Fire(Named(u"テキスト1"), text);
    EXPECT_EQ(eventData.DroppedFiles, u"文");
}

TEST_F(EventsTest, ADropOnARichTextWaitsForItsDrag) {
    Run(u"拡張テキスト1を作る" + Procedure(u"拡張テキスト1にドラッグ＆ドロップ", u"1"));
    Fire(Named(u"拡張テキスト1"), Files({u"a"}));
    EXPECT_EQ(Record(), u"");
    DeliverDeferredDrops();
    EXPECT_EQ(Record(), u"1");
    DeliverDeferredDrops();
    EXPECT_EQ(Record(), u"1");
}

TEST_F(EventsTest, ADropWhoseControlIsGoneIsForgotten) {
    Run(u"拡張テキスト1を作る" + Procedure(u"拡張テキスト1にドラッグ＆ドロップ", u"1"));
    const ObjectPtr rich = ResolveObject(u"拡張テキスト1", true);
    Fire(*rich, Files({u"a"}));
    RemoveObject(rich);
    DeliverDeferredDrops();
    EXPECT_EQ(Record(), u"");
}

TEST_F(EventsTest, TheTurtleIsClicked) {
    Run(u"ウィンドウ1を作る" + Procedure(u"クリック", u"1") + Procedure(u"ダブルクリック", u"2"));
    const ObjectPtr turtle = objects.TurtleObject;
    ASSERT_NE(turtle, nullptr);
    Fire(*turtle, EventKind::kClick);
    Fire(*turtle, EventKind::kDoubleClick);
    EXPECT_EQ(Record(), u"12");
}

TEST_F(EventsTest, TimersAreNamedWithTheirNumber) {
    Run(u"ウィンドウ1を作る\r\nタイマー2を作る" +
        Procedure(u"ウィンドウ1のタイマー2が時間になった", u"t") +
        Procedure(u"ウィンドウ1のタイマーが時間になった", u"x"));
    Fire(Named(u"タイマー2"), EventKind::kTimer);
    EXPECT_EQ(Record(), u"t");
}

Object* firing = nullptr;
void FireAgain() { Fire(*firing, EventKind::kTimer); }

TEST_F(EventsTest, ATimerNeverInterruptsItself) {
    Run(u"ウィンドウ1を作る\r\nタイマー1を作る\r\nタイマー2を作る\r\n"
        u"手順は　ウィンドウ1のタイマー1が時間になった\r\n記録＝記録＆「("
        u"」\r\n休憩\r\n記録＝記録＆「)」\r\n"
        u"終わり" +
        Procedure(u"ウィンドウ1のタイマー2が時間になった", u"2"));
    Object& timer = Named(u"タイマー1");
    firing = &timer;
    installed_.toolkit.atPump = {FireAgain};
    Fire(timer, EventKind::kTimer);
    EXPECT_EQ(Take(), u"()");
    EXPECT_EQ(objects.CurrentWindow->TimerInEvent, 0);
    firing = &Named(u"タイマー2");
    installed_.toolkit.atPump = {FireAgain};
    Fire(timer, EventKind::kTimer);
    EXPECT_EQ(Take(), u"(2)") << "but another one does";
}

TEST_F(EventsTest, ATimerKeepsTheRunningSentence) {
    Run(u"ウィンドウ1を作る\r\nタイマー1を作る\r\n手順は　ウィンドウ1のタイマー1が時間になった\r\n"
        u"休憩\r\n終わり");
    const StatementPtr before = run.CurrentStatement;
    Fire(Named(u"タイマー1"), EventKind::kTimer);
    EXPECT_EQ(run.CurrentStatement.Get(), before.Get());
}

TEST_F(EventsTest, AControlMayRemoveItselfInItsClick) {
    Run(u"ウィンドウ1を作る\r\nボタン1を作る\r\n手順は　ウィンドウ1のボタン1をクリック\r\nボタン1を"
        u"消す\r\n終わり" +
        Procedure(u"ウィンドウ1のボタン1でマウスのボタンを上げる", u"u"));
    ObjectPtr button = ResolveObject(u"ボタン1", true);
    Fire(*button, EventKind::kClick);
    EXPECT_TRUE(button->IsUnloaded());
    EXPECT_EQ(ResolveObject(u"ボタン1", true), nullptr);
}

TEST_F(EventsTest, WhatItsProcedureRemovesIsNobodysThis) {
    Run(u"ウィンドウ1を作る\r\nボタン2を作る\r\nボタン1を作る\r\nボタン2について\r\n"
        u"手順は　ウィンドウ1のボタン1をクリック\r\nボタン2を消す\r\n終わり");
    objects.ThatObject = ResolveObject(u"ボタン2", true);
    Fire(*FindControl(*objects.CurrentWindow, u"ボタン1"), EventKind::kClick);
    EXPECT_EQ(objects.ThisObject, nullptr);
    EXPECT_EQ(objects.ThatObject, nullptr);
}

TEST_F(EventsTest, AFailureStaysWithinTheEvent) {
    Run(u"ウィンドウ1を作る" + Procedure(u"ウィンドウ1でマウスのボタンを下げる", u"d"));
    Object& window = *objects.CurrentWindow;
    window.Canvas()->scaleMode = 99;
    EXPECT_NO_THROW(Fire(window, Mouse(EventKind::kMouseDown, mouse_button::kLeft, 1, 1)));
    EXPECT_EQ(Record(), u"d") << "a place that can't be told is no reason to tell nothing";
}

// A signal or 終了 sets the flag; a modal window can't see it.
TEST_F(EventsTest, AStoppedRunEndsTheWaitsOfTheToolkit) {
    Run(u"ウィンドウ1を作る");
    run.Status = RunStatus::kRunning;
    EXPECT_FALSE(IsWaitOver());
    run.StopFlag = true;
    EXPECT_TRUE(IsWaitOver());
    run.Status = RunStatus::kIdle;
    EXPECT_FALSE(IsWaitOver()) << "a host may go on asking";
    process.Interrupted = true;
    EXPECT_TRUE(IsWaitOver());
    process.Interrupted = false;
}

TEST_F(EventsTest, AWindowMayCloseInItsControlsEvent) {
    Run(u"ウィンドウ1を作る\r\nウィンドウ2を作る\r\nボタン1を作る\r\n"
        u"手順は　ウィンドウ2のボタン1を左クリック\r\nウィンドウ2を閉じる\r\n終わり" +
        Procedure(u"ウィンドウ2のボタン1でマウスのボタンを上げる", u"u"));
    const ObjectPtr button = ResolveObject(u"ボタン1", true);
    Fire(*button, Mouse(EventKind::kMouseUp, mouse_button::kLeft));
    EXPECT_EQ(FindGlobal(u"ウィンドウ2"), nullptr);
    EXPECT_EQ(Record(), u"") << "a closed window tells nothing more";
}

}  // namespace
}  // namespace velm
