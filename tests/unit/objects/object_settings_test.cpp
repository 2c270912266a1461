// Settings sentences whose target is an object.
#include "objects/object_settings.h"
#include "core/settings_state.h"
#include "objects/object_canvas.h"
#include "platform/desktop.h"
#include "unit/objects/control_test.h"

namespace velm {
namespace {

class PointerDesktop : public Desktop {
  public:
    PointerDesktop() { SetDesktop(this); }
    ~PointerDesktop() override { SetDesktop(nullptr); }
    void SetScreenPointer(std::int32_t to) override { pointer = to; }

    std::int32_t pointer = -1;
};

class ObjectSettings : public ControlTest {
  protected:
    ObjectSettings() {
        Do(u"ウィンドウ1を作る");
        Do(u"ピクチャー1を作る");
    }
};

TEST_F(ObjectSettings, ThePlaceOfDrawingTakesTheTurtleWithIt) {
    const ObjectPtr picture = Find(u"ピクチャー1");
    picture->Canvas()->SetScaleMode(scale_mode::kMillimetre);
    SetTurtleObject(objects.CurrentWindow->MainIcon());
    Do(u"場所は ピクチャー1");
    EXPECT_EQ(objects.DrawTarget, picture);
    EXPECT_EQ(drawing.DrawTarget, picture->Canvas());
    EXPECT_EQ(objects.TurtleObject->Container(), picture);
    EXPECT_EQ(picture->Canvas()->scaleMode, scale_mode::kPixel);
    Do(u"場所は ない物");
    EXPECT_EQ(objects.DrawTarget, picture);
    EXPECT_EQ(run.ErrorNumber, 0);
    Do(u"場所は ウィンドウ1");
    EXPECT_EQ(drawing.DrawTarget, objects.CurrentWindow->Canvas());
    EXPECT_EQ(objects.TurtleObject->Container(), objects.CurrentWindow);
}

TEST_F(ObjectSettings, AFrameTakesControlsButNoDrawing) {
    Do(u"フレーム1を作る");
    Do(u"場所は フレーム1");
    EXPECT_EQ(objects.DrawTarget, Find(u"フレーム1"));
    EXPECT_EQ(drawing.DrawTarget, nullptr);
    Do(u"ボタン1を作る");
    Do(u"場所は ボタン1");
    EXPECT_EQ(objects.DrawTarget, Find(u"フレーム1"));
}

TEST_F(ObjectSettings, TheBackgroundIsThatOfTheCurrentWindow) {
    const int before = toolkit.pumps;
    Do(u"背景は 赤");
    EXPECT_EQ(objects.CurrentWindow->Canvas()->BackColor(), 255);
    EXPECT_GT(toolkit.pumps, before);
    EXPECT_EQ(Find(u"ピクチャー1")->Canvas()->BackColor() == 255, false);
}

TEST_F(ObjectSettings, TheShapeOfTheTurtleFromAFileAndBack) {
    toolkit.pictures[u"a.bmp"] = Pixmap(9, 9, 5);
    SetTurtleObject(objects.CurrentWindow->MainIcon());
    Do(u"形は 「a.bmp」");
    EXPECT_EQ(objects.TurtleObject->Picture().width, 9);
    EXPECT_FALSE(settings.TurtleIconOn);
    Do(u"形は 「none.bmp」");
    EXPECT_EQ(run.ErrorNumber, 201);
    Do(u"形は カメ");
    EXPECT_NE(objects.TurtleObject->Picture().width, 9);
    EXPECT_TRUE(settings.TurtleIconOn);
}

TEST_F(ObjectSettings, ThePointerOfTheScreenOrOfTheWindows) {
    PointerDesktop desktop;
    Do(u"マウスカーソルは 砂時計");
    EXPECT_EQ(desktop.pointer, 11);
    Do(u"マウスカーソルは 0");
    EXPECT_EQ(desktop.pointer, 0);
    Do(u"マウスカーソルは 「hand.cur」");
    RecordedWindow& window = Recorded(*objects.CurrentWindow);
    EXPECT_EQ(MemberToText(window.members[u"MOUSEICON"]), u"hand.cur");
    EXPECT_EQ(MemberToText(window.members[u"MOUSEPOINTER"]), u"99");
    SetScreenPointer(13);
    EXPECT_EQ(desktop.pointer, 13);
}

}  // namespace
}  // namespace velm
