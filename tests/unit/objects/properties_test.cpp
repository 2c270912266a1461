// The engine of properties: paths, which table answers, and what it reports.
#include "objects/properties.h"

#include "core/velm.h"
#include "data/failure.h"
#include "unit/objects/control_test.h"

namespace velm {
namespace {

class Properties : public ControlTest {
  protected:
    // A read in a word's place; empty and not handled where the word stays what it is.
    Value Ask(std::u16string_view path, bool quiet = false) {
        run.ErrorNumber = 0;
        run.ErrorText.clear();
        return GetProperty(path, u"", notHandled, quiet);
    }

    bool notHandled = false;
};

TEST_F(Properties, ABareWordIsNoProperty) {
    EXPECT_EQ(Ask(u"ボタン1").Text(), u"");
    EXPECT_TRUE(notHandled);
    EXPECT_FALSE(IsProperty(u"ボタン1"));
}

TEST_F(Properties, AnUnknownObjectLoadsNoToolkitAndLeavesTheWord) {
    EXPECT_EQ(Read(u"海の色"), u"海の色");
    EXPECT_EQ(Read(u"私の名前"), u"私の名前");
    EXPECT_FALSE(IsProperty(u"海の色"));
    EXPECT_FALSE(IsProperty(u"ボタン1の色"));
    Do(u"海の色は 青");
    EXPECT_EQ(Read(u"海の色"), u"青");
    EXPECT_EQ(run.ErrorNumber, 0);
    EXPECT_FALSE(HasToolkit());
    EXPECT_TRUE(toolkit.notes.empty());
}

TEST_F(Properties, SettingAnUnknownObjectIsReported) {
    Do(u"海の色を、赤に変える");
    EXPECT_EQ(run.ErrorNumber, 104);
    EXPECT_NE(run.ErrorText.find(u"「海」"), run.ErrorText.npos);
    Do(u"海を、赤に変える");
    EXPECT_EQ(run.ErrorNumber, 104);
    EXPECT_NE(run.ErrorText.find(u"「海」"), run.ErrorText.npos);
}

TEST_F(Properties, UnsetPointersAreReportedInAPathButNotInAProbe) {
    objects.ThisObject = nullptr;
    objects.ThatObject = nullptr;
    EXPECT_FALSE(IsProperty(u"この色"));
    EXPECT_FALSE(IsProperty(u"その他の色"));
    EXPECT_EQ(run.ErrorNumber, 0);
    Do(u"こんにちはの色を、赤に変える");
    EXPECT_EQ(installed.dialogs.reported.size(), 2U);
    EXPECT_NE(installed.dialogs.reported.front().text.find(u"「この」が何を表すか分かりません"),
              std::u16string::npos);
}

TEST_F(Properties, NamesThatBeginLikeAPointerMeanItsObject) {
    Do(u"ボタン1を作る");
    objects.ThisObject = Find(u"ボタン1");
    Do(u"こんにちはの名前は 「あ」");
    EXPECT_EQ(Member(u"ボタン1", u"Caption"), u"あ");
    EXPECT_TRUE(IsProperty(u"この幅"));
    EXPECT_TRUE(IsProperty(u"このDefault"));
    EXPECT_TRUE(IsProperty(u"この階層"));
    // What the object doesn't know may be a variable.
    EXPECT_FALSE(IsProperty(u"これのUNKNOWN"));
    EXPECT_FALSE(IsProperty(u"この本の値段"));
    Do(u"この本の値段は 100");
    EXPECT_EQ(Read(u"この本の値段"), u"100");
    EXPECT_EQ(run.ErrorNumber, 0);
}

TEST_F(Properties, TheWidthOfAControlOfAWindow) {
    Do(u"ウィンドウ2を作る");
    Do(u"ボタン1を作る");
    Do(u"ウィンドウ2のボタン1の幅は 123");
    EXPECT_EQ(Of(u"ボタン1").box.width, 123);
    EXPECT_EQ(Read(u"ウィンドウ2のボタン1の幅"), u"123");
    EXPECT_EQ(Read(u"ウィンドウ2の幅"), u"454");
    std::u16string name;
    std::u16string word;
    EXPECT_EQ(SplitPropertyPath(u"ウィンドウ2のボタン1の見出しの3番目", true, name, word),
              Find(u"ボタン1"));
    EXPECT_EQ(name, u"ウィンドウ2のボタン1");
    EXPECT_EQ(word, u"見出しの3番目");
    EXPECT_EQ(SplitPropertyPath(u"ボタン1の 見出しの3番目", true, name, word), Find(u"ボタン1"));
    EXPECT_EQ(name, u"ボタン1");
    EXPECT_EQ(word, u"見出しの3番目");
    EXPECT_EQ(SplitPropertyPath(u"ウィンドウ2のない1の幅", true, name, word),
              objects.CurrentWindow);
    EXPECT_EQ(word, u"ない1の幅");
    EXPECT_EQ(SplitPropertyPath(u"「ボタン1の幅」", true, name, word), nullptr);
    EXPECT_EQ(word, u"");
}

TEST_F(Properties, AMemberOfTheControlIsReachedByItsName) {
    Do(u"ボタン1を作る");
    Do(u"ボタン1のDefaultは 1");
    EXPECT_EQ(Member(u"ボタン1", u"Default"), u"True");
    EXPECT_EQ(Read(u"ボタン1のDefault"), u"1");
    EXPECT_EQ(Read(u"ボタン1のFontSize"), u"9");
}

TEST_F(Properties, AnUnknownWordIsReportedWithObjectAndWord) {
    Do(u"ボタン1を作る");
    Do(u"ボタン1のUNKNOWNは 1");
    EXPECT_EQ(run.ErrorNumber, 102);
    EXPECT_NE(run.ErrorText.find(u"「ボタン1」に「UNKNOWN」"), run.ErrorText.npos);
    ShowWindow();
    Ask(u"ボタン1のUNKNOWN");
    EXPECT_TRUE(notHandled);
    EXPECT_EQ(run.ErrorNumber, 102);
    EXPECT_NE(run.ErrorText.find(u"「ボタン1」に「UNKNOWN」"), run.ErrorText.npos);
}

TEST_F(Properties, AnUnknownWordIsReadInSilenceWhileTheWindowIsHidden) {
    Do(u"ボタン1を作る");
    EXPECT_EQ(Ask(u"ボタン1のUNKNOWN").Text(), u"");
    EXPECT_EQ(run.ErrorNumber, 0);
    ShowWindow();
    Ask(u"ボタン1のUNKNOWN", true);
    EXPECT_EQ(run.ErrorNumber, 0);
}

TEST_F(Properties, AnUnloadedObjectIsReportedByItsName) {
    Do(u"ボタン1を作る");
    ShowWindow();
    const ObjectPtr button = Find(u"ボタン1");
    const WindowPtr window = objects.CurrentWindow;
    button->Unload();
    window->CollObj[ObjectKey(u"ボタン1")] = button;
    Ask(u"ボタン1の色");
    EXPECT_EQ(run.ErrorNumber, 104);
}

TEST_F(Properties, AFailedWriteIsDroppedButOneWithoutItsMemberIsReported) {
    Do(u"ボタン1を作る");
    Of(u"ボタン1").failures[u"CAPTION"] = failure::kBadCall;
    Do(u"ボタン1の名前は 「あ」");
    EXPECT_EQ(run.ErrorNumber, 0);
    Do(u"ボタン1の塗りつぶし色は 赤");
    EXPECT_EQ(run.ErrorNumber, 102);
}

TEST_F(Properties, ALineHasOnlyItsMembers) {
    Do(u"線を作る");
    const ObjectPtr line = objects.ThatObject;
    ASSERT_NE(line, nullptr);
    ASSERT_EQ(line->Class(), ControlClass::kLine);
    EXPECT_EQ(AssignPropertyHandler(*line), nullptr);
    Do(u"そのBorderWidthは 3");
    EXPECT_EQ(line->GetNumber(u"BorderWidth"), 3);
    Do(u"その色は 赤");
    EXPECT_NE(line->GetNumber(u"BorderColor"), 255);
}

TEST_F(Properties, AListOfValuesIsLeftAsItIsWritten) {
    Do(u"テキスト1を作る");
    Do(u"Xは 10");
    Do(u"テキスト1の内容は X,「b」");
    EXPECT_EQ(Member(u"テキスト1", u"Text"), u"X,「b」");
    Do(u"テキスト1の内容は 「a,b」");
    EXPECT_EQ(Member(u"テキスト1", u"Text"), u"a,b");
    Do(u"テキスト1の内容は X＆「,」");
    EXPECT_EQ(Member(u"テキスト1", u"Text"), u"10,");
}

TEST_F(Properties, DrivesAnswerThroughTheTableOfDriveWords) {
    for (const std::u16string_view word : {u"合計サイズ", u"合計容量", u"空き容量", u"空き領域"}) {
        const std::u16string path = u"ドライブCの" + std::u16string(word);
        EXPECT_GT(EvalText(path).NumberOrZero(), 0) << testing::PrintToString(path);
    }
    EXPECT_EQ(Read(u"ドライブCのドライブ名"), u"C");
    EXPECT_EQ(Read(u"ドライブＣの状態"), u"1");
    EXPECT_NE(Read(u"ドライブCのファイルシステム"), u"");
    EXPECT_GT(EvalText(u"ドライブCの種類").NumberOrZero(), 0);
    Ask(u"ドライブCのボリュームラベル");
    EXPECT_FALSE(notHandled);
    EXPECT_EQ(Read(u"ドライブQの状態"), u"ドライブQの状態");
    EXPECT_FALSE(HasToolkit());
}

TEST_F(Properties, TheHostIsAskedForItsOwnValues) {
    EXPECT_EQ(Read(u"呼び出し元の版"), u"呼び出し元の版");
    std::u16string heard;
    TheEngine().events.HostQuery = [](std::u16string_view key) {
        return u"値" + std::u16string(key);
    };
    TheEngine().events.HostProperty = [&](std::u16string_view key, std::u16string_view value) {
        heard = std::u16string(key) + u"=" + std::u16string(value);
        return key == u"版";
    };
    EXPECT_EQ(Read(u"呼び出し元の版"), u"値版");
    Do(u"呼び出し元の版を、1+1に変える");
    EXPECT_EQ(heard, u"版=2");
    EXPECT_EQ(run.ErrorNumber, 0);
    Do(u"呼び出し元の何かを、3に変える");
    EXPECT_EQ(run.ErrorNumber, 104);
    TheEngine().events = HostEvents();
}

TEST_F(Properties, ValueForms) {
    constexpr std::u16string_view names[] = {u"なし", u"上", u"下"};
    EXPECT_EQ(EnumIndexOf(Value(u"下"), names), 2);
    EXPECT_EQ(EnumIndexOf(Value(u"7"), names), 7);
    EXPECT_EQ(EnumIndexOf(Value(u"左"), names), 0);
    PropertyRecord word;
    word.Value = Word(u"上");
    word.Text = Value(u"");
    EXPECT_EQ(EnumIndexOf(word, names), 1);
    word.Text = Value(u"下");
    EXPECT_EQ(EnumIndexOf(word, names), 2);
    word.Value = Word(u"何か");
    word.Text = Value(u"1");
    EXPECT_EQ(EnumIndexOf(word, names), 1);
    EXPECT_EQ(EnumNameOf(1, names).Text(), u"上");
    EXPECT_EQ(EnumNameOf(3, names).Text(), u"3");
    EXPECT_EQ(EnumNameOf(-1, names).Text(), u"-1");
    Do(u"Xは 5");
    PropertyRecord record;
    record.Value = Word(u"X,,（1,2）,あ,4");
    record.Text = Value(record.Value.Text());
    double numbers[] = {-1, -2, -3, -4};
    EXPECT_EQ(SplitCoordinates(record, numbers), 4U);
    EXPECT_EQ(numbers[0], 5);
    EXPECT_EQ(numbers[1], -2);
    EXPECT_EQ(numbers[3], -4);
    record.Value = Word(u"X");
    record.Text = Value(u"7、 8");
    EXPECT_EQ(SplitCoordinates(record, numbers), 2U);
    EXPECT_EQ(numbers[0], 7);
    EXPECT_EQ(numbers[1], 8);
}

}  // namespace
}  // namespace velm
