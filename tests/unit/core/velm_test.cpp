// The engine as a host sees it.
#include "core/velm.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/diagnostics.h"
#include "core/eval.h"
#include "core/hooks.h"
#include "core/settings_state.h"
#include "unit/recorded_dialogs.h"

namespace velm {
namespace {

using Texts = std::vector<std::u16string>;

class VelmTest : public testing::Test {
  protected:
    void SetUp() override {
        TheEngine();
        ResetProcess();
        ResetRunState();
    }
    void TearDown() override {
        TheEngine().events = {};
        TheEngine().hosted = false;
        ResetProcess();
        ResetRunState();
        Programs.assign(1, ProgramPtr(new Program));
        run.Status = RunStatus::kIdle;
    }

    static void Run(std::u16string_view source) { TheEngine().Run(source, u"", false); }
    static std::u16string Ask(std::u16string_view key, std::u16string_view value = u"") {
        return TheEngine().GetSetInfo(key, value);
    }
    Texts Shown() const {
        Texts texts;
        for (const RecordedDialogs::Box& box : dialogs_.shown) texts.push_back(box.text);
        return texts;
    }
    Texts Reported() const {
        Texts texts;
        for (const RecordedDialogs::Box& box : dialogs_.reported) texts.push_back(box.text);
        return texts;
    }
    // An editor that notes every command event and takes none.
    void Watch() {
        TheEngine().SetDebugObj(true);
        TheEngine().events.HostCommand = [this](std::u16string_view key,
                                                std::u16string_view value) {
            heard_.push_back(std::u16string(key) + u":" + std::u16string(value));
            return false;
        };
    }

    RecordedDialogs dialogs_;
    Texts heard_;

