// Properties of buttons, and their picture form.
#include "objects/button_properties.h"

#include "data/failure.h"
#include "unit/objects/control_test.h"

namespace velm {
namespace {

using ButtonProperties = ControlTest;

TEST_F(ButtonProperties, RowsBothWays) {
    Do(u"ボタン1を作る");
    CheckRows(u"ボタン1", {
                              {u"エンター", u"1", u"Default", u"True", u"1"},
                              {u"エンター", u"0", u"Default", u"False", u"0"},
                              {u"キャンセル", u"2", u"Cancel", u"True", u"1"},
                          });
}

TEST_F(ButtonProperties, ABackgroundTakesThePictureForm) {
    Do(u"ボタン1を作る");
    Do(u"ボタン1の名前は、「押す」");
    Do(u"ボタン1の位置と大きさは、10,20,80,30");
    Do(u"ボタン1のヒントは、「説明」");
    Do(u"ボタン1の太字は、1");
    const ObjectPtr old = Find(u"ボタン1");
    Do(u"ボタン1の背景は、「赤」");
    const ObjectPtr fresh = Find(u"ボタン1");
    ASSERT_TRUE(fresh);
    EXPECT_EQ(fresh->Name(), u"Command2");
    EXPECT_EQ(fresh->Index(), 1);
    EXPECT_EQ(objects.ThatObject, fresh);
    EXPECT_EQ(fresh->Geometry(), (PixelBox{10, 20, 80, 30}));
    EXPECT_EQ(Member(u"ボタン1", u"BackColor"), u"255");
    EXPECT_EQ(Member(u"ボタン1", u"Caption"), u"押す");
    EXPECT_EQ(Member(u"ボタン1", u"ToolTipText"), u"説明");
    EXPECT_EQ(Member(u"ボタン1", u"FontBold"), u"True");
    EXPECT_EQ(Member(u"ボタン1", u"Visible"), u"True");
    EXPECT_EQ(Read(u"ボタン1の背景"), u"&hFF0000");
    EXPECT_TRUE(old->IsUnloaded());

    Do(u"ボタン1の背景は、「青」");
    EXPECT_EQ(Find(u"ボタン1"), fresh);
    EXPECT_EQ(Member(u"ボタン1", u"BackColor"), u"16711680");
}

TEST_F(ButtonProperties, EachTakesTheNextFreeElement) {
    Do(u"ボタン1を作る");
    Do(u"ボタン5を作る");
    Do(u"ボタン5の背景は、「赤」");
    Do(u"ボタン1の背景は、「赤」");
    EXPECT_EQ(Find(u"ボタン5")->Index(), 1);
    EXPECT_EQ(Find(u"ボタン1")->Index(), 2);
    EXPECT_EQ(ObjectKindName(*Find(u"ボタン5")), u"ボタン５");
}

TEST_F(ButtonProperties, APictureTakesThePictureForm) {
    toolkit.pictures[u"C:\\a.png"] = Pixmap(4, 3, 0);
    Do(u"ボタン1を作る");
    Do(u"ボタン1の絵は、「C:\\a.png」");
    EXPECT_EQ(Find(u"ボタン1")->Name(), u"Command2");
}

TEST_F(ButtonProperties, AnEmptyPictureTakesThePlainForm) {
    Do(u"ボタン1を作る");
    const ObjectPtr first = Find(u"ボタン1");
    Do(u"ボタン1の絵は、「」");
    EXPECT_EQ(Find(u"ボタン1"), first);
    Do(u"ボタン1の背景は、「赤」");
    Do(u"ボタン1の情報は、「覚え」");
    Do(u"ボタン1の名前は、「押す」");
    Do(u"ボタン1の絵は、「」");
    const ObjectPtr plain = Find(u"ボタン1");
    EXPECT_EQ(plain->Name(), u"Command1");
    EXPECT_EQ(objects.ThatObject, plain);
    EXPECT_EQ(Member(u"ボタン1", u"Caption"), u"押す");
    EXPECT_EQ(Member(u"ボタン1", u"Visible"), u"True");
    EXPECT_EQ(Read(u"ボタン1の情報"), u"");
}

TEST_F(ButtonProperties, AHiddenButtonStaysHidden) {
    Do(u"ボタン1を作る");
    Do(u"ボタン1の表示は、0");
    Do(u"ボタン1の背景は、「赤」");
    EXPECT_EQ(Member(u"ボタン1", u"Visible"), u"False");
}

TEST_F(ButtonProperties, AButtonInAFrameStaysThere) {
    Do(u"フレーム1を作る");
    Do(u"ボタン1を作る");
    Do(u"ボタン1の表示場所は、フレーム1");
    Do(u"ボタン1の背景は、「赤」");
    EXPECT_EQ(Find(u"ボタン1")->Container(), Find(u"フレーム1"));
}

TEST_F(ButtonProperties, AnUnloadedButtonIsNotReplaced) {
    Do(u"ウィンドウ2を作る");
    Do(u"ボタン1を作る");
    const ObjectPtr button = Find(u"ボタン1");
    Do(u"ウィンドウ2を閉じる");
    EXPECT_THROW(ToPictureButton(button), Failure);
    objects.ThisObject = button;
    Do(u"これの背景は、「赤」");
    Do(u"これの絵は、「C:\\a.png」");
    EXPECT_EQ(run.ErrorNumber, 0);
}

TEST_F(ButtonProperties, AButtonIsReplacedInItsOwnClick) {
    RunLines(
        u"ボタン1を作る\r\n手順は　ボタン1をクリック\r\n"
        u"ボタン1の背景は、「赤」\r\nこれの名前は、「後」\r\n終わり\r\n");
    const ObjectPtr old = Find(u"ボタン1");
    ASSERT_TRUE(old);
    Fire(*old, EventKind::kClick);
    EXPECT_EQ(Member(u"ボタン1", u"Caption"), u"後");
    EXPECT_EQ(Find(u"ボタン1")->Name(), u"Command2");
}

}  // namespace
}  // namespace velm
