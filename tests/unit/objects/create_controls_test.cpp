// Making controls.
#include "core/variables.h"
#include "objects/create.h"
#include "objects/kinds.h"
#include "objects/object_canvas.h"
#include "unit/objects/control_test.h"
#include "unit/platform/fails_with.h"

namespace velm {
namespace {

using CreateControls = ControlTest;

TEST_F(CreateControls, EveryKindWithItsSizeAndCaption) {
    struct Kind {
        std::u16string_view word;
        std::u16string_view label;
        std::int32_t width;
        std::int32_t height;
        std::u16string_view caption;
    };
    const Kind rows[] = {
        {u"ボタン1", u"Button1", 65, 25, u"ボタン"},
        {u"テキスト1", u"Text1", 65, 18, u""},
        {u"文章テキスト1", u"MultiLineText1", 65, 57, u""},
        {u"ピクチャー1", u"Picture1", 65, 49, u""},
        {u"イメージ1", u"Image1", 73, 49, u""},
        {u"ラベル1", u"Label1", 65, 12, u"ラベル"},
        {u"リスト1", u"List1", 65, 18, u""},
        {u"選択リスト1", u"DropDown1", 65, 20, u""},
        {u"入力選択リスト1", u"EditableDropDown1", 65, 20, u""},
        {u"縦スクロールバー1", u"VerticalScrollBar1", 17, 65, u""},
        {u"横スクロールバー1", u"HorizontalScrollBar1", 73, 17, u""},
        {u"チェック1", u"Check1", 65, 17, u"チェック"},
        {u"オプション1", u"Option1", 73, 17, u"オプション"},
        {u"フレーム1", u"Frame1", 73, 33, u"フレーム"},
        {u"形1", u"Shape1", 17, 17, u""},
        {u"フォルダリスト1", u"FolderList1", 49, 20, u""},
        {u"ドライブリスト1", u"DriveList1", 49, 20, u""},
    };
    for (const Kind& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.word));
        Do(std::u16string(row.word) + u"を作る");
        ASSERT_TRUE(Find(row.word));
        EXPECT_EQ(run.ErrorNumber, 0);
        EXPECT_EQ(Of(row.word).label, row.label);
        EXPECT_EQ(Of(row.word).box.width, row.width);
        EXPECT_EQ(Of(row.word).box.height, row.height);
        if (!row.caption.empty()) {
            EXPECT_EQ(Member(row.word, u"Caption"), row.caption);
        }
        EXPECT_EQ(Member(row.word, u"Visible"), u"True");
        EXPECT_EQ(objects.ThatObject, Find(row.word));
    }
    EXPECT_EQ(FindTemplate(u"Text3")->height, 57);
    EXPECT_EQ(FindTemplate(u"Command2")->width, 65);
    EXPECT_EQ(FindTemplate(u"Line1")->height, 16);
    EXPECT_EQ(FindTemplate(u"Nothing1"), nullptr);
}

TEST_F(CreateControls, ANewControlStandsAtTheDrawingPosition) {
    Do(u"ボタン1を作る");
    EXPECT_EQ(Of(u"ボタン1").box, (PixelBox{223, 159, 65, 25}));
    objects.CurrentWindow->Canvas()->CurrentX = 30;
    objects.CurrentWindow->Canvas()->CurrentY = 40;
    Do(u"ボタン2を作る");
    EXPECT_EQ(Of(u"ボタン2").box, (PixelBox{30, 40, 65, 25}));
}

TEST_F(CreateControls, ASecondMakingLeavesTheControlInPlace) {
    Do(u"ボタン1を作る");
    const ObjectPtr button = Find(u"ボタン1");
    button->SetGeometry({1, 2, 3, 4});
    Do(u"ボタン1を作る");
    EXPECT_EQ(Find(u"ボタン1"), button);
    EXPECT_EQ(run.ErrorNumber, 0);
    EXPECT_EQ(button->Geometry(), (PixelBox{1, 2, 3, 4}));
    EXPECT_EQ(toolkit.controls.size(), 1U);
}

