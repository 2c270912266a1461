// Properties of text boxes and of rich text.
#include "unit/objects/control_test.h"

namespace velm {
namespace {

using TextProperties = ControlTest;

TEST_F(TextProperties, RowsBothWays) {
    for (const std::u16string_view name : {u"テキスト1", u"文章テキスト1"}) {
        Do(std::u16string(name) + u"を作る");
        CheckRows(name, {
                            {u"隠し文字", u"「*」", u"PasswordChar", u"*", u"*"},
                            {u"選択", u"「い」", u"SelText", u"い", u"い"},
                            {u"選択スタート", u"1+1", u"SelStart", u"2", u"2"},
                            {u"選択長さ", u"3", u"SelLength", u"3", u"3"},
                            {u"制限文字数", u"１０", u"MaxLength", u"10", u"10"},
                            {u"入力ロック", u"5", u"Locked", u"True", u"1"},
                            {u"入力ロック", u"0", u"Locked", u"False", u"0"},
                            {u"ＩＭＥの状態", u"「ひらがな」", u"IMEMode", u"4", u"ひらがな"},
                            {u"ＩＭＥの状態", u"2", u"IMEMode", u"2", u"オフ"},
                            {u"ＩＭＥの状態", u"12", u"IMEMode", u"12", u"12"},
                        });
    }
}

TEST_F(TextProperties, EveryInputMode) {
    Do(u"テキスト1を作る");
    const std::u16string_view words[] = {u"普通",         u"オン",     u"オフ",
                                         u"無効",         u"ひらがな", u"カタカナ",
                                         u"半角カタカナ", u"英数字",   u"半角英数字"};
    double number = 0;
    for (const std::u16string_view word : words) {
        Do(u"テキスト1のＩＭＥの状態は、「" + std::u16string(word) + u"」");
        EXPECT_EQ(Member(u"テキスト1", u"IMEMode"), MemberToText(number++));
        EXPECT_EQ(Read(u"テキスト1のＩＭＥの状態"), word);
    }
}

TEST_F(TextProperties, ContentIsText) {
    Do(u"テキスト1を作る");
    Do(u"ラベル1を作る");
    Do(u"テキスト1の内容は、「あ」");
    Do(u"ラベル1の内容は、「い」");
    EXPECT_EQ(Member(u"テキスト1", u"Text"), u"あ");
    EXPECT_EQ(Read(u"テキスト1の内容"), u"あ");
    EXPECT_EQ(Member(u"ラベル1", u"Caption"), u"い");
    EXPECT_EQ(Read(u"ラベル1の内容"), u"い");
}

TEST_F(TextProperties, WhereTheCaretIs) {
    struct Place {
        double caret;
        std::u16string_view line;
        std::u16string_view column;
    };
    Do(u"文章テキスト1を作る");
    Put(u"文章テキスト1", u"Text", u"ab\r\n\r\ncde");
    for (const Place& place : {Place{0, u"1", u"0"}, Place{2, u"1", u"2"}, Place{4, u"2", u"0"},
                               Place{6, u"3", u"0"}, Place{9, u"3", u"3"}}) {
        Put(u"文章テキスト1", u"SelStart", place.caret);
        EXPECT_EQ(Read(u"文章テキスト1の行数"), place.line);
        EXPECT_EQ(Read(u"文章テキスト1の桁数"), place.column);
    }
    CheckReadOnly(u"文章テキスト1", u"行数");
    CheckReadOnly(u"文章テキスト1", u"桁数");
}

TEST_F(TextProperties, AFailedWriteIsDropped) {
    Do(u"テキスト1を作る");
    Of(u"テキスト1").failures[u"SELSTART"] = 5;
    Do(u"テキスト1の選択スタートは、-1");
    EXPECT_EQ(run.ErrorNumber, 0);
    EXPECT_EQ(Read(u"テキスト1の選択スタート"), u"0");
}

TEST_F(TextProperties, WrappingTakesAnElementOfAnotherArray) {
    Do(u"文章テキスト1を作る");
    Do(u"文章テキスト1の位置と大きさは、10,20,200,100");
    Do(u"文章テキスト1のフォントサイズは、20");
    Do(u"文章テキスト1のヒントは、「説明」");
    Do(u"文章テキスト1のＩＭＥの状態は、「オフ」");
    Put(u"文章テキスト1", u"ForeColor", 255.0);
    Put(u"文章テキスト1", u"BackColor", 65280.0);
    Put(u"文章テキスト1", u"Text", u"一行\r\n二行");
    Put(u"文章テキスト1", u"SelStart", 5.0);
    const ObjectPtr old = Find(u"文章テキスト1");
    EXPECT_EQ(Read(u"文章テキスト1の折り返し"), u"0");

    Do(u"文章テキスト1の折り返しは、1");
    const ObjectPtr fresh = Find(u"文章テキスト1");
    ASSERT_TRUE(fresh);
    EXPECT_EQ(fresh->Name(), u"Text3");
    EXPECT_EQ(fresh->Index(), 1);
    EXPECT_EQ(objects.ThatObject, fresh);
    EXPECT_EQ(Read(u"文章テキスト1の折り返し"), u"1");
    EXPECT_EQ(fresh->Geometry(), (PixelBox{10, 20, 200, 100}));
    EXPECT_EQ(Member(u"文章テキスト1", u"Text"), u"一行\r\n二行");
    EXPECT_EQ(Member(u"文章テキスト1", u"SelStart"), u"5");
    EXPECT_EQ(Member(u"文章テキスト1", u"ForeColor"), u"255");
    EXPECT_EQ(Member(u"文章テキスト1", u"BackColor"), u"65280");
    EXPECT_EQ(Member(u"文章テキスト1", u"FontSize"), u"20");
    EXPECT_EQ(Member(u"文章テキスト1", u"ToolTipText"), u"説明");
    EXPECT_EQ(Member(u"文章テキスト1", u"IMEMode"), u"2");
    EXPECT_EQ(Member(u"文章テキスト1", u"Visible"), u"True");
    EXPECT_EQ(ObjectKindName(*fresh), u"文章テキスト１");
    EXPECT_TRUE(old->IsUnloaded());

    Do(u"文章テキスト1の折り返しは、0");
    EXPECT_EQ(Find(u"文章テキスト1")->Name(), u"Text2");
    EXPECT_EQ(Member(u"文章テキスト1", u"Text"), u"一行\r\n二行");
    EXPECT_EQ(run.ErrorNumber, 0);
}

TEST_F(TextProperties, WrappingAsItIsChangesNothing) {
    Do(u"文章テキスト1を作る");
    const ObjectPtr text = Find(u"文章テキスト1");
    Do(u"文章テキスト1の折り返しは、0");
    EXPECT_EQ(Find(u"文章テキスト1"), text);
    Do(u"テキスト1を作る");
    const ObjectPtr line = Find(u"テキスト1");
    Do(u"テキスト1の折り返しは、1");
    EXPECT_EQ(Find(u"テキスト1"), line);
    EXPECT_EQ(Read(u"テキスト1の折り返し"), u"0");
}

TEST_F(TextProperties, AHiddenTextStaysHiddenAndKeepsItsAlias) {
    Do(u"文章テキスト1をメモとして作る");
    Do(u"メモの表示は、0");
    Do(u"メモの折り返しは、1");
    ASSERT_TRUE(Find(u"メモ"));
    EXPECT_EQ(Find(u"メモ")->Name(), u"Text3");
    EXPECT_EQ(Member(u"メモ", u"Visible"), u"False");
    EXPECT_EQ(run.ErrorNumber, 0);
}

TEST_F(TextProperties, TheReplacedTextMayBeThisOne) {
    Do(u"文章テキスト1を作る");
    Do(u"文章テキスト1について");
    Do(u"この折り返しは、1");  // no path: the word has no の
    Do(u"これの折り返しは、1");
    EXPECT_EQ(objects.ThisObject, Find(u"文章テキスト1"));
    EXPECT_EQ(Read(u"これの折り返し"), u"1");
}

TEST_F(TextProperties, RichTextRowsBothWays) {
    Do(u"拡張テキスト1を作る");
    CheckRows(u"拡張テキスト1",
              {
                  {u"内容", u"「文」", u"Text", u"文", u"文"},
                  {u"RTF内容", u"「rtf」", u"TextRTF", u"rtf", u"rtf"},
                  {u"フォント名", u"「明朝」", u"FontName", u"明朝", u"明朝"},
                  {u"フォントサイズ", u"12", u"FontSize", u"12", u"12"},
                  {u"折り返し", u"0", u"WordWrap", u"False", u"0"},
                  {u"選択", u"「い」", u"SelText", u"い", u"い"},
                  {u"選択スタート", u"2", u"SelStart", u"2", u"2"},
                  {u"選択長さ", u"3", u"SelLength", u"3", u"3"},
                  {u"選択太字", u"1", u"SelBold", u"True", u"1"},
                  {u"選択斜体", u"1", u"SelItalic", u"True", u"1"},
                  {u"選択下線", u"1", u"SelUnderline", u"True", u"1"},
                  {u"選択取り消し線", u"1", u"SelStrikeThru", u"True", u"1"},
                  {u"選択色", u"「赤」", u"SelColor", u"255", u"&hFF0000"},
                  {u"選択フォント名", u"「ゴシック」", u"SelFontName", u"ゴシック", u"ゴシック"},
                  {u"選択フォントサイズ", u"20", u"SelFontSize", u"20", u"20"},
                  {u"選択文字位置", u"「左揃え」", u"SelAlignment", u"0", u"左揃え"},
                  {u"選択文字位置", u"「右揃え」", u"SelAlignment", u"1", u"右揃え"},
                  {u"選択文字位置", u"「中央揃え」", u"SelAlignment", u"2", u"中央揃え"},
                  {u"選択左余白", u"8", u"SelIndent", u"8", u"8"},
                  {u"選択右余白", u"9", u"SelRightIndent", u"9", u"9"},
                  {u"選択余白", u"10", u"SelHangingIndent", u"10", u"10"},
                  {u"選択文字ロック", u"1", u"SelProtected", u"True", u"1"},
                  {u"制限文字数", u"100", u"MaxLength", u"100", u"100"},
                  {u"入力ロック", u"1", u"Locked", u"True", u"1"},
              });
}

TEST_F(TextProperties, RichTextHasWordsForOneSide) {
    Do(u"拡張テキスト1を作る");
    Do(u"拡張テキスト1のアドレス色付けは、1");
    EXPECT_EQ(Member(u"拡張テキスト1", u"AutoUrl"), u"True");
    Do(u"拡張テキスト1の縦書きは、1");
    EXPECT_EQ(Member(u"拡張テキスト1", u"Vertical"), u"True");
    Do(u"拡張テキスト1の背景は、「青」");
    EXPECT_EQ(Member(u"拡張テキスト1", u"BackColor"), u"16711680");
    Do(u"拡張テキスト1のマウスカーソルは、2");
    EXPECT_EQ(Member(u"拡張テキスト1", u"MousePointer"), u"2");
    for (const std::u16string_view word :
         {u"アドレス色付け", u"縦書き", u"背景", u"マウスカーソル"}) {
        CheckWriteOnly(u"拡張テキスト1", word);
    }
}

TEST_F(TextProperties, AnUnknownWordIsReported) {
    Do(u"テキスト1を作る");
    Do(u"テキスト1の無い項目は、1");
    EXPECT_EQ(run.ErrorNumber, 102);
    EXPECT_NE(run.ErrorText.find(u"「テキスト1」に「無い項目」"), run.ErrorText.npos);
}

}  // namespace
}  // namespace velm
