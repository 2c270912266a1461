// The turtle's geometry, and what a walk draws.
#include "graphics/turtle.h"

#include <gtest/gtest.h>

#include <cstddef>

#include "core/stack_guard.h"
#include "data/failure.h"
#include "graphics/turtle_pictures.h"
#include "unit/graphics/recording_surface.h"
#include "unit/platform/fails_with.h"
#include "unit/recorded_dialogs.h"

namespace velm {
namespace {

using TurtleTest = DrawingTest;

TEST_F(TurtleTest, OnlyANegativeDirectionIsBroughtBack) {
    settings.TurtleDirection = 10;
    Turn(-20);
    EXPECT_EQ(settings.TurtleDirection, 350);
    Turn(20);
    EXPECT_EQ(settings.TurtleDirection, 370);
    Turn(-370);
    EXPECT_EQ(settings.TurtleDirection, 0);
    Turn(-0.5);
    EXPECT_EQ(settings.TurtleDirection, 360);
    settings.TurtleDirection = 0;
    Turn(-10.75);
    EXPECT_EQ(settings.TurtleDirection, 350);
    settings.TurtleDirection = 0;
    Turn(-730);
    EXPECT_EQ(settings.TurtleDirection, 350);
}

TEST_F(TurtleTest, ADirectionBeyondASingleFails) {
    settings.TurtleDirection = 90;
    EXPECT_EQ(FailureOf([] { Turn(1e300); }), failure::kOverflow);
    EXPECT_EQ(FailureOf([] { Turn(-1e300); }), failure::kOverflow);
    EXPECT_EQ(settings.TurtleDirection, 90);
    // A direction without a picture is set before the picture fails.
    EXPECT_EQ(FailureOf([] { Turn(40000); }), failure::kOverflow);
    EXPECT_EQ(settings.TurtleDirection, 40090);
}

TEST_F(TurtleTest, EachDirectionHasThePictureOfItsStep) {
    EXPECT_EQ(TurtlePictureNumber(90), 101);
    EXPECT_EQ(TurtlePictureNumber(75), 2015);
    EXPECT_EQ(TurtlePictureNumber(0), 2090);
    EXPECT_EQ(TurtlePictureNumber(105), 2345);
    EXPECT_EQ(TurtlePictureNumber(180), 2270);
    EXPECT_EQ(TurtlePictureNumber(270), 2180);
    EXPECT_EQ(TurtlePictureNumber(345), 2105);
    EXPECT_EQ(TurtlePictureNumber(350), 2105);
    EXPECT_EQ(TurtlePictureNumber(360), 2090);
    EXPECT_EQ(TurtlePictureNumber(450), 101);
    // Steps are cut towards 0, after rounding with ties to the even number.
    EXPECT_EQ(TurtlePictureNumber(14.5F), 2090);
    EXPECT_EQ(TurtlePictureNumber(14.6F), 2075);
    EXPECT_EQ(TurtlePictureNumber(15.5F), 2075);
    EXPECT_EQ(TurtlePictureNumber(89), 2015);
    EXPECT_EQ(TurtlePictureNumber(104), 101);
    EXPECT_EQ(FailureOf([] { TurtlePictureNumber(32769); }), failure::kOverflow);
}

TEST_F(TurtleTest, TheStepsNeverAskForThePictureOf70) {
    for (int direction = 0; direction < 720; ++direction) {
        const std::int32_t number = TurtlePictureNumber(static_cast<float>(direction));
        EXPECT_NE(number, 2070);
        EXPECT_FALSE(TurtlePicture(number).pixels.empty());
    }
}

TEST_F(TurtleTest, TheBuiltInPictureFollowsTheDirection) {
    Turn(-90);
    EXPECT_EQ(notes, Notes{"picture"});
    EXPECT_EQ(turtle.Picture().pixels, TurtlePicture(2090).pixels);
    settings.TurtleIconOn = false;
    notes.clear();
    Turn(-90);
    EXPECT_EQ(notes, Notes());
}

TEST_F(TurtleTest, ForwardGoesUpAndRight) {
    StandAt(100, 50);
    Forward(10);
    // The walk drifts by 10 * 0.00000133: two steps of the single at 100.
    EXPECT_EQ(notes, (Notes{"line 100 50 100 40 0", "turtle 84.00002 30", "pump"}));
    EXPECT_NEAR(window.CurrentX, 100, 2e-5);
    notes.clear();
    settings.TurtleDirection = 0;
    settings.TurtleColor = 255;
    StandAt(100, 50);
    Forward(10);
    EXPECT_EQ(notes, (Notes{"line 100 50 110 50 255", "turtle 94 40", "pump"}));
    EXPECT_EQ(window.CurrentX, 110);
    EXPECT_EQ(window.CurrentY, 50);
}

TEST_F(TurtleTest, ThePenUpMovesThePointOnly) {
    settings.PenDown = false;
    settings.TurtleDirection = 0;
    StandAt(20, 30);
    Forward(-5);
    EXPECT_EQ(notes, (Notes{"turtle -1 20", "pump"}));
    EXPECT_EQ(window.CurrentX, 15);
    EXPECT_EQ(window.CurrentY, 30);
}

TEST_F(TurtleTest, AWalkBeyondASingleFailsAndLeavesThePoint) {
    settings.TurtleDirection = 0;
    StandAt(1, 2);
    EXPECT_EQ(FailureOf([] { Forward(1e39); }), failure::kOverflow);
    EXPECT_EQ(window.CurrentX, 1);
    EXPECT_EQ(notes, Notes());
}

TEST_F(TurtleTest, WithoutASurfaceNothingHappens) {
    drawing = {};
    Forward(10);
    Tree(10, 3, 30);
    ClearDrawing();
    EXPECT_EQ(notes, Notes());
    Turn(30);
    EXPECT_EQ(settings.TurtleDirection, 120);
}

TEST_F(TurtleTest, APositionOnAWindow) {
    SetPosition(Word(u"10,20"));
    EXPECT_EQ(notes, (Notes{"turtle -6 10", "pump"}));
    EXPECT_EQ(window.CurrentX, 10);
    EXPECT_EQ(window.CurrentY, 20);
    SetPosition(Word(u"中央"));
    EXPECT_EQ(window.CurrentX, 100);
    EXPECT_EQ(window.CurrentY, 50);
    SetPosition(Word(u"無い,20"));
    EXPECT_EQ(window.CurrentX, 0);
    EXPECT_EQ(window.CurrentY, 0);
    SetPosition(Word(u"7"));
    EXPECT_EQ(window.CurrentX, 7);
    EXPECT_EQ(window.CurrentY, 0);
}

TEST_F(TurtleTest, OnASecondWindowThePointOfTheMainOneIsSet) {
    drawing.DrawTarget = &otherWindow;
    SetPosition(Word(u"10,20"));
    EXPECT_EQ(notes, (Notes{"turtle -6 10", "pump"}));
    EXPECT_EQ(otherWindow.CurrentX, 0);
    EXPECT_EQ(window.CurrentX, 10);
}

TEST_F(TurtleTest, OnAPictureTheTurtleStaysInItsPlace) {
    drawing.DrawTarget = &picture;
    SetPosition(Word(u"10,20"));
    EXPECT_EQ(notes, Notes{"pump"});
    EXPECT_EQ(picture.CurrentX, 10);
    EXPECT_EQ(picture.CurrentY, 20);
    EXPECT_EQ(window.CurrentX, 0);
}

TEST_F(TurtleTest, ATreeWithoutForksIsOneSegment) {
    settings.TurtleDirection = 0;
    StandAt(10, 20);
    Tree(30, 0, 40);
    EXPECT_EQ(notes, (Notes{"line 10 20 30 20 0", "turtle 14 10", "pump"}));
    EXPECT_EQ(window.CurrentX, 10);
    EXPECT_EQ(window.CurrentY, 20);
    EXPECT_EQ(settings.TurtleDirection, 0);
}

TEST_F(TurtleTest, BranchesOpenAtHalfTheAngleToBothSides) {
    settings.TurtleIconOn = false;
    settings.TurtleDirection = 90;
    StandAt(100, 90);
    Tree(45, 1, 180);
    // 30 up, then 20 to the left and 20 to the right of there.
    ASSERT_EQ(notes.size(), 9U);
    EXPECT_EQ(notes[0], "line 100 90 100 60 0");
    EXPECT_EQ(notes[3].substr(0, 17), "line 100 60 80.00");
    EXPECT_EQ(notes[6], "line 100 60 120 60 0");
    EXPECT_EQ(settings.TurtleDirection, 90);
    EXPECT_EQ(window.CurrentX, 100);
    EXPECT_EQ(window.CurrentY, 90);
}

TEST_F(TurtleTest, ATreeOfDepthDHasTwoToTheDPlusOneLessOneSegments) {
    settings.TurtleIconOn = false;
    Tree(100, 5, 30);
    EXPECT_EQ(notes.size(), 3 * 63U);
}

TEST_F(TurtleTest, ATreeEndsWithTheRunOrTheSurface) {
    settings.TurtleIconOn = false;
    hooks.PumpEvents = [] { run.StopFlag = true; };
    Tree(100, 60, 30);
    EXPECT_EQ(notes.size(), 2U);
    run.StopFlag = false;
    notes.clear();
    hooks.PumpEvents = [] { drawing.DrawTarget = nullptr; };
    Tree(100, 60, 30);
    EXPECT_EQ(notes.size(), 2U);
    EXPECT_EQ(settings.TurtleDirection, 90);
}

TEST_F(TurtleTest, ATreeThatNeverEndsIsReported) {
    constexpr std::ptrdiff_t kSomeStack = 64 * 1024;
    RecordedDialogs dialogs;
    char* const limit = NestingGuard::limit;
    NestingGuard::limit = StackPointer() - kSomeStack;
    Tree(1, -1, 0);
    NestingGuard::limit = limit;
    EXPECT_TRUE(run.StopFlag);
    EXPECT_EQ(dialogs.reported.size(), 1U);
    run.StopFlag = false;
}

TEST_F(TurtleTest, ClearingKeepsDirectionAndColour) {
    settings.TurtleDirection = 30;
    settings.TurtleColor = 255;
    window.DrawWidth = 7;
    ClearDrawing();
    EXPECT_EQ(notes, (Notes{"no picture", "cls", "refresh", "turtle 84 40", "pump"}));
    EXPECT_EQ(window.DrawWidth, 1);
    EXPECT_EQ(window.CurrentX, 100);
    EXPECT_EQ(window.CurrentY, 50);
    EXPECT_EQ(settings.TurtleDirection, 30);
    EXPECT_EQ(settings.TurtleColor, 255);
}

TEST_F(TurtleTest, SettingWordsActOnSurfaceAndTurtle) {
    hooks.ApplySetting = [](std::u16string_view word, const Value& value) {
        ApplyTurtleSetting(word, value);
    };
    EXPECT_EQ(Done(u"向きは 90"), Notes{"picture"});
    EXPECT_EQ(settings.TurtleDirection, 0);
    EXPECT_EQ(turtle.Picture().pixels, TurtlePicture(2090).pixels);
    EXPECT_EQ(Done(u"むきは 0"), Notes{"picture"});
    EXPECT_EQ(Done(u"太さは 4"), Notes());
    EXPECT_EQ(window.DrawWidth, 4);
    EXPECT_EQ(Done(u"ふとさは 0"), Notes());
    EXPECT_EQ(window.DrawWidth, 4);
    EXPECT_EQ(Done(u"位置は 30,40"), (Notes{"turtle 14 30", "pump"}));
    EXPECT_EQ(Done(u"いちは 中央"), (Notes{"turtle 84 40", "pump"}));
    EXPECT_EQ(Done(u"形は かめ"), (Notes{"picture", "picture"}));
    EXPECT_EQ(Done(u"かたちは 「a.bmp」"), Notes());
    EXPECT_FALSE(ApplyTurtleSetting(u"形", Value(u"a.bmp")));
    EXPECT_FALSE(ApplyTurtleSetting(u"背景", Value(u"0")));
    hooks.ApplySetting = nullptr;
}

}  // namespace
}  // namespace velm
