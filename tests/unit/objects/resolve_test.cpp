// From names to objects and back.
#include "objects/resolve.h"

#include "core/variables.h"
#include "objects/object_commands.h"
#include "unit/objects/control_test.h"

namespace velm {
namespace {

class Resolve : public ControlTest {
  protected:
    // Whether the name finds the object, quietly.
    static ObjectPtr Look(std::u16string_view name) { return ResolveObject(name, true); }
    int ReportOf(std::u16string_view name) {
        run.ErrorNumber = 0;
        ResolveObject(name, false);
        return run.ErrorNumber;
    }
    std::size_t Reports() const { return installed.dialogs.reported.size(); }
};

TEST_F(Resolve, NoNameAtAll) {
    EXPECT_EQ(Look(u""), nullptr);
    EXPECT_EQ(Reports(), 0U);
    EXPECT_EQ(ReportOf(u""), 105);
    EXPECT_EQ(run.ErrorText, u"オブジェクトを指定してください。");
    EXPECT_EQ(ReportOf(u"  "), 105);
}

TEST_F(Resolve, AnUnknownName) {
    EXPECT_EQ(Look(u"箱車"), nullptr);
    EXPECT_EQ(Reports(), 0U);
    EXPECT_EQ(ReportOf(u" 箱車 "), 104);
    EXPECT_EQ(run.ErrorText, u"「箱車」と言うオブジェクトは見つかりません。");
}

TEST_F(Resolve, WidthAndCaseMakeNoDifference) {
    Do(u"ボタン1を作る");
    const ObjectPtr button = Find(u"ボタン1");
    EXPECT_EQ(Look(u"ボタン１"), button);
    EXPECT_EQ(Look(u"ﾎﾞﾀﾝ1"), button);
    Do(u"ボタン2をｓｔａｒｔとして作る");
    EXPECT_EQ(Look(u"START")->Index(), 2);
}

TEST_F(Resolve, TheFirstCharacterAloneMeansThisOrThat) {
    Do(u"ボタン1を作る");
    Do(u"ボタン2を作る");
    objects.ThisObject = Find(u"ボタン1");
    objects.ThatObject = Find(u"ボタン2");
    EXPECT_EQ(Look(u"こんにちは"), objects.ThisObject);
    objects.ThatObject = Find(u"ボタン2");
    EXPECT_EQ(Look(u"そら"), Find(u"ボタン2"));
    objects.ThisObject = nullptr;
    objects.ThatObject = nullptr;
    EXPECT_EQ(Look(u"こんにちは"), nullptr);
    EXPECT_EQ(ReportOf(u"こんにちは"), 104);
}

TEST_F(Resolve, UnsetPronounsInAPropertyPath) {
    run.ErrorNumber = 0;
    EXPECT_EQ(FindPluginObject(u"その", true), nullptr);
    EXPECT_EQ(run.ErrorNumber, 0);
    FindPluginObject(u"その", false);
    EXPECT_EQ(run.ErrorNumber, 90);
    EXPECT_NE(run.ErrorText.find(u"「その」が何を表すか分かりません。"), run.ErrorText.npos);
    EXPECT_NE(run.ErrorText.find(u"「使う」命令を使ってください。"), run.ErrorText.npos);
    FindPluginObject(u"これ", false);
    EXPECT_NE(run.ErrorText.find(u"「この」が何を表すか分かりません。"), run.ErrorText.npos);
    EXPECT_NE(run.ErrorText.find(u"「～について」命令を使ってください。"), run.ErrorText.npos);
}

TEST_F(Resolve, NamingAControlMakesItUnlessQuiet) {
    EXPECT_EQ(Look(u"ボタン3"), nullptr);
    EXPECT_TRUE(toolkit.notes.empty());
    const ObjectPtr button = ResolveObject(u"ボタン3", false);
    ASSERT_TRUE(button);
    EXPECT_EQ(Find(u"ボタン3"), button);
    EXPECT_EQ(Of(u"ボタン3").box, (PixelBox{223, 159, 65, 25}));
    EXPECT_EQ(objects.ThatObject, button);
    EXPECT_EQ(run.ErrorNumber, 0);
}

TEST_F(Resolve, WhatResolvesButIsNeverMade) {
    EXPECT_EQ(ReportOf(u"プロセスバー1"), 104) << "behind the maker's 103";
    ASSERT_EQ(Reports(), 2U);
    EXPECT_EQ(installed.dialogs.reported[0].text.find(u"「プロセスバー1」"), 0U);
    EXPECT_EQ(ReportOf(u"シェイプ1"), 104);
    Do(u"形1をシェイプ1として作る");
    EXPECT_EQ(Look(u"シェイプ１")->Class(), ControlClass::kShape);
}

TEST_F(Resolve, ALinesNumberBeginsOneCharacterLater) {
    Do(u"ウィンドウ2を作る");
    Do(u"線をライン2として作る");
    Do(u"線をライン12として作る");
    EXPECT_EQ(Look(u"ラインx2"), Find(u"ライン2"));
    EXPECT_EQ(ReportOf(u"ライン15"), 104);
    EXPECT_EQ(installed.dialogs.reported[Reports() - 2].text.find(u"「ライン5」"), 0U);
}

TEST_F(Resolve, TheNumberIsEvaluatedButForTimers) {
    Do(u"ウィンドウ2を作る");
    SetVariable(u"番", Value(u"2"));
    Do(u"ボタン2を作る");
    Do(u"タイマー2を作る");
    EXPECT_EQ(Look(u"ボタン番"), Find(u"ボタン2"));
    EXPECT_EQ(Look(u"ボタン（1＋1）"), Find(u"ボタン2"));
    EXPECT_EQ(Look(u"タイマー番"), nullptr);
    EXPECT_EQ(Look(u"タイマー02"), Find(u"タイマー2"));
}

TEST_F(Resolve, TheOnlyWindowIsNotSearchedForACanonicalName) {
    SetVariable(u"番", Value(u"2"));
    Do(u"ボタン2を作る");
    EXPECT_EQ(objects.WindowCount, 1);
    EXPECT_EQ(Look(u"ボタン番"), nullptr);
    const ObjectPtr button = Find(u"ボタン2");
    EXPECT_EQ(ResolveObject(u"ボタン番", false), button) << "the maker gives what is there";
    Do(u"ウィンドウ2を作る");
    Do(u"ボタン2を作る");
    EXPECT_EQ(Look(u"ボタン番"), Find(u"ボタン2"));
}

TEST_F(Resolve, AQualifierIsPassedOver) {
    Do(u"ウィンドウ2を作る");
    Do(u"ボタン1を作る");
    const ObjectPtr button = Find(u"ボタン1");
    EXPECT_EQ(Look(u"ウィンドウ9のボタン1"), button);
    EXPECT_EQ(Look(u"ウィンドウ0のボタン1"), button);
    EXPECT_EQ(Look(u"「あの」のボタン1"), button);
    Do(u"ボタン2を開始として作る");
    EXPECT_EQ(Look(u"ウィンドウ2の開始"), nullptr) << "only kind words count behind の";
}

TEST_F(Resolve, LongerWordsStandFirst) {
    Do(u"ウィンドウ2を作る");
    Do(u"リスト1を作る");
    EXPECT_EQ(Look(u"リスト（1）"), Find(u"リスト1"));
    EXPECT_EQ(Look(u"リストビュー1"), nullptr);
    Do(u"ドライブリスト1を作る");
    EXPECT_EQ(Look(u"ドライブリスト（1）"), Find(u"ドライブリスト1"));
}

TEST_F(Resolve, TheFirstWindowIsThereFromTheStart) {
    EXPECT_EQ(Look(u"ウィンドウ０"), objects.FirstWindow);
    EXPECT_EQ(Look(u"ウィンドウ0"), objects.FirstWindow);
    EXPECT_EQ(Look(u"ウィンドウ1"), nullptr);
    EXPECT_EQ(Look(u"ウィンドウ一覧"), nullptr);
    EXPECT_TRUE(toolkit.notes.empty()) << "no toolkit for it";
    EXPECT_EQ(ObjectKindName(*objects.FirstWindow), u"ウィンドウ０");
}

TEST_F(Resolve, AWindowThatIsNamedBecomesCurrent) {
    Do(u"ウィンドウ1を作る");
    const WindowPtr first = objects.CurrentWindow;
    Do(u"ウィンドウ2を作る");
    const WindowPtr second = objects.CurrentWindow;
    EXPECT_EQ(Look(u"ウィンドウ１"), first);
    EXPECT_EQ(objects.CurrentWindow, first);
    EXPECT_EQ(WindowByName(u"ウィンドウ（1＋1）"), second);
    EXPECT_EQ(objects.CurrentWindow, second);
    EXPECT_EQ(objects.ThatObject, second);
    EXPECT_EQ(WindowByName(u"固定ウィンドウ2"), nullptr);
    EXPECT_EQ(WindowByName(u"ボタン2"), nullptr);
}

TEST_F(Resolve, WindowWords) {
    EXPECT_EQ(SplitWindowName(u"ウィンドウ2").kind, 0);
    EXPECT_EQ(SplitWindowName(u"固定ウィンドウ").kind, 1);
    EXPECT_EQ(SplitWindowName(u"縁無しウィンドウ3").kind, 2);
    EXPECT_EQ(SplitWindowName(u"ツールウィンドウ3").kind, 3);
    EXPECT_EQ(SplitWindowName(u"固定ツールウィンドウ3").rest, u"3");
    EXPECT_EQ(SplitWindowName(u"フルスクリーン").kind, 5);
    EXPECT_EQ(SplitWindowName(u"選択ウィンドウ").kind, -1);
}

TEST_F(Resolve, TheActiveWindowAndItsControl) {
    EXPECT_EQ(Look(u"アクティブ"), nullptr);
    EXPECT_EQ(Look(u"アクティブウィンドウ"), nullptr);
    Do(u"ウィンドウ2を作る");
    Do(u"テキスト1を作る");
    RecordedWindow& window = Recorded(*objects.CurrentWindow);
    EXPECT_EQ(Look(u"アクティブ"), nullptr);
    toolkit.activeWindow = &window;
    EXPECT_EQ(Look(u"アクティブ"), nullptr);
    window.activeControl = &Of(u"テキスト1");
    EXPECT_EQ(Look(u"アクティブ"), Find(u"テキスト1"));
    EXPECT_EQ(Look(u"アクティブウィンドウ"), objects.CurrentWindow);
}

TEST_F(Resolve, DialogsPrinterAndDrivesAreObjects) {
    const ObjectPtr dialogs = Look(u"選択ウィンドウ");
    ASSERT_TRUE(dialogs);
    EXPECT_EQ(Look(u"選択ウィンドウ"), dialogs);
    EXPECT_EQ(ObjectKindName(*dialogs), u"選択ウィンドウ");
    EXPECT_EQ(Look(u"プリンタ")->Class(), ControlClass::kPrinter);
    EXPECT_EQ(Look(u"プリンタ一覧"), nullptr);
    EXPECT_TRUE(toolkit.notes.empty()) << "naming them needs no toolkit";
    dialogs->Set(u"FileName", std::u16string(u"a"));
    EXPECT_TRUE(toolkit.HasNote(u"Dialogs1.FileName=a"));
    EXPECT_EQ(Look(u"ドライブC")->GetText(u"DriveLetter"), u"C");
    EXPECT_EQ(Look(u"ドライブｃ")->GetText(u"DriveLetter"), u"C");
    EXPECT_EQ(Look(u"ドライブQ"), nullptr);
    EXPECT_EQ(ReportOf(u"ドライブQ"), 104);
}

TEST_F(Resolve, TheTurtle) {
    EXPECT_EQ(Look(u"カメ"), objects.FirstWindow->MainIcon());
    EXPECT_EQ(Look(u"カメ2"), nullptr);
    Do(u"カメ2を作る");
    EXPECT_EQ(objects.TurtleObject, objects.FirstWindow->MainIcon());
    EXPECT_EQ(Look(u"カメ（2）")->Index(), 2);
    EXPECT_EQ(objects.TurtleObject->Index(), 2);
}

TEST_F(Resolve, AQuietLookRunsAndSaysNothing) {
    RunLines(u"手順は\u3000印\r\n記録＝「走った」\r\n終わり\r\n");
    EXPECT_EQ(Look(u"タブ印"), nullptr);
    EXPECT_EQ(Look(u"表無い（1）"), nullptr);
    EXPECT_EQ(Look(u"ボタン（1／0"), nullptr);
    EXPECT_EQ(FindVariable(Word(u"記録").AsName()), nullptr);
    EXPECT_EQ(Reports(), 0U);
}

TEST_F(Resolve, NamesOfKindsAreFullWidth) {
    const std::pair<std::u16string_view, std::u16string_view> rows[] = {
        {u"ボタン1", u"ボタン１"},
        {u"テキスト2", u"テキスト２"},
        {u"形3", u"シェイプ３"},
        {u"文章テキスト4", u"文章テキスト４"},
        {u"選択リスト5", u"選択リスト５"},
        {u"入力選択リスト6", u"入力選択リスト６"},
        {u"拡張テキスト12", u"拡張テキスト１２"},
        {u"タイマー10", u"タイマー１０"},
        {u"フォルダリスト7", u"フォルダリスト７"},
        {u"縦スクロールバー8", u"縦スクロールバー８"},
    };
    for (const auto& [made, shown] : rows) {
        Do(std::u16string(made) + u"を作る");
        const ObjectPtr object = Find(made);
        ASSERT_TRUE(object);
        objects.CurrentWindow->CollObAlias.clear();
        EXPECT_EQ(ObjectKindName(*object), shown);
    }
    EXPECT_EQ(ObjectKindName(*objects.TurtleObject), u"ピクチャー０");
    Do(u"固定ウィンドウ2を作る");
    EXPECT_EQ(ObjectKindName(*objects.CurrentWindow), u"固定ウィンドウ２");
    objects.CurrentWindow->tag.clear();
    EXPECT_EQ(ObjectKindName(*objects.CurrentWindow), u"固定ウィンドウ");
}

TEST_F(Resolve, RegisteringANameTwice) {
    Do(u"ボタン1を開始として作る");
    Do(u"ボタン1を開始として作る");
    EXPECT_EQ(run.ErrorNumber, 0) << "the same object";
    Do(u"ボタン2を開始として作る");
    EXPECT_EQ(run.ErrorNumber, 90);
    EXPECT_NE(run.ErrorText.find(u"開始は、すでに使われています。"), run.ErrorText.npos);
    EXPECT_EQ(Find(u"開始")->Index(), 2) << "the name is the later one's";
    EXPECT_EQ(ObjectKindName(*Find(u"開始")), u"ボタン２");
    const Window& window = *objects.CurrentWindow;
    const ObjectPtr first = window.Element(u"Command1", 1);
    EXPECT_EQ(window.CollObjType.at(first->Identity()), u"");
    RegisterName(*objects.CurrentWindow, nullptr, u"開始");
    EXPECT_FALSE(Find(u"開始"));
}

TEST_F(Resolve, ARemovedNameIsFree) {
    Do(u"ボタン1を作る");
    Do(u"ボタン1を消す");
    Do(u"ボタン1を作る");
    EXPECT_EQ(run.ErrorNumber, 0);
    EXPECT_EQ(ObjectKindName(*Find(u"ボタン1")), u"ボタン１");
}

TEST_F(Resolve, AGlobalNameStaysWhatItIs) {
    RegisterGlobalName(objects.FirstWindow, u"画面");
    Do(u"ボタン1を作る");
    RegisterGlobalName(Find(u"ボタン1"), u"画面");
    EXPECT_EQ(FindGlobal(u"画面"), objects.FirstWindow);
    EXPECT_EQ(Look(u"画面"), objects.FirstWindow);
}

TEST_F(Resolve, CutsAtOf) {
    std::u16string_view front;
    std::u16string_view back;
    EXPECT_TRUE(CutAtOf(u"甲の乙の丙", front, back));
    EXPECT_EQ(front, u"甲");
    EXPECT_EQ(back, u"乙の丙");
    EXPECT_TRUE(CutAtLastOf(u"甲の乙の丙", front, back));
    EXPECT_EQ(front, u"甲の乙");
    EXPECT_EQ(back, u"丙");
    EXPECT_TRUE(CutAtOf(u"（甲の乙）の丙", front, back));
    EXPECT_EQ(back, u"丙");
    EXPECT_FALSE(CutAtOf(u"「甲の乙」", front, back));
    EXPECT_FALSE(CutAtLastOf(u"甲", front, back));
}

TEST_F(Resolve, AboutHoldsOneLevel) {
    Do(u"ボタン1を作る");
    Do(u"ボタン2を作る");
    Do(u"ついておわり");
    EXPECT_EQ(run.ErrorNumber, 91);
    EXPECT_NE(run.ErrorText.find(u"「～について」が使われていません。"), run.ErrorText.npos);
    Do(u"ボタン1について");
    EXPECT_EQ(objects.ThisObject, Find(u"ボタン1"));
    Do(u"ボタン2について");
    EXPECT_EQ(objects.ThisObject, Find(u"ボタン2"));
    Do(u"ついて終わり");
    EXPECT_EQ(objects.ThisObject, Find(u"ボタン1"));
    Do(u"ついておわり");
    EXPECT_EQ(objects.ThisObject, Find(u"ボタン1")) << "one level only";
}

TEST_F(Resolve, FocusAndLayers) {
    Do(u"テキスト1を作る");
    Do(u"テキスト1に焦点");
    EXPECT_TRUE(toolkit.HasNote(u"Text1.SetFocus"));
    Do(u"テキスト1を最背面");
    EXPECT_TRUE(toolkit.HasNote(u"Text1.ZOrder 1"));
    Do(u"テキスト1を最前面");
    EXPECT_TRUE(toolkit.HasNote(u"Text1.ZOrder"));
    Do(u"無い物を最前面");
    EXPECT_EQ(run.ErrorNumber, 0);
    Do(u"無い物に焦点");
    EXPECT_EQ(run.ErrorNumber, 104);
}

TEST_F(Resolve, WhatWasUnloadedIsNobodysThat) {
    Do(u"ボタン1を作る");
    Do(u"ボタン1について");
    Do(u"ボタン1を消す");
    EXPECT_EQ(objects.ThatObject, nullptr);
    EXPECT_EQ(objects.ThisObject, nullptr);
    EXPECT_EQ(Look(u"これ"), nullptr);
}

}  // namespace
}  // namespace velm