TEST_F(CreateControls, NumberZeroIsTheHiddenTemplate) {
    Do(u"ボタン0を作る");
    EXPECT_EQ(run.ErrorNumber, 0);
    const ObjectPtr button = Find(u"ボタン0");
    ASSERT_TRUE(button);
    EXPECT_EQ(button->Index(), 0);
    EXPECT_EQ(Member(u"ボタン0", u"Visible"), u"False");
    Do(u"ボタン0の表示は、1");
    EXPECT_EQ(Member(u"ボタン0", u"Visible"), u"False");
    RemoveObject(button);
    EXPECT_FALSE(button->IsUnloaded());
    EXPECT_FALSE(Find(u"ボタン0"));
}

TEST_F(CreateControls, TheNumberIsEvaluated) {
    SetVariable(u"番", Value(u"2"));
    Do(u"ボタン（番＋1）を作る");
    EXPECT_EQ(Find(u"ボタン3")->Index(), 3);
    Do(u"ラベル番を作る");
    EXPECT_EQ(Find(u"ラベル2")->Index(), 2);
    Do(u"タイマー番を作る");
    EXPECT_EQ(Find(u"タイマー0")->Index(), 0) << "a timer's number is a plain one";
    Do(u"ボタン99999を作る");
    EXPECT_EQ(Find(u"ボタン0")->Index(), 0) << "more than 16 bits";
}

TEST_F(CreateControls, EachPassOfALoopMakesAControlOfItsOwn) {
    Do(u"ウィンドウ1を作る");
    for (const std::u16string_view number : {u"1", u"2", u"3"}) {
        SetVariable(u"番", Value(number));
        Do(u"ボタン番を作る");
        EXPECT_EQ(run.ErrorNumber, 0);
        Do(u"ボタン番の名前は、番");
    }
    SetVariable(u"番", Value(u"2"));
    EXPECT_EQ(Read(u"ボタン番の名前"), u"2");
    EXPECT_EQ(Read(u"ボタン3の名前"), u"3");
    EXPECT_EQ(Read(u"ボタン1のオブジェクト名"), u"ボタン１");
}

TEST_F(CreateControls, ShapesAndLinesAreMadeByOtherWords) {
    Do(u"形3を作る");
    EXPECT_EQ(Find(u"形3")->Class(), ControlClass::kShape);
    EXPECT_EQ(Read(u"形3のオブジェクト名"), u"シェイプ３");
    Do(u"形4を四角として作る");
    Do(u"形4を作る");
    EXPECT_EQ(Read(u"形4のオブジェクト名"), u"四角");
    Do(u"シェイプ3を作る");
    EXPECT_EQ(run.ErrorNumber, 103);
    Do(u"線を作る");
    EXPECT_EQ(Find(u"線")->Class(), ControlClass::kLine);
    EXPECT_EQ(Find(u"線")->Index(), 0);
    EXPECT_EQ(Find(u"ライン0"), Find(u"線"));
    EXPECT_EQ(ObjectKindName(*Find(u"線")), u"ライン０");
    Do(u"線2を作る");
    EXPECT_EQ(run.ErrorNumber, 103);
    Do(u"ライン2を作る");
    EXPECT_EQ(run.ErrorNumber, 103);
}

TEST_F(CreateControls, KindsThatComeLaterAndUnknownWords) {
    for (const std::u16string_view word :
         {u"リストビュー1", u"ツールバー1", u"プログレスバー1", u"プロセスバー1", u"ツリービュー1",
          u"ステータスバー1", u"タブ1", u"スライダ1", u"ブラウザ1", u"表1", u"拡張オブジェクト1",
          u"箱車"}) {
        SCOPED_TRACE(testing::PrintToString(word));
        Do(std::u16string(word) + u"を作る");
        EXPECT_EQ(run.ErrorNumber, 103);
        EXPECT_EQ(run.ErrorText.find(u"「" + std::u16string(word) + u"」と言うオブジェクト"), 0U);
        EXPECT_FALSE(Find(word));
    }
    EXPECT_TRUE(toolkit.controls.empty());
}

