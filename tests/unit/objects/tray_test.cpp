// The icon in the notification area.
#include "objects/object_settings.h"
#include "unit/objects/control_test.h"

namespace velm {
namespace {

class Tray : public ControlTest {
  protected:
    Tray() {
        Do(u"ウィンドウ1を作る");
        Do(u"ウィンドウ1の名前は 「題」");
    }
    ~Tray() override { RemoveTrayIcon(); }
};

TEST_F(Tray, ItsWordsBothWays) {
    AddTrayIcon(*objects.CurrentWindow);
    EXPECT_TRUE(toolkit.hasTrayIcon);
    EXPECT_EQ(Read(u"タスクトレイの説明"), u"題");
    Do(u"タスクトレイの説明は 「あ」＆「い」");
    EXPECT_EQ(toolkit.trayTip, u"あい");
    EXPECT_EQ(Read(u"タスクトレイの説明"), u"あい");
    toolkit.pictures[u"a.ico"] = Pixmap(16, 16, 5);
    Do(u"タスクトレイのアイコンは 「a.ico」,1");
    EXPECT_TRUE(toolkit.HasNote(u"LoadIcon a.ico,1,small"));
    EXPECT_TRUE(toolkit.HasNote(u"Tray.SetIcon"));
    EXPECT_EQ(Read(u"タスクトレイのアイコン"), u"a.ico");
    Do(u"タスクトレイのアイコンは 「none.ico」");
    EXPECT_EQ(Read(u"タスクトレイのアイコン"), u"a.ico");
    EXPECT_EQ(run.ErrorNumber, 0);
}

TEST_F(Tray, AnotherWordIsReportedWhenItIsSet) {
    Do(u"タスクトレイの色は 赤");
    EXPECT_EQ(run.ErrorNumber, 102);
    run.ErrorNumber = 0;
    EXPECT_EQ(Read(u"タスクトレイの色"), u"タスクトレイの色");
    EXPECT_EQ(run.ErrorNumber, 0);
}

TEST_F(Tray, TextsAreCutToTheirFields) {
    const std::u16string longText(300, u'あ');
    Do(u"題名は 「" + longText + u"」");
    Do(u"ウィンドウ1の名前は 題名");
    AddTrayIcon(*objects.CurrentWindow);
    EXPECT_EQ(toolkit.trayTip.size(), 127U);
    Do(u"タスクトレイの説明は 題名");
    EXPECT_EQ(toolkit.trayTip.size(), 127U);
    ShowBalloon(longText, 0);
    EXPECT_EQ(toolkit.balloon.size(), 255U);
    Do(u"タスクトレイの説明は 「" + std::u16string(126, u'a') + u"𠮷」");
    EXPECT_EQ(toolkit.trayTip.size(), 126U);
}

TEST_F(Tray, BalloonsHaveTheIconOfTheirStyle) {
    ShowBalloon(u"早い", 0);
    EXPECT_EQ(toolkit.balloon, u"");
    AddTrayIcon(*objects.CurrentWindow);
    run.ProgramTitle = u"表題";
    ShowBalloon(u"一", 64);
    EXPECT_EQ(toolkit.notes.back(), u"Tray.ShowBalloon 表題/一/1");
    ShowBalloon(u"二", 48);
    EXPECT_EQ(toolkit.notes.back(), u"Tray.ShowBalloon 表題/二/2");
    ShowBalloon(u"三", 16);
    EXPECT_EQ(toolkit.notes.back(), u"Tray.ShowBalloon 表題/三/3");
}

TEST_F(Tray, RemovingItForgetsItsState) {
    RemoveTrayIcon();
    EXPECT_FALSE(toolkit.HasNote(u"Tray.Hide"));
    AddTrayIcon(*objects.CurrentWindow);
    RemoveTrayIcon();
    EXPECT_TRUE(toolkit.HasNote(u"Tray.Hide"));
    EXPECT_EQ(Read(u"タスクトレイの説明"), u"");
}

}  // namespace
}  // namespace velm
