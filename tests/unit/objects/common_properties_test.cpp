// The properties that all controls share.
#include "objects/properties.h"
#include "unit/objects/control_test.h"

namespace velm {
namespace {

class CommonProperties : public ControlTest {
  protected:
    CommonProperties() {
        Do(u"ウィンドウ2を作る");
        Do(u"ウィンドウ2の中の大きさは 400,300");
        Do(u"ボタン1を作る");
    }
    // Where the control stands, as its table of places tells.
    static PixelBox Box(std::u16string_view name) { return Of(name).box; }
};

TEST_F(CommonProperties, EveryPlainRowBothWays) {
    CheckRows(u"ボタン1", {
                              {u"名前", u"「はい」", u"Caption", u"はい", u"はい"},
                              {u"色", u"赤", u"ForeColor", u"255", u"&hFF0000"},
                              {u"表示", u"0", u"Visible", u"False", u"0"},
                              {u"表示", u"-3", u"Visible", u"True", u"1"},
                              {u"有効", u"0", u"Enabled", u"False", u"0"},
                              {u"有効", u"2", u"Enabled", u"True", u"1"},
                              {u"有効", u"「はい」", u"Enabled", u"False", u"0"},
                              {u"タブインデックス", u"4", u"TabIndex", u"4", u"4"},
                              {u"フォント名", u"「あ」", u"FontName", u"あ", u"あ"},
                              {u"フォントサイズ", u"12", u"FontSize", u"12", u"12"},
                              {u"太字", u"1", u"FontBold", u"True", u"1"},
                              {u"斜体", u"1", u"FontItalic", u"True", u"1"},
                              {u"下線", u"1", u"FontUnderline", u"True", u"1"},
                              {u"取り消し線", u"1", u"FontStrikethru", u"True", u"1"},
                              {u"ヒント", u"「押す」", u"ToolTipText", u"押す", u"押す"},
                          });
    Do(u"ボタン1の情報は 「覚え」");
    EXPECT_EQ(Read(u"ボタン1の情報"), u"覚え");
    EXPECT_EQ(Find(u"ボタン1")->tag, u"覚え");
}

TEST_F(CommonProperties, TheDropModeHasAJoiningSignInItsName) {
    Do(u"ボタン1のドラッグ＆ドロップは 0");
    EXPECT_EQ(Member(u"ボタン1", u"OLEDropMode"), u"0");
    bool notHandled = true;
    EXPECT_EQ(GetProperty(u"ボタン1のドラッグ＆ドロップ", u"", notHandled, false).Text(), u"0");
    EXPECT_FALSE(notHandled);
    // So a word can't read it.
    EXPECT_EQ(Read(u"ボタン1のドラッグ＆ドロップ"), u"ボタン1のドラッグドロップ");
}

TEST_F(CommonProperties, ColoursInAllTheirForms) {
    Do(u"ボタン1の色は 「赤」");
    EXPECT_EQ(Member(u"ボタン1", u"ForeColor"), u"255");
    Do(u"ボタン1の色は 青");
    Do(u"ボタン1の色は 12");
    EXPECT_EQ(Member(u"ボタン1", u"ForeColor"), u"255");
    Do(u"ボタン1の色は 標準の文字の色");
    EXPECT_EQ(Read(u"ボタン1の色"), u"&h80000008");
    Do(u"ボタン1の色は 99");
    EXPECT_EQ(Read(u"ボタン1の色"), u"&h80000008");
    EXPECT_EQ(run.ErrorNumber, 0);
}

TEST_F(CommonProperties, PlaceAndSize) {
    Do(u"ボタン1の位置は 10,20");
    Do(u"ボタン1の大きさは 100,30");
    EXPECT_EQ(Box(u"ボタン1"), (PixelBox{10, 20, 100, 30}));
    EXPECT_EQ(Read(u"ボタン1の位置"), u"10,20");
    EXPECT_EQ(Read(u"ボタン1の大きさ"), u"100,30");
    EXPECT_EQ(Read(u"ボタン1の位置と大きさ"), u"10,20,100,30");
    Do(u"ボタン1の縦は 5");
    Do(u"ボタン1の横は 6.6");
    Do(u"ボタン1の幅は 70");
    Do(u"ボタン1の高さは 「40」");
    EXPECT_EQ(Box(u"ボタン1"), (PixelBox{7, 5, 70, 40}));
    EXPECT_EQ(Read(u"ボタン1の縦"), u"5");
    EXPECT_EQ(Read(u"ボタン1の横"), u"7");
    EXPECT_EQ(Read(u"ボタン1の幅"), u"70");
    EXPECT_EQ(Read(u"ボタン1の高さ"), u"40");
    Do(u"ボタン1の位置と大きさは 1,2,3,4");
    EXPECT_EQ(Box(u"ボタン1"), (PixelBox{1, 2, 3, 4}));
}

TEST_F(CommonProperties, PositionsTakeVariablesAndLists) {
    Do(u"Xは 11");
    Do(u"Yは 22");
    Do(u"ボタン1の位置は X,Y+1");
    EXPECT_EQ(Read(u"ボタン1の位置"), u"11,23");
    Do(u"場は 「30,40」");
    Do(u"ボタン1の位置は 場");
    EXPECT_EQ(Read(u"ボタン1の位置"), u"30,40");
    Do(u"ボタン1の位置は 50");
    EXPECT_EQ(Read(u"ボタン1の位置"), u"50,40");
    Do(u"ボタン1の位置と大きさは 1,あ,3");
    EXPECT_EQ(Read(u"ボタン1の位置と大きさ"), u"1,40,3,25");
}

TEST_F(CommonProperties, TheMiddleIsThatOfTheCurrentWindow) {
    Do(u"ボタン1の大きさは 100,30");
    Do(u"ボタン1の位置は 中央");
    EXPECT_EQ(Box(u"ボタン1"), (PixelBox{150, 135, 100, 30}));
    Do(u"ボタン1の位置は 0,0");
    Do(u"ボタン1の縦は 中央");
    EXPECT_EQ(Box(u"ボタン1"), (PixelBox{0, 135, 100, 30}));
    Do(u"ボタン1の縦は 「1」");
    Do(u"ボタン1の横は 「中央」");
    EXPECT_EQ(Box(u"ボタン1"), (PixelBox{150, 1, 100, 30}));
}

TEST_F(CommonProperties, ADropDownKeepsItsHeight) {
    Do(u"選択リスト1を作る");
    const std::int32_t height = Box(u"選択リスト1").height;
    Do(u"選択リスト1の位置と大きさは 1,2,90,400");
    EXPECT_EQ(Box(u"選択リスト1"), (PixelBox{1, 2, 90, height}));
    Do(u"入力選択リスト1を作る");
    Do(u"入力選択リスト1の位置と大きさは 3,4,80");
    EXPECT_EQ(Box(u"入力選択リスト1"), (PixelBox{3, 4, 80, height}));
}

TEST_F(CommonProperties, ContentIsTextOrCaption) {
    Do(u"テキスト1を作る");
    Do(u"テキスト1の内容は 「あ」");
    EXPECT_EQ(Member(u"テキスト1", u"Text"), u"あ");
    EXPECT_EQ(Read(u"テキスト1の内容"), u"あ");
    Do(u"ラベル1を作る");
    Do(u"ラベル1の内容は 「い」");
    EXPECT_EQ(Member(u"ラベル1", u"Caption"), u"い");
    EXPECT_EQ(Read(u"ラベル1の内容"), u"い");
    Do(u"ボタン1の内容は 「はい」");
    EXPECT_EQ(Member(u"ボタン1", u"Caption"), u"はい");
    EXPECT_EQ(Read(u"ボタン1の内容"), u"はい");
    EXPECT_EQ(run.ErrorNumber, 0);
}

TEST_F(CommonProperties, AContentTooLongIsReported) {
    Do(u"テキスト1を作る");
    Of(u"テキスト1").failures[u"TEXT"] = 7;
    Do(u"テキスト1の内容は 「あ」");
    EXPECT_EQ(run.ErrorNumber, 90);
    EXPECT_NE(run.ErrorText.find(u"64KB以上の内容は代入できません"), run.ErrorText.npos);
}

TEST_F(CommonProperties, MousePointersByWordNumberAndFile) {
    CheckRows(u"ボタン1", {
                              {u"マウスカーソル", u"砂時計", u"MousePointer", u"11", u"11"},
                              {u"マウスカーソル", u"２重の四角形", u"MousePointer", u"4", u"4"},
                              {u"マウスカーソル", u"2", u"MousePointer", u"2", u"2"},
                          });
    Do(u"ボタン1のマウスカーソルは 「a.cur」");
    EXPECT_EQ(Member(u"ボタン1", u"MousePointer"), u"99");
    EXPECT_EQ(Member(u"ボタン1", u"MouseIcon"), u"a.cur");
    EXPECT_EQ(Read(u"ボタン1のマウスカーソル"), u"a.cur");
    Of(u"ボタン1").failures[u"MOUSEICON"] = 53;
    Do(u"ボタン1のマウスカーソルは 0");
    Do(u"ボタン1のマウスカーソルは 「b.cur」");
    EXPECT_EQ(Read(u"ボタン1のマウスカーソル"), u"0");
    EXPECT_EQ(run.ErrorNumber, 0);
}

TEST_F(CommonProperties, WordsForOneSideFallToTheMembers) {
    Do(u"ボタン1の階層は 1");
    EXPECT_TRUE(toolkit.HasNote(Of(u"ボタン1").label + u".ZOrder 1"));
    Do(u"ボタン1のタブ移動は 0");
    EXPECT_EQ(Member(u"ボタン1", u"TabStop"), u"False");
    Do(u"ボタン1の文字セットは 0");
    EXPECT_EQ(Member(u"ボタン1", u"FontCharset"), u"0");
    Do(u"形1を作る");
    Do(u"その塗りつぶし色は 赤");
    EXPECT_EQ(objects.ThatObject->GetNumber(u"FillColor"), 255);
    ShowWindow();
    for (const std::u16string_view word : {u"階層", u"タブ移動", u"文字セット"}) {
        run.ErrorNumber = 0;
        Read(u"ボタン1の" + std::u16string(word));
        EXPECT_EQ(run.ErrorNumber, 102);
    }
}

TEST_F(CommonProperties, HandlesAreReadAndTheirSettingIgnored) {
    EXPECT_EQ(Read(u"ボタン1のハンドル"), u"65536");
    Do(u"ボタン1のハンドルは 5");
    Do(u"ボタン1のＤＣハンドルは 5");
    EXPECT_EQ(run.ErrorNumber, 0);
    EXPECT_EQ(Read(u"ボタン1のハンドル"), u"65536");
    // There are no device contexts.
    ShowWindow();
    for (const std::u16string_view word : {u"ＤＣハンドル", u"コンテキストハンドル", u"イメージ"}) {
        run.ErrorNumber = 0;
        Read(u"ボタン1の" + std::u16string(word));
        EXPECT_EQ(run.ErrorNumber, 102);
    }
}

TEST_F(CommonProperties, NamesNumbersAndCountsAreReadOnlyWithoutSayingSo) {
    EXPECT_EQ(Read(u"ボタン1のオブジェクト名"), u"ボタン１");
    EXPECT_EQ(Read(u"ボタン1のオブジェクト番号"), u"1");
    EXPECT_EQ(Read(u"ボタン1のオブジェクト数"), u"1");
    for (const std::u16string_view word :
         {u"オブジェクト名", u"オブジェクト数", u"オブジェクト番号"}) {
        Do(u"ボタン1の" + std::u16string(word) + u"は 5");
        EXPECT_EQ(run.ErrorNumber, 102);
    }
    run.ErrorNumber = 0;
    EXPECT_EQ(Read(u"ウィンドウ2のオブジェクト番号"), u"");
    EXPECT_EQ(run.ErrorNumber, 90);
    EXPECT_NE(run.ErrorText.find(u"対応していない設定項目です"), run.ErrorText.npos);
    EXPECT_NE(run.ErrorText.find(u"オブジェクト番号"), run.ErrorText.npos);
}

TEST_F(CommonProperties, PicturesMaskTheirColour) {
    Do(u"ボタン1の背景は 青");
    Do(u"ボタン1の透明色は 赤");
    EXPECT_EQ(Find(u"ボタン1")->Class(), ControlClass::kPictureButton);
    EXPECT_EQ(Member(u"ボタン1", u"BackColor"), u"16711680");
    EXPECT_EQ(Member(u"ボタン1", u"MaskColor"), u"255");
    EXPECT_EQ(Member(u"ボタン1", u"UseMaskColor"), u"True");
    EXPECT_EQ(Read(u"ボタン1の透明色"), u"&hFF0000");
    EXPECT_EQ(Read(u"ボタン1の背景"), u"&h0000FF");
    EXPECT_EQ(Read(u"ボタン1のオブジェクト名"), u"ボタン１");
}

TEST_F(CommonProperties, ControlsMoveIntoOtherContainers) {
    Do(u"ピクチャー1を作る");
    Do(u"ボタン1の表示場所は ピクチャー1");
    EXPECT_EQ(Find(u"ボタン1")->Container(), Find(u"ピクチャー1"));
    EXPECT_EQ(Of(u"ボタン1").container, &Of(u"ピクチャー1"));
    EXPECT_EQ(Read(u"ボタン1の表示場所"), u"ピクチャー１");
    Do(u"ボタン1の表示場所は ウィンドウ2");
    EXPECT_EQ(Read(u"ボタン1の表示場所"), u"ウィンドウ２");
    Do(u"ボタン1の表示場所は ない物");
    EXPECT_EQ(run.ErrorNumber, 104);
}

TEST_F(CommonProperties, AlignmentByWordAndNumber) {
    Do(u"ピクチャー1を作る");
    CheckRows(u"ピクチャー1", {
                                  {u"配置", u"上側", u"Align", u"1", u"上側"},
                                  {u"配置", u"下側", u"Align", u"2", u"下側"},
                                  {u"配置", u"3", u"Align", u"3", u"左側"},
                                  {u"配置", u"右側", u"Align", u"4", u"右側"},
                                  {u"配置", u"なし", u"Align", u"0", u"なし"},
                              });
}

TEST_F(CommonProperties, PlacesInAFrameAreToldInTheScaleOfTheWindow) {
    Do(u"フレーム1を作る");
    Do(u"ボタン1の表示場所は フレーム1");
    Do(u"ボタン1の位置と大きさは 3,4,50,20");
    EXPECT_EQ(Box(u"ボタン1"), (PixelBox{3, 4, 50, 20}));
    EXPECT_EQ(Read(u"ボタン1の位置と大きさ"), u"3,4,50,20");
    // The plain member is that of a container without a scale of its own.
    EXPECT_EQ(Read(u"ボタン1のLeft"), u"45");
    Do(u"ボタン1の縦は 9");
    Do(u"ボタン1の横は 8");
    Do(u"ボタン1の幅は 7");
    Do(u"ボタン1の高さは 6");
    EXPECT_EQ(Box(u"ボタン1"), (PixelBox{8, 9, 7, 6}));
    EXPECT_EQ(Read(u"ボタン1の位置"), u"8,9");
    EXPECT_EQ(Read(u"ボタン1の大きさ"), u"7,6");
    EXPECT_EQ(Read(u"ボタン1の縦"), u"9");
    EXPECT_EQ(Read(u"ボタン1の幅"), u"7");
    Do(u"ウィンドウ2の座標は センチメートル");
    Do(u"ボタン1の横は 2.54");
    EXPECT_EQ(Box(u"ボタン1").left, 96);
    EXPECT_EQ(Read(u"ボタン1の横"), u"2.54");
}

TEST_F(CommonProperties, PlacesFollowTheScaleOfTheContainer) {
    Do(u"ウィンドウ2の座標は ミリメートル");
    Do(u"ボタン1の位置は 25.4,12.7");
    EXPECT_EQ(Box(u"ボタン1").left, 96);
    EXPECT_EQ(Box(u"ボタン1").top, 48);
    EXPECT_EQ(Read(u"ボタン1の位置"), u"25.4,12.7");
    Do(u"ピクチャー1を作る");
    Do(u"ボタン1の表示場所は ピクチャー1");
    EXPECT_EQ(Read(u"ボタン1の横"), u"96");
}

}  // namespace
}  // namespace velm
