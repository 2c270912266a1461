// Objects as records: units, places, containers, members, the end of controls.
#include "objects/object.h"

#include "objects/object_canvas.h"
#include "unit/objects/control_test.h"
#include "unit/platform/fails_with.h"

namespace velm {
namespace {

using ObjectTest = ControlTest;

TEST_F(ObjectTest, UnitsOfTheScaleModes) {
    EXPECT_EQ(UnitsInPixel(scale_mode::kLayoutUnit), 15);
    EXPECT_EQ(UnitsInPixel(scale_mode::kPoint), 0.75);
    EXPECT_EQ(UnitsInPixel(scale_mode::kPixel), 1);
    EXPECT_DOUBLE_EQ(UnitsInPixel(scale_mode::kMillimetre), 25.4 / 96);
    EXPECT_DOUBLE_EQ(UnitsInPixel(scale_mode::kCentimetre), 2.54 / 96);
    for (const std::int32_t mode : {0, 4, 5, 8, -1}) {
        EXPECT_EQ(FailureOf([mode] { UnitsInPixel(mode); }), failure::kBadCall) << mode;
    }
}

TEST_F(ObjectTest, PlaceAndSizeAreToldInTheUnitOfTheContainer) {
    Do(u"ボタン1を作る");
    Object& button = *Find(u"ボタン1");
    button.SetGeometry({10, 20, 30, 40});
    EXPECT_EQ(button.GetNumber(u"left"), 10);
    EXPECT_EQ(button.GetNumber(u"TOP"), 20);
    objects.CurrentWindow->Canvas()->SetScaleMode(scale_mode::kPoint);
    EXPECT_EQ(button.GetNumber(u"Width"), 22.5);
    EXPECT_EQ(button.GetNumber(u"Height"), 30);
    button.Set(u"Left", 75.0);
    EXPECT_EQ(button.Geometry(), (PixelBox{100, 20, 30, 40}));
    button.Call(u"Move", {7.5, 15.0, 75.0});
    EXPECT_EQ(button.Geometry(), (PixelBox{10, 20, 100, 40}));
}

TEST_F(ObjectTest, AWindowIsMeasuredInLayoutUnits) {
    Window& window = *objects.CurrentWindow;
    EXPECT_EQ(window.GetNumber(u"Width"), (446 + RecordedWindow::kFrameWidth) * 15);
    window.Set(u"Left", 1500.0);
    EXPECT_EQ(Recorded(window).box.left, 100);
}

TEST_F(ObjectTest, AFrameMeasuresInLayoutUnitsAndAPictureInItsOwn) {
    Do(u"フレーム1を作る");
    Do(u"ピクチャー1を作る");
    Do(u"ボタン1を作る");
    Object& button = *Find(u"ボタン1");
    button.SetGeometry({10, 20, 30, 40});
    button.SetContainer(Find(u"フレーム1"));
    EXPECT_EQ(button.GetNumber(u"Left"), 150);
    EXPECT_EQ(Recorded(button).container, &Find(u"フレーム1")->Control());
    button.Set(u"Container", std::u16string(u"ピクチャー1"));
    EXPECT_EQ(button.GetNumber(u"Left"), 10);
    EXPECT_EQ(button.GetText(u"Container"), u"ピクチャー１");
}

TEST_F(ObjectTest, WhatIsNoContainerTakesNothing) {
    Do(u"フレーム1を作る");
    Do(u"フレーム2を作る");
    Do(u"ボタン1を作る");
    Object& outer = *Find(u"フレーム1");
    const ObjectPtr inner = Find(u"フレーム2");
    const ObjectPtr button = Find(u"ボタン1");
    inner->SetContainer(outer.shared_from_this());
    EXPECT_EQ(FailureOf([&] { outer.SetContainer(inner); }), failure::kBadCall);
    EXPECT_EQ(FailureOf([&] { outer.SetContainer(outer.shared_from_this()); }), failure::kBadCall);
    EXPECT_EQ(FailureOf([&] { inner->SetContainer(button); }), failure::kBadCall);
    EXPECT_EQ(FailureOf([&] { inner->SetContainer(nullptr); }), failure::kNothingThere);
    EXPECT_EQ(FailureOf([&] { objects.CurrentWindow->SetContainer(inner); }),
              failure::kNoSuchMember);
    const WindowPtr first = objects.FirstWindow;
    Do(u"ウィンドウ2を作る");
    EXPECT_EQ(FailureOf([&] { button->SetContainer(objects.CurrentWindow); }), failure::kBadCall);
    EXPECT_EQ(button->Container(), first);
}

TEST_F(ObjectTest, MembersOfItsOwn) {
    Do(u"ボタン3を作る");
    Object& button = *Find(u"ボタン3");
    EXPECT_EQ(button.GetText(u"Name"), u"Command1");
    EXPECT_EQ(button.GetNumber(u"index"), 3);
    button.Set(u"tag", std::u16string(u"札"));
    EXPECT_EQ(button.GetText(u"Tag"), u"札");
    EXPECT_EQ(FailureOf([&] { button.Set(u"Name", 1.0); }), failure::kNoSuchMember);
    EXPECT_EQ(FailureOf([&] { button.Get(u"Unknown"); }), failure::kNoSuchMember);
    EXPECT_EQ(FailureOf([&] { button.Call(u"Unknown"); }), failure::kNoSuchMember);
    EXPECT_EQ(FailureOf([&] { button.Set(u"Left", std::u16string(u"x")); }),
              failure::kTypeMismatch);
    EXPECT_EQ(FailureOf([&] { button.Set(u"Left", 1e12); }), failure::kOverflow);
    EXPECT_EQ(FailureOf([&] { button.Call(u"Move"); }), failure::kBadCall);
    EXPECT_EQ(FailureOf([&] {
                  button.Call(u"Move", {1.0, 2.0, 3.0, 4.0, 5.0});
              }),
              failure::kBadCall);
}

TEST_F(ObjectTest, ATimerHasNoPlaceAndARunTimeControlNoIndex) {
    Do(u"タイマー1を作る");
    Do(u"拡張テキスト1を作る");
    EXPECT_EQ(FailureOf([] { Find(u"タイマー1")->Get(u"Left"); }), failure::kNoSuchMember);
    EXPECT_EQ(FailureOf([] { Find(u"拡張テキスト1")->Get(u"Index"); }), failure::kNoSuchMember);
}

TEST_F(ObjectTest, ALineHasEndsInsteadOfAPlace) {
    Do(u"線を作る");
    Object& line = *Find(u"線");
    line.SetGeometry({10, 20, 5, 16});
    EXPECT_EQ(line.GetNumber(u"X1"), 10);
    EXPECT_EQ(line.GetNumber(u"y2"), 36);
    line.Set(u"X1", 40.0);
    line.Set(u"Y2", 10.0);
    EXPECT_EQ(line.Geometry(), (PixelBox{40, 20, -25, -10}));
    EXPECT_EQ(FailureOf([&] { line.Get(u"Left"); }), failure::kNoSuchMember);
    EXPECT_EQ(FailureOf([&] { line.Set(u"Width", 1.0); }), failure::kNoSuchMember);
}

TEST_F(ObjectTest, AnUnloadedObjectAnswersThatItIsGone) {
    Do(u"ボタン1を作る");
    const ObjectPtr button = Find(u"ボタン1");
    RemoveObject(button);
    EXPECT_TRUE(button->IsUnloaded());
    EXPECT_EQ(FailureOf([&] { button->Get(u"Caption"); }), failure::kNoSuchElement);
    EXPECT_EQ(FailureOf([&] { button->Set(u"Tag", 1.0); }), failure::kNoSuchElement);
    EXPECT_EQ(FailureOf([&] { button->Call(u"SetFocus"); }), failure::kNoSuchElement);
    EXPECT_EQ(FailureOf([&] { button->Control(); }), failure::kNoSuchElement);
    EXPECT_TRUE(toolkit.HasNote(u"end Button1"));
}

TEST_F(ObjectTest, AFrameTakesItsControlsAlong) {
    Do(u"フレーム1を作る");
    Do(u"ボタン1を作る");
    const ObjectPtr button = Find(u"ボタン1");
    button->SetContainer(Find(u"フレーム1"));
    Do(u"ボタン2を作る");
    Do(u"フレーム1を消す");
    EXPECT_TRUE(button->IsUnloaded());
    EXPECT_FALSE(Find(u"ボタン1"));
    EXPECT_TRUE(Find(u"ボタン2"));
}

TEST_F(ObjectTest, TheTurtleLeavesAPictureThatGoes) {
    Do(u"ピクチャー1を作る");
    const ObjectPtr turtle = objects.TurtleObject;
    turtle->SetContainer(Find(u"ピクチャー1"));
    Do(u"ピクチャー1を消す");
    EXPECT_FALSE(turtle->IsUnloaded());
    EXPECT_EQ(turtle->Container(), objects.CurrentWindow);
    EXPECT_EQ(objects.TurtleObject, turtle);
}

TEST_F(ObjectTest, AControlIsRemovedInItsOwnClick) {
    RunLines(u"ボタン1を作る\r\n手順は\u3000ボタン1をクリック\r\nボタン1を消す\r\n終わり\r\n");
    const ObjectPtr button = Find(u"ボタン1");
    ASSERT_TRUE(button);
    Fire(*button, EventKind::kClick);
    EXPECT_TRUE(button->IsUnloaded());
    EXPECT_TRUE(toolkit.controls.empty());
}

TEST_F(ObjectTest, EveryIdentityIsItsOwn) {
    Do(u"ボタン1を作る");
    const std::uint64_t first = Find(u"ボタン1")->Identity();
    Do(u"ボタン1を消す");
    Do(u"ボタン1を作る");
    EXPECT_NE(Find(u"ボタン1")->Identity(), first);
}

}  // namespace
}  // namespace velm
