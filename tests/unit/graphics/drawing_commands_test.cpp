// The drawing commands as sentences, on a surface that notes what it is asked for.
#include "graphics/drawing_commands.h"

#include <gtest/gtest.h>

#include "core/eval.h"
#include "unit/graphics/recording_surface.h"
#include "unit/recorded_dialogs.h"

namespace velm {
namespace {

constexpr std::int32_t kRed = 255;

using DrawingCommands = DrawingTest;

TEST_F(DrawingCommands, TurnsTakeDegrees) {
    EXPECT_EQ(Done(u"右へ　30"), Notes{"picture"});
    EXPECT_EQ(settings.TurtleDirection, 60);
    Done(u"ひだりへ 15+5");
    EXPECT_EQ(settings.TurtleDirection, 80);
    Done(u"左へ 無い");
    EXPECT_EQ(settings.TurtleDirection, 80);
    Done(u"みぎへ 90");
    EXPECT_EQ(settings.TurtleDirection, 350);
}

TEST_F(DrawingCommands, WalksTakeADistance) {
    settings.TurtleDirection = 0;
    EXPECT_EQ(Done(u"前へ　10"), (Notes{"line 0 0 10 0 0", "turtle -6 -10", "pump"}));
    EXPECT_EQ(Done(u"後ろへ 4"), (Notes{"line 10 0 6 0 0", "turtle -10 -10", "pump"}));
    EXPECT_EQ(Done(u"まえへ 1"), (Notes{"line 6 0 7 0 0", "turtle -9 -10", "pump"}));
    EXPECT_EQ(Done(u"うしろへ 7"), (Notes{"line 7 0 0 0 0", "turtle -16 -10", "pump"}));
}

TEST_F(DrawingCommands, ANeededNumberIsAskedFor) {
    RecordedDialogs dialogs;
    for (const auto command : {CmdTurnRight, CmdTurnLeft, CmdForward, CmdBack}) {
        run.ErrorNumber = 0;
        dialogs.reported.clear();
        command(*ParseStatement(u"x"), TheContext());
        EXPECT_EQ(run.ErrorNumber, 36);
        ASSERT_EQ(dialogs.reported.size(), 1U);
        EXPECT_EQ(dialogs.reported[0].style & box::kIcons, 64);
    }
    EXPECT_EQ(notes, Notes());
    EXPECT_EQ(settings.TurtleDirection, 90);
}

TEST_F(DrawingCommands, APenIsLiftedAndLowered) {
    Done(u"ペンを上げ");
    EXPECT_FALSE(settings.PenDown);
    Done(u"ペンを下げ");
    EXPECT_TRUE(settings.PenDown);
    Done(u"あげろ");
    EXPECT_FALSE(settings.PenDown);
    Done(u"下ろ");
    EXPECT_TRUE(settings.PenDown);
}

TEST_F(DrawingCommands, TheTurtleComesAndGoes) {
    EXPECT_EQ(Done(u"カメを隠れ"), Notes{"hide"});
    EXPECT_EQ(Done(u"出て"), Notes{"show"});
    drawing.TurtleObject = nullptr;
    EXPECT_EQ(Done(u"出て"), Notes());
}

TEST_F(DrawingCommands, Trees) {
    settings.TurtleDirection = 0;
    settings.TurtleIconOn = false;
    EXPECT_EQ(Done(u"30,0,40で枝"), (Notes{"line 0 0 20 0 0", "turtle 4 -10", "pump"}));
    EXPECT_EQ(Done(u"30,1で枝").size(), 9U);
    EXPECT_EQ(Done(u"枝"), (Notes{"line 0 0 0 0 0", "turtle -16 -10", "pump"}));
}

TEST_F(DrawingCommands, EllipsesFitABoxFromTheCurrentPoint) {
    settings.TurtleColor = kRed;
    StandAt(5, 6);
    EXPECT_EQ(Done(u"40,20で円"), (Notes{"ellipse 5 6 45 26 255", "refresh"}));
    EXPECT_EQ(Done(u"40,20で10,11からえん"), (Notes{"ellipse 10 11 50 31 255", "refresh"}));
    EXPECT_EQ(Done(u"えん"), (Notes{"ellipse 10 11 10 11 255", "refresh"}));
    EXPECT_EQ(window.CurrentX, 10);
    EXPECT_EQ(Done(u"8,8で塗りつぶして円"), (Notes{"ellipse 10 11 18 19 255 fill 255", "refresh"}));
    EXPECT_EQ(window.FillStyle, FillStyles::kTransparent);
    EXPECT_EQ(window.ForeColor, kRed);
    drawing.DrawLock = true;
    EXPECT_EQ(Done(u"8,8で抜いて円"), Notes{"ellipse 10 11 18 19 255"});
}

TEST_F(DrawingCommands, LinesEndWhereTheNextOneBegins) {
    StandAt(1, 2);
    EXPECT_EQ(Done(u"10,20で線"), Notes{"line 1 2 10 20 0"});
    EXPECT_EQ(Done(u"30,40でせん"), Notes{"line 10 20 30 40 0"});
    EXPECT_EQ(Done(u"5,6から7,8で線"), Notes{"line 5 6 7 8 0"});
    EXPECT_EQ(Done(u"7,無いで線"), Notes{"line 7 8 7 0 0"});
}

TEST_F(DrawingCommands, BoxesTakeASizeOrTheFarCorner) {
    StandAt(1, 2);
    EXPECT_EQ(Done(u"10,20で四角形"), Notes{"box 1 2 11 22 0"});
    EXPECT_EQ(Done(u"10,20で5,6から塗りつぶして四角形"), Notes{"filled 5 6 15 26 0"});
    EXPECT_EQ(Done(u"10,20で5,6からしかっけい"), Notes{"box 5 6 15 26 0"});
    EXPECT_EQ(Done(u"5,6から70,80へ四角形"), Notes{"box 5 6 70 80 0"});
    EXPECT_EQ(Done(u"10,20で5,6から70,80へ四角形"), Notes{"box 5 6 70 80 0"});
}

TEST_F(DrawingCommands, ALoneWordOfADotIsItsPlace) {
    EXPECT_EQ(Done(u"10,20で点"), (Notes{"turtle -6 10", "pump", "dot 10 20 0"}));
    EXPECT_EQ(Done(u"30,40へ赤で点"), (Notes{"turtle 14 30", "pump", "dot 30 40 255"}));
    EXPECT_EQ(settings.TurtleColor, kRed);
    EXPECT_EQ(Done(u"てん"), Notes{"dot 30 40 255"});
    EXPECT_EQ(Done(u"1,2へ無い色で点"), (Notes{"turtle -15 -8", "pump", "dot 1 2 255"}));
}

TEST_F(DrawingCommands, TextGoesOnBehindText) {
    StandAt(10, 20);
    window.ForeColor = 77;
    EXPECT_EQ(Done(u"「abc」を書け"), (Notes{"print 10 20 0 abc", "pump"}));
    EXPECT_EQ(window.CurrentX, 28);
    EXPECT_EQ(window.CurrentY, 20);
    EXPECT_EQ(window.ForeColor, 77);
    EXPECT_EQ(Done(u"「d」を50,60へ赤で書け"),
              (Notes{"turtle 34 50", "pump", "print 50 60 255 d", "pump"}));
    EXPECT_EQ(window.CurrentX, 56);
    EXPECT_EQ(settings.TurtleColor, kRed);
    EXPECT_EQ(Done(u"「e」をかいて"), (Notes{"print 56 60 255 e", "pump"}));
}

TEST_F(DrawingCommands, TextWithALineEndLeavesThePointWherePrintingEnded) {
    StandAt(10, 20);
    EXPECT_EQ(Done(u"「a」＆改行＆「b」を書け"), (Notes{"print 10 20 0 a\rb", "pump"}));
    EXPECT_EQ(window.CurrentX, 0);
    EXPECT_EQ(window.CurrentY, 30);
}

TEST_F(DrawingCommands, StampsShowTheTurtlesPicture) {
    turtle.SetPicture(Pixmap(32, 20, 0));
    StandAt(100, 50);
    EXPECT_EQ(Done(u"スタンプ"), Notes{"paint 32 84 40 32 20"});
    EXPECT_EQ(Done(u"5,6へスタンプ"), Notes{"paint 32 5 6 32 20"});
    EXPECT_EQ(Done(u"2,0.5で大きくスタンプ"), Notes{"paint 32 84 40 64 10"});
    EXPECT_EQ(Done(u"5,6へ2,3で大きくスタンプ"), Notes{"paint 32 5 6 64 60"});
    EXPECT_EQ(Done(u"大きくスタンプ"), Notes{"paint 32 84 40 0 0"});
    EXPECT_EQ(Done(u"おおきくスタンプ"), Notes{"paint 32 84 40 0 0"});
    drawing.TurtleObject = nullptr;
    EXPECT_EQ(Done(u"スタンプ"), Notes());
}

// A verb that is no keyword itself belongs to the first row that it contains.
TEST_F(DrawingCommands, EarlierRowsTakeLongerSentences) {
    turtle.SetPicture(Pixmap(32, 20, 0));
    EXPECT_EQ(Done(u"5,6へ2,3でおおきくスタンプ"), Notes{"paint 32 5 6 32 20"});
    EXPECT_EQ(Done(u"10,20で塗りつぶしてしかっけい"),
              (Notes{"point 0 0", "flood 0 0 0 1 fill 0", "refresh"}));
}

TEST_F(DrawingCommands, FillingGoesAsFarAsTheColourOfItsSeed) {
    StandAt(3, 4);
    window.pixel = 99;
    EXPECT_EQ(Done(u"塗れ"), (Notes{"point 3 4", "flood 3 4 99 1 fill 0", "refresh"}));
    EXPECT_EQ(Done(u"5,6へ赤で塗れ"), (Notes{"point 5 6", "flood 5 6 99 1 fill 255", "refresh"}));
    EXPECT_EQ(settings.TurtleColor, 0);
    EXPECT_EQ(window.FillStyle, FillStyles::kTransparent);
    drawing.DrawLock = true;
    EXPECT_EQ(Done(u"5,6へぬり"), (Notes{"point 5 6", "flood 5 6 99 1 fill 0"}));
}

TEST_F(DrawingCommands, WithoutASurfaceNothingIsDrawn) {
    drawing = {};
    RecordedDialogs dialogs;
    for (const std::u16string_view sentence :
         {u"前へ 10", u"30,2,40で枝", u"4,4で円", u"4,4で線", u"4,4で四角形", u"1,1へスタンプ",
          u"2,2で大きくスタンプ", u"1,1へ塗れ", u"出て", u"隠れ"}) {
        EXPECT_EQ(Done(sentence), Notes()) << Utf16ToUtf8(sentence);
    }
    EXPECT_EQ(Done(u"1,1へ点"), Notes{"pump"});
    EXPECT_EQ(Done(u"「a」を書け"), Notes{"pump"});
    EXPECT_TRUE(dialogs.reported.empty());
}

TEST_F(DrawingCommands, ASurfaceMayGoWhileItsWordsAreRead) {
    hooks.PumpEvents = [] { drawing = {}; };
    EXPECT_EQ(Done(u"「a」を1,2へ書け"), Notes{"turtle -15 -8"});
    drawing.DrawTarget = &window;
    EXPECT_EQ(Done(u"1,2へ点"), Notes());
}

TEST_F(DrawingCommands, FunctionsTellOfTheSurface) {
    StandAt(12.5F, 30);
    window.pixel = 0x0000FF;
    EXPECT_EQ(EvalText(u"カメの横").Text(), u"12.5");
    EXPECT_EQ(EvalText(u"アイコンの縦").Text(), u"30");
    EXPECT_EQ(EvalText(u"場所").Text(), u"ウィンドウ１");
    notes.clear();
    EXPECT_EQ(EvalText(u"色（3,4）").Text(), u"&hFF0000");
    EXPECT_EQ(notes, (Notes{"hide", "pump", "point 3 4", "show"}));
    turtle.SetVisible(false);
    notes.clear();
    EXPECT_EQ(EvalText(u"色").Text(), u"&hFF0000");
    EXPECT_EQ(notes, Notes{"point 12.5 30"});
    drawing = {};
    EXPECT_EQ(EvalText(u"色（3,4）").Text(), u"");
    EXPECT_EQ(EvalText(u"カメの横").Text(), u"");
}

TEST_F(DrawingCommands, ATurtleThatGoesWhileItIsHiddenStaysAway) {
    hooks.PumpEvents = [] { drawing.TurtleObject = nullptr; };
    notes.clear();
    EXPECT_EQ(EvalText(u"色（3,4）").Text(), u"&h000000");
    EXPECT_EQ(notes, (Notes{"hide", "point 3 4"}));
}

}  // namespace
}  // namespace velm