TEST_F(CreateControls, ARunTimeControlIsCountedByItsHighestNumber) {
    Do(u"拡張テキスト3を作る");
    Do(u"拡張テキスト2を作る");
    const ObjectPtr text = Find(u"拡張テキスト3");
    EXPECT_EQ(text->Name(), u"ExTx3");
    EXPECT_EQ(text->Index(), -1);
    EXPECT_EQ(ObjectCount(*text), u"3");
    EXPECT_EQ(Member(u"拡張テキスト3", u"OLEDropMode"), u"1");
    Do(u"拡張テキスト3を作る");
    EXPECT_EQ(Find(u"拡張テキスト3"), text);
    Do(u"拡張テキスト3を消す");
    EXPECT_EQ(ObjectCount(*Find(u"拡張テキスト2")), u"3");
}

TEST_F(CreateControls, AnArrayIsCountedWithoutItsTemplate) {
    Do(u"ボタン0を作る");
    Do(u"ボタン1を作る");
    Do(u"ボタン5を作る");
    Do(u"ラベル1を作る");
    EXPECT_EQ(ObjectCount(*Find(u"ボタン1")), u"2");
    EXPECT_EQ(ObjectCount(*Find(u"ラベル1")), u"1");
    EXPECT_EQ(NextFreeElement(*objects.CurrentWindow, u"Command1"), 2);
}

TEST_F(CreateControls, ATimerStartsDisabled) {
    Do(u"タイマー1を作る");
    EXPECT_EQ(Member(u"タイマー1", u"Enabled"), u"False");
    Do(u"タイマー1の有効は、1");
    Do(u"タイマー1を作る");
    EXPECT_EQ(Member(u"タイマー1", u"Enabled"), u"True");
}

TEST_F(CreateControls, TheBackgroundOfTheWindow) {
    objects.CurrentWindow->Set(u"BackColor", 255.0);
    Do(u"ピクチャー1を作る");
    Do(u"チェック1を作る");
    Do(u"オプション1を作る");
    Do(u"ラベル1を作る");
    EXPECT_EQ(Find(u"ピクチャー1")->GetNumber(u"BackColor"), 255);
    EXPECT_EQ(Member(u"チェック1", u"BackColor"), u"255");
    EXPECT_EQ(Member(u"オプション1", u"BackColor"), u"255");
    EXPECT_NE(Member(u"ラベル1", u"BackColor"), u"255");
}

TEST_F(CreateControls, TheFontOfTheWindow) {
    Do(u"ボタン1を作る");
    EXPECT_FALSE(toolkit.HasNote(u"Button1.FontSize=9")) << "the template has the plain one";
    objects.CurrentWindow->Canvas()->Font.size = 20;
    objects.CurrentWindow->Canvas()->Font.bold = true;
    Do(u"ボタン2を作る");
    EXPECT_EQ(Member(u"ボタン2", u"FontSize"), u"20");
    EXPECT_EQ(Member(u"ボタン2", u"FontBold"), u"True");
    EXPECT_EQ(Member(u"ボタン1", u"FontSize"), u"9");
}

TEST_F(CreateControls, WhileAPictureIsDrawnOnControlsGoIntoIt) {
    Do(u"ピクチャー1を作る");
    const ObjectPtr picture = Find(u"ピクチャー1");
    SetDrawTarget(picture);
    picture->Canvas()->CurrentX = 7;
    picture->Canvas()->CurrentY = 8;
    Do(u"ボタン1を作る");
    EXPECT_EQ(Find(u"ボタン1")->Container(), picture);
    EXPECT_EQ(Of(u"ボタン1").box, (PixelBox{7, 8, 65, 25}));
}