  private:
    static void ResetProcess() {
        process.RunMode = RunModes::kScript;
        process.AdvancedErrors = process.HostRuns = false;
        process.CommandLine.clear();
        process.ProgramPath.clear();
    }
};

constexpr std::u16string_view kProgram =
    u"A＝0\r\n手順は\u3000進む（［n］を）\r\nA＝A＋n\r\n終わり\r\n3回、繰り返し\r\nもし A＜4 "
    u"なら\r\n"
    u"2を進む\r\n他なら\r\nもし 1＝1 なら "
    u"「十」を表示。Aを表示する\r\nもし終わり\r\n繰り返し終わり\r\n"
    u"ほげほげ\r\n表（「k」）＝A\r\n表を表示\r\n";

TEST_F(VelmTest, TwoRunsInOneProcessAreAlike) {
    Run(kProgram);
    const Texts shown = Shown();
    const Texts reported = Reported();
    EXPECT_EQ(shown, Texts({u"十", u"4", u"k=4"}));
    EXPECT_EQ(reported.size(), 1U);
    dialogs_.shown.clear();
    dialogs_.reported.clear();
    Run(kProgram);
    EXPECT_EQ(Shown(), shown);
    EXPECT_EQ(Reported(), reported);
}

TEST_F(VelmTest, ARunEndsIdleAndForgetsTheCommandLine) {
    process.CommandLine = u"x";
    Run(u"「a」を表示");
    EXPECT_EQ(TheEngine().GetStatus(), 1);
    EXPECT_EQ(process.CommandLine, u"");
    Run(u"");
    EXPECT_EQ(TheEngine().GetStatus(), 1);
}

TEST_F(VelmTest, EveryRunStartsFromNothing) {
    Run(u"A＝1\r\nタイトルは 「題」\r\nエラーは 報告\r\n向きは "
        u"0\r\n手順は\u3000x\r\n「x」を表示\r\n終わり");
    Run(u"「[［A］]」を表示\r\nx");
    EXPECT_EQ(Shown(), Texts({u"[]"}));
    EXPECT_EQ(Reported().size(), 1U);
    EXPECT_EQ(run.ProgramTitle, u"Velmrun");
    EXPECT_EQ(settings.TurtleDirection, 90);
}

TEST_F(VelmTest, TheBoxHasTheStyleOfItsWords) {
    Run(u"「a」を表示\r\n「b」を情報で表示\r\n「c」を警告＋はいといいえで表示\r\n「d」を無しで表示"
        u"\r\n"
        u"「e」を 禁止 で ひょうじ\r\n「f」を質問＋ＯＫとキャンセルで表示\r\n"
        u"「g」をはいといいえとキャンセルで表示");
    std::vector<int> styles;
    for (const RecordedDialogs::Box& box : dialogs_.shown) styles.push_back(box.style);
    EXPECT_EQ(styles, std::vector<int>({0, 64, 52, 0, 16, 33, 3}));
}

TEST_F(VelmTest, HeadingsOfTheTurtle) {
    const struct {
        std::u16string_view sentence;
        float heading;
    } cases[] = {{u"向きは 0", 90},       {u"向きは 90", 0},    {u"向きは 100", 350},
                 {u"向きは 0-400", 490},  {u"むきは 450", 360}, {u"向きは 90.5", 360},
                 {u"向きは 12.25", 77.75}};
    for (const auto& one : cases) {
        TheEngine().RunComnd(one.sentence);
        EXPECT_EQ(settings.TurtleDirection, one.heading);
    }
}

TEST_F(VelmTest, SettingsKeepTheirValues) {
    for (const std::u16string_view sentence :
         {u"色は 赤", u"背景は 緑色", u"太さは 3", u"音色は 5", u"テンポは 90", u"JPEG圧縮率は 101",
          u"JPEGプログレッシブは 1", u"マウスカーソルは 砂時計", u"位置は 10,20", u"場所は 絵",
          u"設定ファイルは 「s.ini」"}) {
        TheEngine().RunComnd(sentence);
    }
    EXPECT_EQ(settings.TurtleColor, 0x0000FF);
    EXPECT_EQ(settings.backColor, 0x008000);
    EXPECT_EQ(settings.lineWidth, 3);
    EXPECT_EQ(settings.midiProgram, 5);
    EXPECT_EQ(settings.tempo, 90);
    EXPECT_EQ(settings.jpegQuality, 101);
    EXPECT_TRUE(settings.jpegProgressive);
    EXPECT_EQ(settings.mousePointer, 11);
    EXPECT_EQ(settings.position, u"10,20");
    EXPECT_EQ(settings.canvas, u"絵");
    EXPECT_EQ(settings.settingsFile, u"s.ini");
    TheEngine().RunComnd(u"JPEGプログレッシブは 2");
    EXPECT_FALSE(settings.jpegProgressive);
}

TEST_F(VelmTest, TheTurtlesPicture) {
    TheEngine().RunComnd(u"形は 「a.bmp」");
    EXPECT_FALSE(settings.TurtleIconOn);
    EXPECT_EQ(settings.turtlePicture, u"a.bmp");
    for (const std::u16string_view own : {u"形は かめ", u"形は 亀", u"かたちは カメ"}) {
        settings.TurtleIconOn = false;
        TheEngine().RunComnd(own);
        EXPECT_TRUE(settings.TurtleIconOn);
    }
    TheEngine().RunComnd(u"形は 「かめ」");
    EXPECT_FALSE(settings.TurtleIconOn);
}

TEST_F(VelmTest, ReportsHaveButtonsByMode) {
    TheEngine().RunComnd(u"ほげほげ");
    TheEngine().RunComnd(u"エラーは 続ける");
    TheEngine().RunComnd(u"ほげほげ");
    TheEngine().RunComnd(u"エラーは 誰か");
    TheEngine().RunComnd(u"ほげほげ");
    std::vector<int> styles;
    for (const RecordedDialogs::Box& box : dialogs_.reported) styles.push_back(box.style);
    EXPECT_EQ(styles, std::vector<int>({64 + 1, 64, 64}));
    EXPECT_EQ(TheEngine().GetErrWord(), u"ほげほげ");
}

TEST_F(VelmTest, AStandAloneProgramShowsTheBareText) {
    process.RunMode = RunModes::kStandAlone;
    Run(u"\r\n3をAに入れ\r\n無し（1）を表示\r\nA＝エラー行");
    EXPECT_EQ(Reported(), Texts({u"「無し（1）」という関数または配列は、見つかりません。"}));
    EXPECT_EQ(run.ErrorLine, 0);
}

TEST_F(VelmTest, TheFirstErrorLineIsTheRunningOne) {
    run.CurLine = 6;
    EXPECT_EQ(TheEngine().GetErrLine(), 7);
    run.ErrorLine = 3;
    EXPECT_EQ(TheEngine().GetErrLine(), 3);
}

TEST_F(VelmTest, PauseAndStop) {
    Watch();
    TheEngine().DoPause();
    EXPECT_EQ(TheEngine().GetStatus(), 2);
    TheEngine().DoPause();
    EXPECT_EQ(TheEngine().GetStatus(), 0);
    EXPECT_EQ(heard_, Texts({u"中断:"}));
    TheEngine().DoStop();
    EXPECT_TRUE(run.StopFlag);
}

TEST_F(VelmTest, VariablesForAnEditor) {
    Run(u"ここだけの変数は X\r\nA＝1\r\nB（1）＝「x,y」");
    EXPECT_EQ(TheEngine().GetForEditor(1), u"◆A\r\n1\r\n◆B\r\nx,y\r\n");
    EXPECT_EQ(TheEngine().GetForEditor(2), u"");
    EXPECT_EQ(TheEngine().GetForEditor(3), u"X\t手順内のみ\r\nA\r\nB");
}

TEST_F(VelmTest, WordsAndSentencesFromOutside) {
    TheEngine().RunComnd(u"A＝2");
    EXPECT_EQ(TheEngine().GetFunc(u"A＋1"), u"3");
    EXPECT_EQ(Ask(u"変数", u"「［A］」＆A"), u"22");
    TheEngine().RunComnd(u"");
    TheEngine().RunComnd(u"Aを表示。「b」を表示");
    EXPECT_EQ(Shown(), Texts({u"2", u"b"}));
}

TEST_F(VelmTest, AnUnknownKeyAnswersNothing) {
    EXPECT_EQ(Ask(u"無い鍵", u"x"), u"");
    EXPECT_EQ(Ask(u""), u"");
}

TEST_F(VelmTest, ProceduresAndPrograms) {
    EXPECT_EQ(Ask(u"プログラム", u"手順は\u3000呼ぶ\r\n「呼」を表示\r\n終わり"), u"");
    Ask(u"手順", u"呼ぶ");
    Ask(u"手順", u"無い");
    EXPECT_EQ(Shown(), Texts({u"呼"}));
}

TEST_F(VelmTest, AHostedEngineRegistersNothingByItself) {
    TheEngine().hosted = true;
    Run(u"手順は\u3000呼ぶ\r\n「呼」を表示\r\n終わり\r\n呼ぶ");
    EXPECT_TRUE(Shown().empty());
    EXPECT_EQ(Reported().size(), 1U);
}

TEST_F(VelmTest, TheSentenceThatRan) {
    TheEngine().RunComnd(u"AからBの値を「x」へ入れ");
    EXPECT_EQ(Ask(u"動詞"), u"入れ");
    EXPECT_EQ(Ask(u"引数", u"から\tを"), u"A\tBの値");
    EXPECT_EQ(Ask(u"引数２"), u"入れ\t値");
}

TEST_F(VelmTest, TextsAreCutForAHost) {
    EXPECT_EQ(Ask(u"分割", u"甲の「乙の」の丙"), u"甲\t「乙の」\t丙");
    EXPECT_EQ(Ask(u"カンマ", u"1+1、「a,b」，x"),
              u"2\x01"
              u"a,b\x01x");
    EXPECT_EQ(Ask(u"配列", u"a{**}b,c"),
              u"a,b\x01"
              u"c");
}

TEST_F(VelmTest, ColoursForAHost) {
    EXPECT_EQ(Ask(u"色", u"赤"), u"255");
    EXPECT_EQ(Ask(u"色変換", u"255"), u"&hFF0000");
}

TEST_F(VelmTest, SwitchesOfAHost) {
    Ask(u"コマンドライン", u"a b");
    EXPECT_EQ(process.CommandLine, u"a b");
    Ask(u"起動中", u"True");
    EXPECT_TRUE(process.HostRuns);
    Ask(u"起動中", u"0");
    EXPECT_FALSE(process.HostRuns);
    Ask(u"高度エラーメッセージ", u"1");
    EXPECT_TRUE(process.AdvancedErrors);
    Ask(u"状態", u"True");
    EXPECT_TRUE(run.StopFlag);
    Ask(u"状態", u"False");
    EXPECT_FALSE(run.StopFlag);
    EXPECT_TRUE(Ask(u"バージョン").ends_with(u".1.32"));
}

TEST_F(VelmTest, AnErrorFromAHost) {
    Ask(u"エラー", u"上{ch}下");
    ASSERT_EQ(Reported().size(), 1U);
    EXPECT_TRUE(Reported()[0].starts_with(u"上\r\n下\r\n"));
    EXPECT_EQ(run.ErrorNumber, 699);
    EXPECT_EQ(TheEngine().ErrMessage(u"文%1", 55, 16, u"語"), 1);
    EXPECT_TRUE(Reported()[1].starts_with(u"文語\r\n"));
    EXPECT_EQ(run.ErrorNumber, 55);
    TheEngine().ErrMessage(u"", 40, 16, u"語");
    EXPECT_TRUE(Reported()[2].starts_with(u"語を指定してください。\r\n"));
}

TEST_F(VelmTest, ProgressIsToldWhenThePercentChanges) {
    Ask(u"プログラム",
        u"手順は\u3000進み（割合、済、全）\r\n「［割合］/［済］/［全］」を表示\r\n終わり");
    EXPECT_EQ(Ask(u"処理状況"), u"0");
    Ask(u"処理状況通知", u"1,2");
    TheEngine().RunComnd(u"処理状況は 進み");
    EXPECT_EQ(Ask(u"処理状況"), u"1");
    Ask(u"処理状況通知", u"1,3");
    Ask(u"処理状況通知", u"1,3");
    Ask(u"処理状況通知", u"3,3");
    EXPECT_EQ(Shown(), Texts({u"33/1/3", u"100/3/3"}));
}

TEST_F(VelmTest, AnEditorHearsReports) {
    Watch();
    Run(u"「a」を報告\r\nエラーは 報告\r\n変な文");
    ASSERT_EQ(heard_.size(), 3U);
    EXPECT_EQ(heard_[0], u"報告:a");
    EXPECT_TRUE(heard_[1].ends_with(u"** エラー:"));
    EXPECT_TRUE(heard_[2].starts_with(u"報告:知らない命令です。\r\n"));
    EXPECT_TRUE(Reported().empty());
}

TEST_F(VelmTest, AnEditorMayShowErrorsItself) {
    Watch();
    process.AdvancedErrors = true;
    TheEngine().events.HostQuery = [](std::u16string_view) { return std::u16string(u"2"); };
    Run(u"変な文\r\n「x」を表示");
    EXPECT_TRUE(Reported().empty());
    EXPECT_TRUE(Shown().empty());
    EXPECT_EQ(TheEngine().GetStatus(), 3);
}

TEST_F(VelmTest, TheStartLineOfAnEditor) {
    Watch();
    Run(u"起動時設定は 「x y」\r\nコマンドラインを表示");
    EXPECT_EQ(Shown(), Texts({u"x y"}));
}

TEST_F(VelmTest, ASentenceForTheCaller) {
    Watch();
    TheEngine().events.HostCommand = [this](std::u16string_view key, std::u16string_view value) {
        heard_.push_back(std::u16string(key) + u":" + std::u16string(value));
        return true;
    };
    TheEngine().RunComnd(u"呼び出し元の表示");
    TheEngine().SetDebugObj(false);
    TheEngine().RunComnd(u"「x」をVelmへ命令");
    TheEngine().RunComnd(u"「y」を呼び出し元の命令");
    EXPECT_EQ(heard_, Texts({u"表示:", u"命令:x", u"命令:「y」"}));
    EXPECT_TRUE(Reported().empty());
}

TEST_F(VelmTest, WhatAHostAnswers) {
    TheEngine().events.HostQuery = [](std::u16string_view key) { return std::u16string(key); };
    EXPECT_EQ(RaiseHost(HostMode::kQuery, u"x", u""), u"x");
    EXPECT_EQ(RaiseHost(HostMode::kQuery, u"True", u""), u"{no}");
    EXPECT_EQ(RaiseHost(HostMode::kCommand, u"x", u""), u"True");
    EXPECT_EQ(RaiseHost(HostMode::kProperty, u"x", u""), u"True");
    TheEngine().events.HostProperty = [](std::u16string_view, std::u16string_view) { return true; };
    EXPECT_EQ(RaiseHost(HostMode::kProperty, u"x", u""), u"False");
    double number = 0;
    TheEngine().events.HostValue = [&number](std::u16string_view, std::u16string_view text,
                                             double n, std::u16string_view word) {
        number = n;
        return text == u"3" && word == u"1+2";
    };
    EXPECT_EQ(RaiseHost(HostMode::kValue, u"x", u"1+2"), u"False");
    EXPECT_EQ(number, 3);
}

TEST_F(VelmTest, CancelStopsTheRunAndSilencesWhatFollows) {
    class Cancelling : public RecordedDialogs {
      public:
        int Report(const std::u16string& text, int style, const std::u16string& title) override {
            RecordedDialogs::Report(text, style, title);
            return box::kAnswerCancel;
        }
    };
    Cancelling dialogs;
    Run(u"変な文。変な文\r\n「x」を表示");
    EXPECT_EQ(dialogs.reported.size(), 1U);
    EXPECT_TRUE(dialogs.shown.empty());
    EXPECT_EQ(TheEngine().GetStatus(), 3);
    RaiseError(1, 64, u"x", u"", -1);
    EXPECT_EQ(dialogs.reported.size(), 1U);
}

TEST_F(VelmTest, EventsArePumpedAtTheToldPoints) {
    static int pumps = 0;
    const auto before = hooks.PumpEvents;
    const auto pumpsOf = [](std::u16string_view source) {
        pumps = 0;
        Run(source);
        return pumps;
    };
    hooks.PumpEvents = [] { ++pumps; };
    EXPECT_EQ(pumpsOf(u""), 1);
    EXPECT_EQ(pumpsOf(u"3回、繰り返し\r\n繰り返し終わり"), 1);
    EXPECT_EQ(pumpsOf(u"iに1から3まで、繰り返し\r\n繰り返し終わり"), 4);
    EXPECT_EQ(pumpsOf(u"永遠に繰り返し\r\nA＝A＋1\r\nもし A＝5 なら 終了\r\n繰り返し終わり"), 6);
    EXPECT_EQ(pumpsOf(u"休憩\r\nきゅうけい"), 3);
    hooks.PumpEvents = before;
}

TEST_F(VelmTest, AMissingFileRunsNothing) {
    TheEngine().RunFile(u"\"無い.vlm\"", false);
    EXPECT_TRUE(Reported().empty());
    EXPECT_EQ(process.ProgramPath.substr(process.ProgramPath.size() - 6), u"無い.vlm");
}

}  // namespace
}  // namespace velm
