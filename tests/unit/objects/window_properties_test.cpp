// Properties of windows, and the routines behind them.
#include <tuple>

#include "data/failure.h"
#include "objects/object_canvas.h"
#include "objects/object_settings.h"
#include "objects/window_state.h"
#include "unit/objects/control_test.h"

namespace velm {
namespace {

class WindowProperties : public ControlTest {
  protected:
    WindowProperties() { Do(u"ウィンドウ1を作る"); }

    RecordedWindow& Win() { return Recorded(*objects.CurrentWindow); }
    std::u16string Held(std::u16string_view member) {
        return MemberToText(Win().members.at(ToUpper(member)));
    }
    void CheckWindowRows(const std::vector<Row>& rows) {
        for (const Row& row : rows) {
            const std::u16string path = u"ウィンドウ1の" + std::u16string(row.word);
            SCOPED_TRACE(testing::PrintToString(path));
            Do(path + u"は " + std::u16string(row.value));
            EXPECT_EQ(run.ErrorNumber, 0);
            EXPECT_EQ(Held(row.member), row.stored);
            EXPECT_EQ(Read(path), row.read);
        }
    }
};

TEST_F(WindowProperties, EveryPlainRowBothWays) {
    CheckWindowRows({
        {u"名前", u"「題」", u"Caption", u"題", u"題"},
        {u"内容", u"「題２」", u"Caption", u"題２", u"題２"},
        {u"状態", u"最小化", u"WindowState", u"1", u"最小化"},
        {u"状態", u"2", u"WindowState", u"2", u"最大化"},
        {u"状態", u"標準", u"WindowState", u"0", u"標準"},
        {u"種類", u"固定", u"Kind", u"1", u"固定"},
        {u"種類", u"縁無し", u"Kind", u"2", u"縁無し"},
        {u"種類", u"ツール", u"Kind", u"3", u"ツール"},
        {u"種類", u"固定ツール", u"Kind", u"4", u"固定ツール"},
        {u"種類", u"5", u"Kind", u"5", u"フルスクリーン"},
        {u"種類", u"9", u"Kind", u"5", u"フルスクリーン"},
        {u"種類", u"標準", u"Kind", u"0", u"標準"},
        {u"透明度", u"40", u"Alpha", u"153", u"40"},
        {u"透明度", u"100", u"Alpha", u"0", u"100"},
        {u"透明度", u"0", u"Alpha", u"255", u"0"},
        {u"最前面", u"1", u"TopMost", u"True", u"1"},
        {u"最前面", u"0", u"TopMost", u"False", u"0"},
        {u"タスクバー表示", u"0", u"ShowInTaskbar", u"False", u"0"},
        {u"最小化ボタン", u"0", u"MinButton", u"False", u"0"},
        {u"最大化ボタン", u"0", u"MaxButton", u"False", u"0"},
        {u"システムメニュー", u"0", u"ControlBox", u"False", u"0"},
        {u"再描画", u"0", u"ClipControls", u"False", u"0"},
        {u"再描画", u"1", u"ClipControls", u"True", u"1"},
        {u"マウスカーソル", u"十文字", u"MousePointer", u"2", u"2"},
    });
}

TEST_F(WindowProperties, LengthsArePixelsOfTheScreen) {
    Do(u"ウィンドウ1の座標は ミリメートル");
    Do(u"ウィンドウ1の位置は 10,20");
    Do(u"ウィンドウ1の大きさは 300,200");
    EXPECT_EQ(Win().box, (PixelBox{10, 20, 300, 200}));
    EXPECT_EQ(Read(u"ウィンドウ1の位置"), u"10,20");
    EXPECT_EQ(Read(u"ウィンドウ1の大きさ"), u"300,200");
    EXPECT_EQ(Read(u"ウィンドウ1の中の大きさ"), u"292,172");
    Do(u"ウィンドウ1の横は 1");
    Do(u"ウィンドウ1の縦は 2");
    Do(u"ウィンドウ1の幅は 3");
    Do(u"ウィンドウ1の高さは 4");
    EXPECT_EQ(Win().box, (PixelBox{1, 2, 3, 4}));
    EXPECT_EQ(Read(u"ウィンドウ1の横"), u"1");
    EXPECT_EQ(Read(u"ウィンドウ1の縦"), u"2");
    EXPECT_EQ(Read(u"ウィンドウ1の幅"), u"3");
    EXPECT_EQ(Read(u"ウィンドウ1の高さ"), u"4");
}

TEST_F(WindowProperties, TheInsideReachesItsValue) {
    Do(u"ウィンドウ1の中の幅は 320");
    Do(u"ウィンドウ1の中の高さは 240");
    EXPECT_EQ(Read(u"ウィンドウ1の中の幅"), u"320");
    EXPECT_EQ(Read(u"ウィンドウ1の中の高さ"), u"240");
    EXPECT_EQ(Read(u"ウィンドウ1の大きさ"), u"328,268");
    Do(u"ウィンドウ1の中の大きさは 100,50");
    EXPECT_EQ(Read(u"ウィンドウ1の中の大きさ"), u"100,50");
}

TEST_F(WindowProperties, TheMiddleIsThatOfTheScreen) {
    toolkit.workArea = {0, 40, 1000, 760};
    Do(u"ウィンドウ1の大きさは 300,200");
    Do(u"ウィンドウ1の位置は 中央");
    EXPECT_EQ(Win().box, (PixelBox{350, 320, 300, 200}));
    Do(u"ウィンドウ1の位置は 0,0");
    Do(u"ウィンドウ1の横は 中央");
    EXPECT_EQ(Win().box, (PixelBox{350, 0, 300, 200}));
    Do(u"ウィンドウ1の縦は 中央");
    EXPECT_EQ(Win().box, (PixelBox{350, 320, 300, 200}));
}

TEST_F(WindowProperties, ASizeCanBeAState) {
    const PixelBox before = Win().box;
    Do(u"ウィンドウ1の大きさは 最大化");
    EXPECT_EQ(Held(u"WindowState"), u"2");
    Do(u"ウィンドウ1の大きさは 最小化");
    EXPECT_EQ(Held(u"WindowState"), u"1");
    Do(u"ウィンドウ1の大きさは 標準");
    EXPECT_EQ(Held(u"WindowState"), u"0");
    EXPECT_EQ(Win().box, before);
}

TEST_F(WindowProperties, PlaceSizeAndStateAreFiveNumbers) {
    Do(u"ウィンドウ1の位置と大きさは 10,20,300,200,0");
    EXPECT_EQ(Read(u"ウィンドウ1の位置と大きさ"), u"10,20,300,200,0");
    Do(u"ウィンドウ1の位置と大きさは 0,0,1024,768,2");
    EXPECT_EQ(Held(u"WindowState"), u"2");
    Do(u"ウィンドウ1の位置と大きさは 10,20,300,200,0");
    EXPECT_EQ(Win().box, (PixelBox{10, 20, 300, 200}));
    EXPECT_EQ(Held(u"WindowState"), u"0");
}

TEST_F(WindowProperties, TheKindIsKnownFromItsMaking) {
    Do(u"固定ツールウィンドウ3を作る");
    EXPECT_EQ(Read(u"固定ツールウィンドウ3の種類"), u"固定ツール");
}

TEST_F(WindowProperties, IconsComeFromFilesByNumber) {
    toolkit.pictures[u"a.ico"] = Pixmap(32, 32, 5);
    Do(u"ウィンドウ1のアイコンは 「a.ico」,2");
    EXPECT_TRUE(toolkit.HasNote(u"LoadIcon a.ico,2,large"));
    EXPECT_EQ(Win().picture.width, 32);
    EXPECT_EQ(Read(u"ウィンドウ1のアイコン"), u"a.ico");
    Do(u"ウィンドウ1のアイコンは 「none.ico」");
    EXPECT_EQ(Read(u"ウィンドウ1のアイコン"), u"a.ico");
    EXPECT_EQ(run.ErrorNumber, 0);
    Do(u"ウィンドウ1のアイコンは 「」");
    EXPECT_EQ(Win().picture.width, 0);
    EXPECT_EQ(Read(u"ウィンドウ1のアイコン"), u"");
}

TEST_F(WindowProperties, OneSidedWords) {
    Do(u"ウィンドウ1のオブジェクト再描画は 0");
    EXPECT_EQ(Held(u"ClipControls"), u"False");
    EXPECT_TRUE(objects.CurrentWindow->Canvas()->AutoRedraw);
    EXPECT_EQ(Read(u"ウィンドウ1の位置固定"), u"1");
    Do(u"ウィンドウ1の位置固定は 0");
    EXPECT_EQ(run.ErrorNumber, 102);
    Win().members[u"VISIBLE"] = true;
    run.ErrorNumber = 0;
    Read(u"ウィンドウ1のオブジェクト再描画");
    EXPECT_EQ(run.ErrorNumber, 102);
}

TEST_F(WindowProperties, ATransparencyOutsideIsStoredAndNotShown) {
    Do(u"ウィンドウ1の透明度は 40");
    Do(u"ウィンドウ1の透明度は 140");
    EXPECT_EQ(Held(u"Alpha"), u"153");
    EXPECT_EQ(Read(u"ウィンドウ1の透明度"), u"140");
    EXPECT_EQ(run.ErrorNumber, 0);
}

TEST_F(WindowProperties, DrawingSettingsOfTheSurface) {
    ObjectCanvas& canvas = *objects.CurrentWindow->Canvas();
    EXPECT_EQ(Read(u"ウィンドウ1の描画モード"), u"1");
    Do(u"ウィンドウ1の描画モードは 7");
    EXPECT_EQ(canvas.DrawMode, 7);
    EXPECT_EQ(Read(u"ウィンドウ1の描画モード"), u"1");
    Do(u"ウィンドウ1の描画モードは 0");
    EXPECT_EQ(canvas.DrawMode, 7);
    Do(u"ウィンドウ1の描画スタイルは 2");
    EXPECT_EQ(canvas.DrawStyle, 2);
    EXPECT_EQ(Read(u"ウィンドウ1の描画スタイル"), u"2");
    Do(u"ウィンドウ1の背景は 赤");
    EXPECT_EQ(canvas.BackColor(), 255);
    EXPECT_EQ(Read(u"ウィンドウ1の背景"), u"&hFF0000");
    Do(u"ウィンドウ1の色は 赤");
    EXPECT_EQ(canvas.ForeColor, 255);
    Do(u"ウィンドウ1の塗りつぶし色は 赤");
    EXPECT_EQ(canvas.FillColor, 255);
}

TEST_F(WindowProperties, TheLockHoldsDrawingBackUntilItEnds) {
    ObjectCanvas& canvas = *objects.CurrentWindow->Canvas();
    canvas.TakeRefresh();
    Do(u"ウィンドウ1の描画ロックは 1");
    EXPECT_TRUE(drawing.DrawLock);
    EXPECT_TRUE(canvas.AutoRedraw);
    EXPECT_EQ(Read(u"ウィンドウ1の描画ロック"), u"1");
    EXPECT_FALSE(canvas.TakeRefresh());
    Do(u"ウィンドウ1の描画ロックは 0");
    EXPECT_FALSE(drawing.DrawLock);
    EXPECT_FALSE(canvas.AutoRedraw);
    EXPECT_TRUE(canvas.TakeRefresh());
    EXPECT_EQ(Read(u"ウィンドウ1の描画ロック"), u"0");
}

TEST_F(WindowProperties, ScalesByTheirWords) {
    ObjectCanvas& canvas = *objects.CurrentWindow->Canvas();
    canvas.Resize(96, 48);
    EXPECT_EQ(Read(u"ウィンドウ1の座標"), u"標準");
    for (const auto& [word, mode, width] :
         {std::tuple{u"印刷用", 2, 72.0F}, std::tuple{u"ミリメートル", 6, 25.4F},
          std::tuple{u"センチメートル", 7, 2.54F}, std::tuple{u"標準", 3, 96.0F}}) {
        Do(u"ウィンドウ1の座標は " + std::u16string(word));
        EXPECT_EQ(canvas.scaleMode, mode);
        EXPECT_EQ(Read(u"ウィンドウ1の座標"), word);
        EXPECT_FLOAT_EQ(canvas.ScaleWidth(), width);
    }
    Do(u"ウィンドウ1の座標は 1");
    EXPECT_EQ(Read(u"ウィンドウ1の座標"), u"1");
    EXPECT_EQ(canvas.ScaleWidth(), 96 * 15);
    Do(u"ウィンドウ1の座標は 4");
    EXPECT_EQ(Read(u"ウィンドウ1の座標"), u"1");
}

TEST_F(WindowProperties, AShapeFollowsThePictureButForTheColourOfItsCorner) {
    Do(u"ウィンドウ1の中の大きさは 4,2");
    Do(u"ウィンドウ1の変形は 1");
    EXPECT_TRUE(Win().shape.pixels.empty());
    EXPECT_EQ(Read(u"ウィンドウ1の変形"), u"1");
    Pixmap picture(3, 3, 7);
    picture.Row(0)[1] = 9;
    picture.Row(1)[2] = 9;
    ShowPicture(*objects.CurrentWindow, picture, u"");
    Do(u"ウィンドウ1の変形は 1");
    const Pixmap& shape = Win().shape;
    ASSERT_EQ(shape.width, 4);
    ASSERT_EQ(shape.height, 2);
    std::string seen;
    for (const std::uint32_t pixel : shape.pixels) seen += pixel == kTransparentPixel ? '.' : '#';
    EXPECT_EQ(seen, ".#....#.");
    Do(u"ウィンドウ1の変形は 0");
    EXPECT_TRUE(Win().shape.pixels.empty());
    EXPECT_EQ(Read(u"ウィンドウ1の変形"), u"0");
}

TEST_F(WindowProperties, InitialStates) {
    toolkit.workArea = {0, 0, 1000, 800};
    Do(u"ウィンドウ1の大きさは 300,200");
    Window& window = *objects.CurrentWindow;
    EXPECT_EQ(Read(u"ウィンドウ1の初期状態"), u"標準");
    Do(u"ウィンドウ1の初期状態は 中央");
    EXPECT_EQ(Read(u"ウィンドウ1の初期状態"), u"中央");
    ApplyInitialState(window);
    EXPECT_EQ(Win().box, (PixelBox{350, 300, 300, 200}));
    Do(u"ウィンドウ1の初期状態は 最大化");
    ApplyInitialState(window);
    EXPECT_EQ(Held(u"WindowState"), u"2");
    Do(u"ウィンドウ1の初期状態は 最小化");
    ApplyInitialState(window);
    EXPECT_EQ(Held(u"WindowState"), u"1");
    Do(u"ウィンドウ1の初期状態は 0");
    ApplyInitialState(window);
    EXPECT_EQ(Held(u"WindowState"), u"1");
}

TEST_F(WindowProperties, ShowingModallyOnTopAndWithAFailure) {
    Window& window = *objects.CurrentWindow;
    ShowWindowAs(window, true, true);
    EXPECT_TRUE(window.isShown);
    EXPECT_EQ(Held(u"TopMost"), u"True");
    EXPECT_TRUE(toolkit.HasNote(Win().label + u".Show True"));
    Win().failures[u"SHOW"] = 5;
    run.ErrorNumber = 0;
    ShowWindowAs(window, false, false);
    EXPECT_EQ(run.ErrorNumber, 999);
    EXPECT_NE(run.ErrorText.find(FailureDescription(5)), run.ErrorText.npos);
}

}  // namespace
}  // namespace velm