TEST_F(CreateControls, WhileAFrameIsThePlaceControlsGoIntoIt) {
    Do(u"フレーム1を作る");
    Do(u"場所は フレーム1");
    Do(u"オプション1を作る");
    EXPECT_EQ(Find(u"オプション1")->Container(), Find(u"フレーム1"));
    EXPECT_EQ(Of(u"オプション1").container, &Of(u"フレーム1"));
    Do(u"フレーム1を消す");
    EXPECT_FALSE(Find(u"オプション1"));
}

TEST_F(CreateControls, AnAliasIsTheName) {
    Do(u"ボタン1を開始として作る");
    EXPECT_TRUE(Find(u"開始"));
    EXPECT_FALSE(Find(u"ボタン1"));
    EXPECT_EQ(ObjectKindName(*Find(u"開始")), u"開始");
    Do(u"ボタン2を「停止」として作る");
    EXPECT_EQ(Find(u"停止")->Index(), 2);
}

TEST_F(CreateControls, UseMakesAHiddenControlOnce) {
    Do(u"ボタン1を開始として使う");
    ASSERT_TRUE(Find(u"開始"));
    EXPECT_EQ(Member(u"開始", u"Visible"), u"False");
    objects.ThatObject = nullptr;
    Do(u"開始を別名として使う");
    EXPECT_EQ(objects.ThatObject, Find(u"開始"));
    EXPECT_FALSE(Find(u"別名"));
    Do(u"ウィンドウ2を設定画面として使う");
    EXPECT_EQ(objects.CurrentWindow->tag, u"設定画面");
    EXPECT_FALSE(objects.CurrentWindow->isShown);
}

TEST_F(CreateControls, LoadElementTellsWhetherItIsNew) {
    bool isNew = false;
    const ObjectPtr element = LoadElement(objects.CurrentWindow, u"Text3", 4, isNew);
    EXPECT_TRUE(isNew);
    EXPECT_EQ(element->Class(), ControlClass::kWrappedText);
    EXPECT_EQ(LoadElement(objects.CurrentWindow, u"Text3", 4, isNew), element);
    EXPECT_FALSE(isNew);
    EXPECT_EQ(FailureOf([&] { LoadElement(objects.CurrentWindow, u"Text3", -1, isNew); }),
              failure::kNoSuchElement);
    EXPECT_EQ(FailureOf([&] { LoadElement(objects.CurrentWindow, u"Nothing", 1, isNew); }),
              failure::kNoSuchElement);
}

TEST_F(CreateControls, InHostedModeRunTimeKindsAreElementsOfTheHostsArrays) {
    objects.HostedMode = true;
    Do(u"拡張テキスト2を作る");
    EXPECT_EQ(Find(u"拡張テキスト2")->Name(), u"ExTx1");
    EXPECT_EQ(Find(u"拡張テキスト2")->Index(), 2);
    ResolveObject(u"ボタン5", true);
    EXPECT_TRUE(Find(u"ボタン5")) << "naming makes, even quietly";
    objects.HostedMode = false;
}

TEST_F(CreateControls, WithoutAToolkitNothingCanBeMade) {
    SetToolkitStarter(nullptr);
    Do(u"ボタン1を作る");
    EXPECT_EQ(run.ErrorNumber, 103);
    EXPECT_FALSE(Find(u"ボタン1"));
    EXPECT_EQ(objects.CurrentWindow->Controls.size(), 1U) << "the turtle alone";
}

TEST_F(CreateControls, ManyControls) {
    RunLines(u"Iに1から1000まで、繰り返し\r\nボタン（I）を作る\r\n繰り返し終わり\r\n");
    EXPECT_EQ(toolkit.controls.size(), 1000U);
    ASSERT_TRUE(Find(u"ボタン1000"));
    EXPECT_EQ(Find(u"ボタン1000")->Index(), 1000);
    EXPECT_TRUE(installed.dialogs.reported.empty()) << "each has a name of its own";
}

}  // namespace
}  // namespace velm
