// The state of the run under modes and events that no script can set.
#include "functions/state_functions.h"

#include <gtest/gtest.h>

#include <string>

#include "core/eval.h"
#include "core/event_data.h"
#include "core/run_state.h"
#include "core/velm.h"

namespace velm {
namespace {

class StateFunctionsTest : public testing::Test {
  protected:
    void SetUp() override {
        TheEngine();
        ResetRunState();
    }
    void TearDown() override {
        process.RunMode = RunModes::kScript;
        process.HostRuns = false;
        process.CommandLine.clear();
        process.ProgramPath.clear();
        eventData = {};
        ResetRunState();
        run.Status = RunStatus::kIdle;
    }
    static std::u16string Of(std::u16string_view word) { return EvalText(word).Text(); }
    static std::u16string Selected(std::u16string_view commandLine) {
        process.CommandLine = commandLine;
        return Of(u"選択されたファイル");
    }
};

TEST_F(StateFunctionsTest, EachRunModeHasAName) {
    process.RunMode = RunModes::kEditor;
    EXPECT_EQ(Of(u"実行形式"), u"エディタ");
    process.RunMode = RunModes::kScript;
    EXPECT_EQ(Of(u"実行形式"), u"Velmファイル");
    process.RunMode = RunModes::kStandAlone;
    EXPECT_EQ(Of(u"実行形式"), u"実行ファイル");
    process.RunMode = static_cast<RunModes>(0);
    EXPECT_EQ(Of(u"実行形式"), u"VelmA");
}

TEST_F(StateFunctionsTest, SelectedFilesAreCutAtBlanksOutsideQuotes) {
    EXPECT_EQ(Selected(u""), u"");
    EXPECT_EQ(Selected(u"a.txt"), u"a.txt");
    EXPECT_EQ(Selected(u"  a.txt   \"b c.txt\" "), u"a.txt,b c.txt");
    EXPECT_EQ(Selected(u"\"a b\"c d"), u"a bc,d");
    EXPECT_EQ(Selected(u"\"a b"), u"a b");
    EXPECT_EQ(Selected(u"1,5 甲、乙"), u"1{**}5,甲{//}乙");
    EXPECT_EQ(Selected(u"甲　乙"), u"甲　乙");
}

TEST_F(StateFunctionsTest, AHostMayDeclareTheProgramRunning) {
    EXPECT_EQ(TheEngine().GetSetInfo(u"起動中", u"1"), u"");
    EXPECT_EQ(Of(u"起動中"), u"1");
}

TEST_F(StateFunctionsTest, ErrorsAreReadFromTheirRegisters) {
    run.ErrorText = u"文";
    run.ErrorNumber = -3;
    run.ErrorFile = u"甲.vlm";
    run.ErrorLine = 12;
    EXPECT_EQ(Of(u"エラーメッセージ"), u"文");
    EXPECT_EQ(Of(u"エラー番号"), u"-3");
    EXPECT_EQ(Of(u"エラーファイル"), u"甲.vlm");
    EXPECT_EQ(Of(u"エラー行"), u"12");
}

TEST_F(StateFunctionsTest, EventsAreReadFromTheirRecord) {
    eventData = {u"左", u"Ａ", -7, 8, u"C:\\a,C:\\b", u"来信"};
    EXPECT_EQ(Of(u"押したボタン"), u"左");
    EXPECT_EQ(Of(u"押したキー"), u"Ａ");
    EXPECT_EQ(Of(u"マウスの横"), u"-7");
    EXPECT_EQ(Of(u"マウスの縦"), u"8");
    EXPECT_EQ(Of(u"ドロップされたファイル"), u"C:\\a,C:\\b");
    EXPECT_EQ(Of(u"プログラム間メッセージ"), u"来信");
}

TEST_F(StateFunctionsTest, TheScriptsPlaceIsCutAtItsLastBackslash) {
    process.ProgramPath = u"C:\\下\\a.vlm";
    EXPECT_EQ(Of(u"今の位置"), u"C:\\下\\");
    EXPECT_EQ(Of(u"アプリのファイル名"), u"a.vlm");
    process.ProgramPath = u"";
    EXPECT_EQ(Of(u"今の位置"), u"");
}

}  // namespace
}  // namespace velm
