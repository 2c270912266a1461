// Picture controls as drawing surfaces, pictures of all objects, and loading them.
#include <filesystem>
#include <fstream>

#include "data/failure.h"
#include "objects/object_canvas.h"
#include "platform/files.h"
#include "unit/objects/control_test.h"

namespace velm {
namespace {

class PictureProperties : public ControlTest {
  protected:
    PictureProperties() : folder_(std::filesystem::temp_directory_path() / "velm_pictures_test") {
        std::filesystem::create_directories(folder_);
        Do(u"ウィンドウ1を作る");
        Do(u"ピクチャー1を作る");
    }
    ~PictureProperties() override { std::filesystem::remove_all(folder_); }

    ObjectCanvas& Surface() { return *Find(u"ピクチャー1")->Canvas(); }
    // A file on the disk that the toolkit reads as a picture; its path as scripts write it.
    std::u16string MakeFile(const char* name, const std::string& content, const Pixmap& picture) {
        std::ofstream(folder_ / name, std::ios::binary) << content;
        const std::u16string path = ScriptPath((folder_ / name).native());
        toolkit.pictures[path] = picture;
        return path;
    }
    static std::u16string Quoted(std::u16string_view text) {
        return u"「" + std::u16string(text) + u"」";
    }

    std::filesystem::path folder_;
};

const std::string kPng = "\x89PNG\r\n\x1A\nrest";

TEST_F(PictureProperties, EveryRowBothWays) {
    CheckRows(u"ピクチャー1", {
                                  {u"自動調整", u"1", u"AutoSize", u"True", u"1"},
                                  {u"自動調整", u"0", u"AutoSize", u"False", u"0"},
                                  {u"枠", u"0", u"BorderStyle", u"0", u"0"},
                                  {u"枠", u"1", u"BorderStyle", u"1", u"1"},
                              });
    Do(u"ピクチャー1の再描画は 0");
    EXPECT_FALSE(Surface().AutoRedraw);
    EXPECT_EQ(Read(u"ピクチャー1の再描画"), u"0");
    Do(u"ピクチャー1の描画モードは 6");
    EXPECT_EQ(Surface().DrawMode, 6);
    EXPECT_EQ(Read(u"ピクチャー1の描画モード"), u"1");
    Do(u"ピクチャー1の描画スタイルは 1");
    EXPECT_EQ(Surface().DrawStyle, 1);
    EXPECT_EQ(Read(u"ピクチャー1の描画スタイル"), u"1");
    Do(u"ピクチャー1の座標は 印刷用");
    EXPECT_EQ(Surface().scaleMode, scale_mode::kPoint);
    EXPECT_EQ(Read(u"ピクチャー1の座標"), u"印刷用");
    Do(u"ピクチャー1の透明度は 5");
    EXPECT_EQ(run.ErrorNumber, 102);
}

TEST_F(PictureProperties, MembersOfTheSurfaceByName) {
    Surface().Resize(60, 40);
    Do(u"ピクチャー1のCurrentXは 5");
    EXPECT_EQ(Surface().CurrentX, 5);
    EXPECT_EQ(Read(u"ピクチャー1のCurrentX"), u"5");
    Do(u"ピクチャー1のdrawwidthは 3");
    EXPECT_EQ(Surface().DrawWidth, 3);
    Do(u"ピクチャー1のDrawWidthは 0");
    EXPECT_EQ(Surface().DrawWidth, 3);
    Do(u"ピクチャー1のFillStyleは 0");
    EXPECT_EQ(Surface().FillStyle, FillStyles::kSolid);
    EXPECT_EQ(Read(u"ピクチャー1のScaleWidth"), u"60");
    EXPECT_EQ(Read(u"ピクチャー1のScaleHeight"), u"40");
    Do(u"ピクチャー1のScaleWidthは 5");
    EXPECT_EQ(run.ErrorNumber, 102);
    Do(u"ピクチャー1のフォントサイズは 20");
    Do(u"ピクチャー1のフォント名は 「あ」");
    Do(u"ピクチャー1の太字は 1");
    Do(u"ピクチャー1の斜体は 1");
    Do(u"ピクチャー1の下線は 1");
    Do(u"ピクチャー1の取り消し線は 1");
    const TextStyle& font = Surface().Font;
    EXPECT_EQ(font.size, 20);
    EXPECT_EQ(font.font, u"あ");
    EXPECT_TRUE(font.bold && font.italic && font.underline && font.strikeOut);
    EXPECT_EQ(Read(u"ピクチャー1のフォントサイズ"), u"20");
    EXPECT_EQ(Read(u"ピクチャー1の太字"), u"1");
    Surface().TakeRefresh();
    Find(u"ピクチャー1")->Call(u"Refresh");
    EXPECT_TRUE(Surface().TakeRefresh());
    Find(u"ピクチャー1")->Call(u"Cls");
    EXPECT_EQ(Surface().CurrentX, 0);
    EXPECT_EQ(Surface().ObjectName(), u"ピクチャー１");
}

TEST_F(PictureProperties, APictureIsShownBelowTheDrawing) {
    Surface().Resize(4, 2);
    toolkit.pictures[u"a.bmp"] = Pixmap(2, 2, 5);
    Do(u"ピクチャー1の絵は 「a.bmp」");
    EXPECT_EQ(Read(u"ピクチャー1の絵"), u"a.bmp");
    EXPECT_EQ(Surface().Point(1, 1), 5);
    EXPECT_EQ(Surface().Point(2, 0), 0xFFFFFF);
    Surface().PSet(0, 0, 9);
    const Pixmap image = ImageOf(*Find(u"ピクチャー1"));
    EXPECT_EQ(image.width, 4);
    EXPECT_EQ(image.height, 2);
    EXPECT_EQ(image.At(0, 0), 9U);
    EXPECT_EQ(PictureOf(*Find(u"ピクチャー1")).At(0, 0), 5U);
    Do(u"ピクチャー1の絵は 「」");
    EXPECT_EQ(Read(u"ピクチャー1の絵"), u"");
    EXPECT_EQ(Surface().Point(1, 1), 0xFFFFFF);
    EXPECT_EQ(run.ErrorNumber, 0);
}

TEST_F(PictureProperties, AnAdjustingSurfaceTakesTheSizeOfItsPicture) {
    toolkit.pictures[u"a.bmp"] = Pixmap(20, 10, 5);
    const PixelBox before = Of(u"ピクチャー1").box;
    Surface().Resize(before.width - 4, before.height - 4);
    Do(u"ピクチャー1の絵は 「a.bmp」");
    EXPECT_EQ(Of(u"ピクチャー1").box, before);
    Do(u"ピクチャー1の自動調整は 1");
    Do(u"ピクチャー1の絵は 「a.bmp」");
    EXPECT_EQ(Of(u"ピクチャー1").box.width, 24);
    EXPECT_EQ(Of(u"ピクチャー1").box.height, 14);
}

TEST_F(PictureProperties, AnImageTakesTheSizeOfItsPictureUnlessItStretchesIt) {
    toolkit.pictures[u"a.bmp"] = Pixmap(20, 10, 5);
    Do(u"イメージ1を作る");
    Do(u"イメージ1の絵は 「a.bmp」");
    EXPECT_EQ(Of(u"イメージ1").box.width, 20);
    EXPECT_EQ(Of(u"イメージ1").picture.width, 20);
    Do(u"イメージ1の拡大縮小は 1");
    Do(u"イメージ1の大きさは 50,50");
    const std::u16string png = MakeFile("p.png", kPng, Pixmap(8, 6, 1));
    Do(u"イメージ1の絵は " + Quoted(png));
    EXPECT_EQ(Of(u"イメージ1").picture.width, 8);
    EXPECT_EQ(Of(u"イメージ1").box.width, 50);
}

TEST_F(PictureProperties, APngGivesItsSizeToWhatIsNoWindow) {
    const std::u16string png = MakeFile("p.png", kPng, Pixmap(8, 6, 1));
    // The border lies within this size.
    const PixelBox old = Of(u"ピクチャー1").box;
    Surface().Resize(old.width - 2, old.height - 2);
    Do(u"ピクチャー1の絵は " + Quoted(png));
    EXPECT_EQ(Of(u"ピクチャー1").box.width, 8);
    EXPECT_EQ(Of(u"ピクチャー1").box.height, 6);
    const PixelBox window = Recorded(*objects.CurrentWindow).box;
    Do(u"ウィンドウ1の絵は " + Quoted(png));
    EXPECT_EQ(Recorded(*objects.CurrentWindow).box, window);
    EXPECT_EQ(objects.CurrentWindow->Canvas()->Picture().width, 8);
}

TEST_F(PictureProperties, APngWithoutTheSignatureIsPassedOverQuietly) {
    const std::u16string png = MakeFile("p.png", "GIF89a", Pixmap(8, 6, 1));
    Do(u"ピクチャー1の絵は " + Quoted(png));
    EXPECT_EQ(run.ErrorNumber, 0);
    EXPECT_EQ(Read(u"ピクチャー1の絵"), u"");
}

TEST_F(PictureProperties, WhatCannotBeLoadedIsReported) {
    Do(u"ピクチャー1の絵は 「none.png」");
    EXPECT_EQ(run.ErrorNumber, 201);
    EXPECT_EQ(installed.dialogs.reported.back().style & box::kIcons, kIconStop);
    Do(u"ピクチャー1の絵は 「none.bmp」");
    EXPECT_EQ(run.ErrorNumber, 201);
    EXPECT_NE(run.ErrorText.find(u"none.bmp"), run.ErrorText.npos);
    Do(u"ピクチャー1の絵は 「tool.exe」,1");
    EXPECT_EQ(run.ErrorNumber, 201);
    EXPECT_TRUE(toolkit.HasNote(u"LoadIcon tool.exe,1,large"));
    // Without brackets a path is arithmetic, and gives 0.
    Do(u"ピクチャー1の絵は C:\\a.bmp");
    EXPECT_EQ(run.ErrorNumber, 204);
    EXPECT_EQ(installed.dialogs.reported.back().style & box::kIcons, kIconWarning);
}

TEST_F(PictureProperties, WhatIsNoPictureIsReportedByItsKind) {
    const std::u16string png = MakeFile("broken.png", kPng, Pixmap());
    const std::u16string bmp = MakeFile("broken.bmp", "BM", Pixmap());
    toolkit.pictures.clear();
    toolkit.pictureFailure = 481;
    Do(u"ピクチャー1の絵は " + Quoted(png));
    EXPECT_EQ(run.ErrorNumber, 502);
    EXPECT_NE(run.ErrorText.find(u"481:"), run.ErrorText.npos);
    EXPECT_EQ(installed.dialogs.reported.back().style & box::kIcons, kIconStop);
    Do(u"ピクチャー1の絵は " + Quoted(bmp));
    EXPECT_EQ(run.ErrorNumber, 999);
    EXPECT_NE(run.ErrorText.find(FailureDescription(481)), run.ErrorText.npos);
    EXPECT_EQ(installed.dialogs.reported.back().style & box::kIcons, kIconWarning);
    EXPECT_EQ(Read(u"ピクチャー1の絵"), u"");
}

TEST_F(PictureProperties, IconsBySizeAndNumber) {
    toolkit.pictures[u"a.ico"] = Pixmap(16, 16, 5);
    Do(u"ピクチャー1の絵は 「a.ico」,3,小");
    EXPECT_TRUE(toolkit.HasNote(u"LoadIcon a.ico,3,small"));
    Do(u"番号は 4");
    Do(u"ピクチャー1の絵は 「a.ico」,番号,「大」");
    EXPECT_TRUE(toolkit.HasNote(u"LoadIcon a.ico,4,large"));
    Do(u"ファイル名は 「a.ico,1,小」");
    Do(u"ピクチャー1の絵は ファイル名");
    EXPECT_TRUE(toolkit.HasNote(u"LoadIcon a.ico,1,small"));
    Do(u"ピクチャー1の絵は 「a.ico」");
    EXPECT_EQ(toolkit.notes.back(), u"LoadPicture a.ico");
    EXPECT_EQ(Read(u"ピクチャー1の絵"), u"a.ico");
}

TEST_F(PictureProperties, AnObjectGivesItsPicture) {
    toolkit.pictures[u"a.bmp"] = Pixmap(3, 2, 5);
    Do(u"ピクチャー1の絵は 「a.bmp」");
    Do(u"イメージ1を作る");
    Do(u"イメージ1の絵は ピクチャー1");
    EXPECT_EQ(Of(u"イメージ1").picture.width, 3);
    EXPECT_EQ(Read(u"イメージ1の絵"), u"a.bmp");
    // A file that is there counts, though its name begins like その.
    const std::u16string file = MakeFile("x,そら.bmp", "BM", Pixmap(7, 7, 5));
    Do(u"イメージ1の絵は " + Quoted(file));
    EXPECT_EQ(Of(u"イメージ1").picture.width, 7);
}

TEST_F(PictureProperties, AButtonTakesItsPictureFormForAPicture) {
    toolkit.pictures[u"a.bmp"] = Pixmap(3, 2, 5);
    Do(u"ボタン1を作る");
    Do(u"ボタン1の絵は 「a.bmp」");
    EXPECT_EQ(Find(u"ボタン1")->Class(), ControlClass::kPictureButton);
    EXPECT_EQ(Of(u"ボタン1").picture.width, 3);
    EXPECT_EQ(Read(u"ボタン1の絵"), u"a.bmp");
    Do(u"ボタン1の絵は 「」");
    EXPECT_EQ(Find(u"ボタン1")->Class(), ControlClass::kButton);
}

}  // namespace
}  // namespace velm
