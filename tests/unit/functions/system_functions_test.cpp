// The functions of the desktop with a desktop of known content, and the gate before the autostart folder.
#include "functions/system_functions.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "core/eval.h"
#include "core/protection.h"
#include "core/velm.h"
#include "data/failure.h"
#include "data/text.h"
#include "platform/desktop.h"

namespace velm {
namespace {

class KnownDesktop final : public Desktop {
  public:
    ScreenPoint ScreenSize() override { return {1920, 1080}; }
    ScreenPoint MousePosition() override { return {-5, 300}; }
    bool IsKeyDown(std::int32_t key) override { return keysDown.contains(key); }
    std::vector<std::u16string> Fonts() override { return {u"明朝", u"@明朝", u"a,b", u"Sans"}; }
    std::vector<std::u16string> WindowTitles() override {
        return {u"一", std::u16string(u"二\0三", 3), u"四、五"};
    }
    std::u16string ActiveWindowTitle() override { return title; }
    std::int32_t MainWindowPointer() override { return 11; }

    std::set<std::int32_t> keysDown;
    std::u16string title = u"端末";
};

class SystemFunctionsTest : public testing::Test {
  protected:
    void SetUp() override {
        TheEngine();
        ResetRunState();
        SetDesktop(&desktop_);
    }
    void TearDown() override {
        SetDesktop(nullptr);
        ProtectionLevels = {};
        ResetRunState();
        run.Status = RunStatus::kIdle;
    }
    static std::u16string Of(std::u16string_view word) { return EvalText(word).Text(); }

    KnownDesktop desktop_;
};

TEST_F(SystemFunctionsTest, ScreenAndMouse) {
    EXPECT_EQ(Of(u"画面の幅"), u"1920");
    EXPECT_EQ(Of(u"画面の高さ"), u"1080");
    EXPECT_EQ(Of(u"画面のマウスの横"), u"-5");
    EXPECT_EQ(Of(u"画面のマウスの縦"), u"300");
    EXPECT_EQ(Of(u"マウスカーソル"), u"11");
}

TEST_F(SystemFunctionsTest, FontsLeaveOutTheVerticalOnes) {
    EXPECT_EQ(Of(u"フォント一覧"), u"明朝,a{**}b,Sans");
}

TEST_F(SystemFunctionsTest, WindowTitlesAreCutAtNulAndEscaped) {
    EXPECT_EQ(Of(u"起動中プログラム一覧"), u"一,二,四{//}五");
}

TEST_F(SystemFunctionsTest, TheForegroundTitleHas256CharactersAtMost) {
    EXPECT_EQ(Of(u"アクティブウィンドウの名前"), u"端末");
    desktop_.title = std::u16string(300, u'長');
    EXPECT_EQ(Of(u"アクティブウィンドウの名前"), std::u16string(256, u'長'));
}

TEST_F(SystemFunctionsTest, AKeyOfOneCharacterGoesByItsCode) {
    desktop_.keysDown = {u'A', u'1', 13, 0x82A0, 0x20};
    EXPECT_EQ(Of(u"キー状態（「A」）"), u"1");
    EXPECT_EQ(Of(u"キー状態（「a」）"), u"0");
    EXPECT_EQ(Of(u"キー状態（1）"), u"1");
    EXPECT_EQ(Of(u"キー状態（改行）"), u"1");
    EXPECT_EQ(Of(u"キー状態（「あ」）"), u"1");
    EXPECT_EQ(Of(u"キー状態（「 」）"), u"1");
    EXPECT_EQ(Of(u"キー状態（「B」）"), u"0");
}

TEST_F(SystemFunctionsTest, ALongerKeyIsAVirtualKeyNumber) {
    desktop_.keysDown = {112, 65};
    EXPECT_EQ(Of(u"キー状態（112）"), u"1");
    EXPECT_EQ(Of(u"キー状態（「65」）"), u"1");
    EXPECT_EQ(Of(u"キー状態（113）"), u"0");
    EXPECT_EQ(Of(u"キー状態（「F1」）"), u"");
    EXPECT_EQ(Of(u"キー状態（「」）"), u"");
}

TEST_F(SystemFunctionsTest, ModifiersMustBeDownAsWell) {
    desktop_.keysDown = {u'A', 0x10, 0x11};
    EXPECT_EQ(Of(u"キー状態（「A」、「シフト」）"), u"1");
    EXPECT_EQ(Of(u"キー状態（「A」、「コントロール シフト」）"), u"1");
    EXPECT_EQ(Of(u"キー状態（「A」、「シフト オルト」）"), u"0");
    EXPECT_EQ(Of(u"キー状態（「A」、「オルト」）"), u"0");
    EXPECT_EQ(Of(u"キー状態（「A」、「何か」）"), u"1");
    EXPECT_EQ(Of(u"キー状態（「B」、「シフト」）"), u"0");
    desktop_.keysDown = {u'A', 0x12};
    EXPECT_EQ(Of(u"キー状態（「A」、「オルト」）"), u"1");
}

TEST_F(SystemFunctionsTest, TheClipboardGivesItsText) {
    desktop_.SetClipboardText(u"写した文");
    EXPECT_EQ(Of(u"貼り付け"), u"写した文");
}

TEST_F(SystemFunctionsTest, TheAutostartFolderIsBehindTheGate) {
    EXPECT_TRUE(Of(u"スタートアップフォルダ").ends_with(u"\\autostart\\"));
    ProtectionLevels[2] = true;
    EXPECT_EQ(Of(u"スタートアップフォルダ"), u"");
    EXPECT_TRUE(Of(u"プログラムフォルダ").ends_with(u"\\applications\\"));
}

TEST(DesktopWithoutDisplay, FailsAsUnknown) {
    SetDesktop(nullptr);
    Desktop& desktop = TheDesktop();
    EXPECT_THROW(desktop.ScreenSize(), Failure);
    EXPECT_THROW(desktop.MousePosition(), Failure);
    EXPECT_THROW(desktop.IsKeyDown(13), Failure);
    EXPECT_THROW(desktop.Fonts(), Failure);
    EXPECT_THROW(desktop.WindowTitles(), Failure);
    EXPECT_THROW(desktop.ActiveWindowTitle(), Failure);
    EXPECT_THROW(desktop.MainWindowPointer(), Failure);
}

TEST(DesktopWithoutDisplay, KeepsTheClipboardWithinTheProcess) {
    SetDesktop(nullptr);
    EXPECT_EQ(TheDesktop().ClipboardText(), u"");
    TheDesktop().SetClipboardText(u"文");
    EXPECT_EQ(TheDesktop().ClipboardText(), u"文");
    SetDesktop(nullptr);
    EXPECT_EQ(TheDesktop().ClipboardText(), u"");
}

}  // namespace
}  // namespace velm
