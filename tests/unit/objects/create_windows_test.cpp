// Windows: making, showing, closing; the state of a run; the turtle of a window.
#include <limits>

#include "core/hooks.h"
#include "core/velm.h"
#include "graphics/colors.h"
#include "graphics/drawing_surface.h"
#include "graphics/turtle.h"
#include "graphics/turtle_pictures.h"
#include "objects/create.h"
#include "objects/object_canvas.h"
#include "unit/objects/control_test.h"

namespace velm {
namespace {

using Windows = ControlTest;

TEST_F(Windows, TheFirstOneIsARecordUntilItIsNeeded) {
    ASSERT_TRUE(objects.FirstWindow);
    EXPECT_EQ(objects.CurrentWindow, objects.FirstWindow);
    EXPECT_EQ(objects.DrawTarget, objects.FirstWindow);
    EXPECT_EQ(objects.WindowCount, 1);
    EXPECT_EQ(drawing.MainWindow, objects.FirstWindow->Canvas());
    EXPECT_EQ(drawing.DrawTarget, objects.FirstWindow->Canvas());
    EXPECT_FALSE(objects.FirstWindow->GetBool(u"Visible"));
    Do(u"前へ100");
    Do(u"100を前へ");
    Do(u"隠れる");
    PumpEvents();
    EXPECT_TRUE(toolkit.notes.empty());
    EXPECT_EQ(toolkit.pumps, 0);
    EXPECT_FALSE(HasToolkit());
}

TEST_F(Windows, ShowOpensTheFirstOne) {
    Do(u"ウィンドウ０を表示");
    EXPECT_EQ(objects.CurrentWindow, objects.FirstWindow);
    EXPECT_EQ(objects.WindowCount, 1);
    EXPECT_TRUE(objects.FirstWindow->isShown);
    RecordedWindow& window = Recorded(*objects.FirstWindow);
    EXPECT_EQ(MemberToText(window.members.at(u"CAPTION")), u"Velmrun");
    EXPECT_EQ(window.ClientWidth(), 446);
    EXPECT_EQ(window.ClientHeight(), 319);
    EXPECT_EQ(window.canvas, objects.FirstWindow->Canvas());
    EXPECT_EQ(window.picture.pixels, TurtlePicture(kTurtleFacingUp).pixels);
}

TEST_F(Windows, ColoursOfTheDesktopAreTheToolkits) {
    constexpr std::int32_t kFaceOfButtons = 15;
    const std::int32_t face = std::numeric_limits<std::int32_t>::min() + kFaceOfButtons;
    const std::uint32_t usual = PixelOfColor(face);
    toolkit.systemColors[kFaceOfButtons] = 0x123456;
    Do(u"ウィンドウ2を作る");
    EXPECT_EQ(PixelOfColor(face), 0x123456U);
    SetSystemColor(kFaceOfButtons, usual);
}

TEST_F(Windows, MakingShowsAWindow) {
    Do(u"ウィンドウ2を作る");
    const WindowPtr window = objects.CurrentWindow;
    EXPECT_EQ(window->tag, u"ウィンドウ2");
    EXPECT_EQ(window->WindowType, u"ウィンドウ");
    EXPECT_EQ(objects.WindowCount, 2);
    EXPECT_EQ(objects.DrawTarget, window);
    EXPECT_EQ(objects.ThatObject, window);
    EXPECT_EQ(objects.TurtleObject, window->MainIcon());
    EXPECT_TRUE(toolkit.HasNote(u"Window1.Show False"));
    EXPECT_GE(toolkit.pumps, 1);
    Do(u"ウィンドウ2を作る");
    EXPECT_EQ(objects.CurrentWindow, window);
    EXPECT_EQ(objects.WindowCount, 2);
}

TEST_F(Windows, ShowingTwiceMakesOne) {
    Do(u"ウィンドウ2を表示");
    Do(u"ウィンドウ２を表示");
    EXPECT_EQ(objects.WindowCount, 2);
    EXPECT_EQ(toolkit.windows.size(), 1U);
}

TEST_F(Windows, NamesOfAllForms) {
    Do(u"ウィンドウを作る");
    EXPECT_EQ(objects.CurrentWindow->tag, u"ウィンドウ");
    EXPECT_TRUE(FindGlobal(u"ウィンドウ"));
    Do(u"固定ウィンドウ（1＋2）を作る");
    EXPECT_EQ(objects.CurrentWindow->tag, u"固定ウィンドウ3");
    Do(u"ツールウィンドウ4を道具として作る");
    EXPECT_EQ(objects.CurrentWindow->tag, u"道具");
    EXPECT_EQ(objects.CurrentWindow->WindowType, u"ツールウィンドウ");
    EXPECT_TRUE(FindGlobal(u"道具"));
    EXPECT_FALSE(FindGlobal(u"ツールウィンドウ4"));
}

TEST_F(Windows, EveryKindHasItsNumber) {
    const std::pair<std::u16string_view, int> rows[] = {
        {u"ウィンドウ", 0},       {u"固定ウィンドウ", 1},       {u"縁無しウィンドウ", 2},
        {u"ツールウィンドウ", 3}, {u"固定ツールウィンドウ", 4}, {u"フルスクリーン", 5},
    };
    for (const auto& [word, kind] : rows) {
        Do(std::u16string(word) + u"7を作る");
        EXPECT_EQ(objects.CurrentWindow->WindowType, word);
        EXPECT_EQ(NumberOf(objects.CurrentWindow->Prop[u"種類"]), kind);
        EXPECT_EQ(MemberToNumber(Recorded(*objects.CurrentWindow).members.at(u"KIND")), kind);
    }
    EXPECT_EQ(objects.WindowCount, 7);
}

TEST_F(Windows, ModalAndOnTop) {
    Do(u"ウィンドウ2をモーダルで表示");
    EXPECT_TRUE(toolkit.HasNote(u"Window1.Show True"));
    Do(u"ウィンドウ3をダイアログで表示");
    EXPECT_TRUE(toolkit.HasNote(u"Window2.Show True"));
    Do(u"ウィンドウ4を常に手前へ表示");
    EXPECT_TRUE(toolkit.HasNote(u"Window3.TopMost=True"));
    EXPECT_TRUE(toolkit.HasNote(u"Window3.Show False"));
}

TEST_F(Windows, AWordWithOfGoesToTheMaker) {
    Do(u"ウィンドウ2を作る");
    Do(u"ウィンドウ3を作る");
    const std::size_t shown = installed.dialogs.shown.size();
    Do(u"ウィンドウ2のボタン1を表示");
    EXPECT_EQ(objects.CurrentWindow->tag, u"ウィンドウ2");
    EXPECT_EQ(run.ErrorNumber, 0);
    Do(u"Aの値を表示");
    EXPECT_EQ(run.ErrorNumber, 103);
    EXPECT_EQ(installed.dialogs.shown.size(), shown);
    Do(u"「Aの値」を表示");
    EXPECT_EQ(installed.dialogs.shown.back().text, u"Aの値");
}

TEST_F(Windows, AWordThatNobodyMakesNeedsNoToolkit) {
    Do(u"私の名前を表示");
    EXPECT_EQ(run.ErrorNumber, 103);
    EXPECT_EQ(Read(u"私の名前"), u"私の名前");
    EXPECT_EQ(Read(u"ボタン1の内容"), u"ボタン1の内容");
    EXPECT_TRUE(toolkit.notes.empty());
}

TEST_F(Windows, ObjectExists) {
    Do(u"ウィンドウ2を作る");
    Do(u"もし 「ウィンドウ2」は \"オブジェクト\" なら 記録＝「在」");
    EXPECT_EQ(Read(u"記録"), u"在");
}

TEST_F(Windows, ClosingTakesNamesAndControls) {
    Do(u"ウィンドウ1を作る");
    Do(u"ウィンドウ2を作る");
    const WindowPtr window = objects.CurrentWindow;
    Do(u"ボタン1を作る");
    const ObjectPtr button = Find(u"ボタン1");
    Do(u"ボタン1について");
    CloseWindow(window, false);
    EXPECT_TRUE(window->IsUnloaded());
    EXPECT_TRUE(button->IsUnloaded());
    EXPECT_FALSE(FindGlobal(u"ウィンドウ2"));
    EXPECT_EQ(objects.WindowCount, 2);
    EXPECT_EQ(objects.CurrentWindow, objects.FirstWindow);
    EXPECT_EQ(objects.DrawTarget, objects.FirstWindow);
    EXPECT_EQ(objects.TurtleObject, objects.FirstWindow->MainIcon());
    EXPECT_EQ(drawing.MainWindow, objects.FirstWindow->Canvas());
    EXPECT_EQ(objects.ThisObject, nullptr);
    EXPECT_FALSE(run.StopFlag);
    EXPECT_TRUE(toolkit.controls.empty());
    CloseWindow(window, false);
    EXPECT_EQ(objects.WindowCount, 2) << "once";
}

TEST_F(Windows, TheLastShownWindowEndsTheRun) {
    Do(u"ウィンドウ1を作る");
    const WindowPtr first = objects.CurrentWindow;
    Do(u"ウィンドウ2を使う");
    const WindowPtr second = objects.CurrentWindow;
    Do(u"ウィンドウ3を使う");
    CloseWindow(objects.CurrentWindow, false);
    EXPECT_FALSE(run.StopFlag) << "it was never shown";
    CloseWindow(first, true);
    EXPECT_TRUE(run.StopFlag);
    EXPECT_TRUE(second->IsUnloaded()) << "the end of the run takes all";
    EXPECT_TRUE(toolkit.windows.empty());
}

TEST_F(Windows, TheClosingProcedureMayKeepItOpenForTheUser) {
    RunLines(u"ウィンドウ1を作る\r\n手順は\u3000ウィンドウ1を閉じる\r\n閉じない\r\n終わり\r\n");
    const WindowPtr window = objects.CurrentWindow;
    ControlEvent event;
    event.kind = EventKind::kClosing;
    event.byUser = true;
    EXPECT_TRUE(Fire(*window, event)) << "it stays open";
    EXPECT_FALSE(window->IsUnloaded());
    EXPECT_FALSE(objects.KeepOpen);
    EXPECT_FALSE(run.StopFlag);
    event.byUser = false;
    EXPECT_FALSE(Fire(*window, event));
    EXPECT_TRUE(window->IsUnloaded());
}

TEST_F(Windows, AWindowIsClosedInItsOwnEventAndItsOwnClosing) {
    RunLines(
        u"ウィンドウ1を作る\r\nボタン1を作る\r\n"
        u"手順は\u3000ウィンドウ1のボタン1をクリック\r\nウィンドウ1を閉じる\r\n記録＝「後」\r\n終わ"
        u"り\r\n"
        u"手順は\u3000ウィンドウ1を閉じる\r\nウィンドウ1を閉じる\r\n数＝数＋1\r\n終わり\r\n");
    const WindowPtr window = objects.CurrentWindow;
    const ObjectPtr button = Find(u"ボタン1");
    Do(u"ウィンドウ2を作る");
    Fire(*button, EventKind::kClick);
    EXPECT_TRUE(window->IsUnloaded());
    EXPECT_EQ(objects.WindowCount, 2);
    EXPECT_EQ(Read(u"記録"), u"後");
    EXPECT_FALSE(run.StopFlag);
}

TEST_F(Windows, TheFirstOneComesAnewWhenItWasClosed) {
    Do(u"ウィンドウ2を作る");
    const WindowPtr first = objects.FirstWindow;
    CloseWindow(first, false);
    ASSERT_TRUE(objects.FirstWindow);
    EXPECT_NE(objects.FirstWindow, first);
    EXPECT_EQ(objects.Windows.front(), objects.FirstWindow);
    EXPECT_EQ(objects.WindowCount, 2);
    EXPECT_EQ(objects.CurrentWindow->tag, u"ウィンドウ2");
}

TEST_F(Windows, ManyWindowsLeaveNothing) {
    for (int i = 0; i < 1000; ++i) {
        Do(u"ウィンドウ5を作る");
        const WindowPtr window = objects.CurrentWindow;
        Do(u"ボタン1を作る");
        window->isShown = false;
        CloseWindow(window, false);
    }
    EXPECT_EQ(objects.Windows.size(), 1U);
    EXPECT_TRUE(objects.ObjectTable.empty());
    EXPECT_TRUE(toolkit.windows.empty());
    EXPECT_TRUE(toolkit.controls.empty());
    EXPECT_EQ(objects.WindowCount, 1);
}

TEST_F(Windows, AClosedWindowDuringItsMaking) {
    toolkit.atPump.push_back([] { CloseWindow(objects.Windows.back(), true); });
    Do(u"ウィンドウ2を作る");
    EXPECT_EQ(objects.CurrentWindow, objects.FirstWindow);
    EXPECT_TRUE(run.StopFlag);
}

TEST_F(Windows, ASecondRunBeginsAnew) {
    Do(u"ウィンドウ2を作る");
    Do(u"ボタン1を作る");
    Do(u"ボタン1について");
    objects.KeepOpen = true;
    const WindowPtr old = objects.CurrentWindow;
    const WindowPtr first = objects.FirstWindow;
    ResetRunState();
    EXPECT_TRUE(old->IsUnloaded());
    EXPECT_TRUE(first->IsUnloaded());
    EXPECT_TRUE(toolkit.windows.empty());
    EXPECT_EQ(objects.Windows.size(), 1U);
    EXPECT_EQ(objects.CurrentWindow, objects.FirstWindow);
    EXPECT_EQ(objects.WindowCount, 1);
    EXPECT_EQ(objects.ThisObject, nullptr);
    EXPECT_EQ(objects.ThatObject, nullptr);
    EXPECT_TRUE(objects.ObjectTable.empty());
    EXPECT_FALSE(objects.KeepOpen);
}

TEST_F(Windows, TheEndOfARunTakesAllWindows) {
    Do(u"ウィンドウ2を作る");
    CloseObjectSystem();
    EXPECT_TRUE(toolkit.windows.empty());
    ASSERT_TRUE(objects.CurrentWindow);
    EXPECT_FALSE(objects.CurrentWindow->HasControl());
}

TEST_F(Windows, InHostedModeNoWindowIsMade) {
    objects.HostedMode = true;
    Do(u"ウィンドウ5を作る");
    EXPECT_EQ(objects.CurrentWindow, objects.FirstWindow);
    EXPECT_EQ(objects.Windows.size(), 1U);
    EXPECT_EQ(ObjectKindName(*objects.CurrentWindow), u"ウィンドウ");
    Do(u"ウィンドウ5を画面として作る");
    EXPECT_EQ(objects.CurrentWindow->tag, u"画面");
    objects.HostedMode = false;
}

TEST_F(Windows, TheTurtleIsHiddenInTheMiddle) {
    ASSERT_NE(drawing.TurtleObject, nullptr);
    const Pixmap& picture = TurtlePicture(kTurtleFacingUp);
    EXPECT_EQ(drawing.TurtleObject->Width(), static_cast<float>(picture.width));
    EXPECT_EQ(drawing.TurtleObject->Height(), static_cast<float>(picture.height));
    EXPECT_FALSE(drawing.TurtleObject->Visible());
    const PixelBox box = objects.TurtleObject->Geometry();
    const ObjectCanvas& canvas = *objects.FirstWindow->Canvas();
    EXPECT_EQ(canvas.CurrentX, static_cast<float>(box.left) + static_cast<float>(box.width) / 2);
    EXPECT_EQ(box.top, (319 - box.height) / 2);
    EXPECT_NEAR(canvas.CurrentX, 223, 1);
}

TEST_F(Windows, TheTurtleShowsAndWalks) {
    Do(u"ウィンドウ2を作る");
    Do(u"出て");
    ASSERT_TRUE(toolkit.HasNote(u"Turtle1.Visible=True"));
    EXPECT_TRUE(drawing.TurtleObject->Visible());
    RecordedControl& turtle = Recorded(*objects.TurtleObject);
    EXPECT_EQ(turtle.picture.pixels, TurtlePicture(kTurtleFacingUp).pixels);
    const std::int32_t top = turtle.box.top;
    Forward(50);
    EXPECT_EQ(turtle.box.top, top - 50);
    Turn(-90);
    EXPECT_EQ(turtle.picture.pixels, TurtlePicture(2090).pixels);
    Do(u"隠れ");
    EXPECT_FALSE(drawing.TurtleObject->Visible());
}

TEST_F(Windows, DrawingGoesOnWhenItsWindowIsClosedUnderIt) {
    Do(u"ウィンドウ2を作る");
    toolkit.atPump.push_back([] {
        const WindowPtr window = objects.CurrentWindow;
        window->isShown = false;
        CloseWindow(window, false);
    });
    Forward(10);
    Forward(10);
    EXPECT_EQ(drawing.DrawTarget, objects.FirstWindow->Canvas());
}

}  // namespace
}  // namespace velm
