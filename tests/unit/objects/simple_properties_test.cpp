// Properties of scroll bars, checks and options, images, labels, timers, shapes, folder and drive lists.
#include "unit/objects/control_test.h"

namespace velm {
namespace {

using SimpleProperties = ControlTest;

TEST_F(SimpleProperties, ScrollBars) {
    for (const std::u16string_view name : {u"縦スクロールバー1", u"横スクロールバー1"}) {
        Do(std::u16string(name) + u"を作る");
        CheckRows(name, {
                            {u"最大幅", u"10", u"LargeChange", u"10", u"10"},
                            {u"最小幅", u"2", u"SmallChange", u"2", u"2"},
                            {u"最大値", u"100", u"Max", u"100", u"100"},
                            {u"最高値", u"200", u"Max", u"200", u"200"},
                            {u"最小値", u"-5", u"Min", u"-5", u"-5"},
                            {u"最低値", u"1", u"Min", u"1", u"1"},
                            {u"数字", u"200", u"Value", u"200", u"200"},
                            {u"数字", u"201", u"Value", u"200", u"200"},
                            {u"数字", u"1E+20", u"Value", u"200", u"200"},
                            {u"数字", u"50", u"Value", u"50", u"50"},
                        });
    }
}

TEST_F(SimpleProperties, ANumberTooLargeIsReported) {
    Do(u"横スクロールバー1を作る");
    Do(u"横スクロールバー1の最大値は、1E+20");
    EXPECT_EQ(run.ErrorNumber, 11);
    EXPECT_EQ(Read(u"横スクロールバー1の最大値"), u"32767");
    Of(u"横スクロールバー1").failures[u"MIN"] = 6;
    Do(u"横スクロールバー1の最小値は、40000");
    EXPECT_EQ(run.ErrorNumber, 11);
    Of(u"横スクロールバー1").failures[u"VALUE"] = 5;
    Do(u"横スクロールバー1の数字は、-1");
    EXPECT_EQ(run.ErrorNumber, 0);
}

TEST_F(SimpleProperties, ChecksAndOptions) {
    Do(u"チェック1を作る");
    CheckRows(u"チェック1", {
                                {u"チェック", u"1", u"Value", u"1", u"1"},
                                {u"チェック", u"0", u"Value", u"0", u"0"},
                                {u"チェック", u"-1", u"Value", u"1", u"1"},
                            });
    Put(u"チェック1", u"Value", 2.0);
    EXPECT_EQ(Read(u"チェック1のチェック"), u"1");
    Do(u"オプション1を作る");
    Put(u"オプション1", u"Value", false);
    CheckRows(u"オプション1", {
                                  {u"チェック", u"1", u"Value", u"True", u"1"},
                                  {u"チェック", u"0", u"Value", u"False", u"0"},
                              });
}

TEST_F(SimpleProperties, Images) {
    Do(u"イメージ1を作る");
    CheckRows(u"イメージ1", {
                                {u"拡大縮小", u"1", u"Stretch", u"True", u"1"},
                                {u"拡大縮小", u"0", u"Stretch", u"False", u"0"},
                            });
}

TEST_F(SimpleProperties, Labels) {
    Do(u"ラベル1を作る");
    CheckRows(u"ラベル1", {
                              {u"透明化", u"1", u"BackStyle", u"0", u"1"},
                              {u"透明化", u"0", u"BackStyle", u"1", u"0"},
                              {u"自動調整", u"1", u"AutoSize", u"True", u"1"},
                              {u"表示位置", u"「左」", u"Alignment", u"0", u"左"},
                              {u"表示位置", u"「右」", u"Alignment", u"1", u"右"},
                              {u"表示位置", u"「中央」", u"Alignment", u"2", u"中央"},
                              {u"表示位置", u"1", u"Alignment", u"1", u"右"},
                              {u"アクセスキー", u"0", u"UseMnemonic", u"False", u"0"},
                              {u"折り返し", u"1", u"WordWrap", u"True", u"1"},
                          });
}

TEST_F(SimpleProperties, Timers) {
    Do(u"タイマー1を作る");
    CheckRows(u"タイマー1", {
                                {u"時間", u"500", u"Interval", u"500", u"500"},
                                {u"間隔", u"0", u"Interval", u"0", u"0"},
                                {u"間隔", u"60000", u"Interval", u"60000", u"60000"},
                                {u"有効", u"1", u"Enabled", u"True", u"1"},
                                {u"有効", u"0", u"Enabled", u"False", u"0"},
                            });
}

TEST_F(SimpleProperties, ATimerRefusesLongAndNegativeIntervals) {
    Do(u"タイマー1を作る");
    Do(u"タイマー1の間隔は、100");
    Do(u"タイマー1の間隔は、60001");
    EXPECT_EQ(run.ErrorText, u"タイマーの間隔は、１分以下です。");
    EXPECT_EQ(run.ErrorWord, u"60001");
    EXPECT_EQ(installed.dialogs.reported.size(), 1U);
    Do(u"タイマー1の時間は、-1");
    EXPECT_EQ(run.ErrorText, u"間隔の値が正しくありません。");
    EXPECT_EQ(run.ErrorWord, u"-1");
    EXPECT_EQ(Read(u"タイマー1の間隔"), u"100");
}

TEST_F(SimpleProperties, ATimerHasNoCommonWords) {
    Do(u"タイマー1を作る");
    for (const std::u16string_view word : {u"名前", u"幅", u"色"}) {
        Do(u"タイマー1の" + std::u16string(word) + u"は、1");
        EXPECT_EQ(run.ErrorNumber, 102) << testing::PrintToString(word);
    }
}

TEST_F(SimpleProperties, Shapes) {
    Do(u"形1を作る");
    // The name by which the maker enters it.
    const std::u16string_view name = u"形1";
    ASSERT_TRUE(Find(name));
    CheckRows(name, {
                        {u"形", u"「長方形」", u"Shape", u"0", u"長方形"},
                        {u"形", u"「正方形」", u"Shape", u"1", u"正方形"},
                        {u"形", u"「楕円」", u"Shape", u"2", u"楕円"},
                        {u"形", u"「円」", u"Shape", u"3", u"円"},
                        {u"形", u"「丸めの長方形」", u"Shape", u"4", u"丸めの長方形"},
                        {u"形", u"5", u"Shape", u"5", u"丸めの長方形"},
                        {u"線の太さ", u"3", u"BorderWidth", u"3", u"3"},
                        {u"線の色", u"「赤」", u"BorderColor", u"255", u"&hFF0000"},
                        {u"線の種類", u"2", u"BorderStyle", u"2", u"2"},
                    });
}

TEST_F(SimpleProperties, FolderAndDriveLists) {
    Do(u"フォルダリスト1を作る");
    CheckRows(u"フォルダリスト1",
              {
                  {u"番号", u"-1", u"ListIndex", u"-1", u"-1"},
                  {u"フォルダ", u"「C:\\tmp」", u"Path", u"C:\\tmp", u"C:\\tmp"},
              });
    Do(u"ドライブリスト1を作る");
    CheckRows(u"ドライブリスト1", {
                                      {u"番号", u"0", u"ListIndex", u"0", u"0"},
                                      {u"ドライブ", u"「c:」", u"Drive", u"c:", u"c:"},
                                  });
    for (const std::u16string_view name : {u"フォルダリスト1", u"ドライブリスト1"}) {
        Put(name, u"ListCount", 3.0);
        EXPECT_EQ(Read(std::u16string(name) + u"の個数"), u"3");
        CheckReadOnly(name, u"個数");
    }
}

}  // namespace
}  // namespace velm
