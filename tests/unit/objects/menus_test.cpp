// Menus: paths, entries as the toolkit gets them, choices, properties, pop-ups.
#include "objects/menus.h"

#include <gtest/gtest.h>

#include <string>

#include "core/procedures.h"
#include "core/run_state.h"
#include "core/variables.h"
#include "objects/resolve.h"
#include "unit/objects/recording_toolkit.h"

namespace velm {
namespace {

class MenusTest : public ::testing::Test {
  protected:
    InstallRecordingToolkit installed_;

    static Window& Current() { return *objects.CurrentWindow; }
    static std::vector<std::u16string> Keys() {
        std::vector<std::u16string> keys;
        for (const xxMenuCls& entry : Current().MenuInfo) keys.push_back(entry.Key);
        return keys;
    }
    static std::u16string Record() {
        const Value* value = FindVariable(Word(u"記録").AsName());
        return value == nullptr ? std::u16string(u"?") : value->Text();
    }
    static const std::vector<MenuEntry>& Shown() {
        RefreshMenus();
        return Recorded(Current()).menus;
    }
    static void Choose(std::int32_t id) {
        ControlEvent event;
        event.kind = EventKind::kMenu;
        event.code = id;
        Fire(Current(), event);
    }
    const std::vector<RecordedDialogs::Box>& Reports() const { return installed_.dialogs.reported; }
};

constexpr const char16_t* kFileMenu =
    u"ウィンドウ1を作る\r\nメニュー「ファイル」を作る\r\nサブメニュー「新規」を作る\r\n"
    u"サブメニュー ＞「開く」を作る\r\nサブメニュー「文」＆タブ＆「Ctrl+O」を作る\r\nサブメニュー "
    u"＜を作る\r\n"
    u"サブメニュー「-」を作る\r\nサブメニュー「終わる」を作る\r\nメニュー「編集」を作る\r\n";

TEST_F(MenusTest, PathsFollowTheLevels) {
    RunLines(kFileMenu);
    EXPECT_EQ(Keys(), (std::vector<std::u16string>{u"ファイル", u"ファイルの新規",
                                                   u"ファイルの開く", u"ファイルの開くの文",
                                                   u"ファイルの-", u"ファイルの終わる", u"編集"}));
    EXPECT_EQ(objects.MenuCount, 1);
}

TEST_F(MenusTest, TheToolkitGetsTheTree) {
    RunLines(kFileMenu);
    const std::vector<MenuEntry>& menus = Shown();
    ASSERT_EQ(menus.size(), 2U);
    EXPECT_EQ(menus[0].text, u"ファイル");
    EXPECT_EQ(menus[1].text, u"編集");
    ASSERT_EQ(menus[0].children.size(), 4U);
    EXPECT_EQ(menus[0].children[0].id, 1);
    ASSERT_EQ(menus[0].children[1].children.size(), 1U);
    EXPECT_EQ(menus[0].children[1].children[0].text, u"文\tCtrl+O");
    EXPECT_TRUE(menus[0].children[2].isSeparator);
    EXPECT_EQ(menus[0].children[2].id, 4) << "a separator has an id of its own";
}

TEST_F(MenusTest, TwoSignsGoUpTwoLevels) {
    RunLines(
        u"ウィンドウ1を作る\r\nメニュー「A」を作る\r\nサブメニュー >「B」を作る\r\n"
        u"サブメニュー >「C」を作る\r\nサブメニュー <<を作る\r\nサブメニュー「D」を作る\r\n"
        u"サブメニュー <を作る\r\nサブメニュー「E」を作る");
    EXPECT_EQ(Keys(), (std::vector<std::u16string>{u"A", u"AのB", u"AのBのC", u"AのD"}));
}

TEST_F(MenusTest, AnEntryWithoutAMenuIsNone) {
    RunLines(u"ウィンドウ1を作る\r\nサブメニュー「A」を作る");
    EXPECT_TRUE(Current().MenuInfo.empty());
}

TEST_F(MenusTest, TheTextIsEvaluated) {
    RunLines(
        u"ウィンドウ1を作る\r\n題＝「設定」\r\nメニュー題を作る\r\nサブメニュー 題＆「2」を作る");
    EXPECT_EQ(Keys(), (std::vector<std::u16string>{u"設定", u"設定の設定2"}));
}

TEST_F(MenusTest, AChoiceRunsTheProcedureOfItsPath) {
    RunLines(std::u16string(kFileMenu) +
             u"記録＝「」\r\n手順は　ウィンドウ1のファイルの開くの文をクリック\r\n記録＝「文」\r\n"
             u"終わり");
    Choose(3);
    EXPECT_EQ(Record(), u"文");
    EXPECT_TRUE(Reports().empty());
}

TEST_F(MenusTest, AProcedureWithoutTheWindowRunsWithAdvice) {
    RunLines(std::u16string(kFileMenu) +
             u"記録＝「」\r\n手順は　ファイルの新規をクリック\r\n記録＝「新」\r\n終わり");
    Choose(1);
    EXPECT_EQ(Record(), u"新");
    ASSERT_EQ(Reports().size(), 1U);
    EXPECT_NE(Reports()[0].text.find(
                  u"メニューの手順には、必ずウィンドウ名をつけてください。\r\n例:ウィンドウ1の"
                  u"ファイルの新規をクリック"),
              std::u16string::npos)
        << "the advice names the whole procedure";
}

TEST_F(MenusTest, WithTwoMenuBarsTheWindowMustBeNamed) {
    RunLines(
        std::u16string(kFileMenu) +
        u"記録＝「」\r\nウィンドウ2を作る\r\nメニュー「A」を作る\r\nサブメニュー「B」を作る\r\n"
        u"手順は　AのBをクリック\r\n記録＝「B」\r\n終わり");
    EXPECT_EQ(objects.MenuCount, 2);
    Choose(1);
    EXPECT_EQ(Record(), u"");
}

TEST_F(MenusTest, IdsFromTwoHundredOnTellNothing) {
    std::u16string source = u"ウィンドウ1を作る\r\nメニュー「A」を作る\r\n記録＝0\r\n";
    source += u"Iに1から250まで繰り返す\r\nサブメニュー「B」を作る\r\n繰り返し終わり\r\n";
    source += u"手順は　ウィンドウ1のAのBをクリック\r\n記録＝記録＋1\r\n終わり";
    RunLines(source);
    ASSERT_EQ(Current().MenuInfo.size(), 251U);
    Choose(199);
    Choose(200);
    Choose(-1);
    Choose(5000);
    EXPECT_EQ(Record(), u"1");
}

TEST_F(MenusTest, PropertiesOfAnEntry) {
    RunLines(std::u16string(kFileMenu) +
             u"メニューのファイルの新規のチェックは 1\r\nメニューのファイルの新規の有効は 0\r\n"
             u"メニューのファイルの終わるの表示は 0\r\nメニューの編集の名前は 「直す」\r\n"
             u"記録＝メニューのファイルの新規のチェック＆メニューのファイルの新規の有効＆"
             u"メニューのファイルの終わるの表示＆メニューのファイルの新規の名前");
    EXPECT_EQ(Record(), u"1001");
    const std::vector<MenuEntry>& menus = Shown();
    EXPECT_TRUE(menus[0].children[0].isChecked);
    EXPECT_FALSE(menus[0].children[0].isEnabled);
    EXPECT_FALSE(menus[0].children[3].isVisible);
    EXPECT_EQ(menus[1].text, u"直す");
    EXPECT_EQ(Keys()[6], u"編集") << "the path stays";
    EXPECT_TRUE(Reports().empty());
}

TEST_F(MenusTest, FaultsOfProperties) {
    RunLines(std::u16string(kFileMenu) + u"メニューの有効は 1");
    ASSERT_EQ(Reports().size(), 1U);
    EXPECT_NE(Reports()[0].text.find(u"メニューの項目を指定してください。"), std::u16string::npos);
    RunLines(u"メニューのファイルの無いの有効は 1");
    EXPECT_EQ(run.ErrorNumber, 108);
    RunLines(u"メニューのファイルの新規の色は 1");
    EXPECT_EQ(run.ErrorNumber, 102);
}

TEST_F(MenusTest, APopUpTellsItsChoice) {
    RunLines(
        std::u16string(kFileMenu) +
        u"記録＝「」\r\n手順は　ウィンドウ1のファイルの新規をクリック\r\n記録＝「新」\r\n終わり\r\n"
        u"手順は　出す\r\n「ファイル」を 30,40で ポップアップメニュー\r\n終わり");
    Recorded(Current()).popUpAnswer = 1;
    CallProcedureByName(u"出す");
    ASSERT_EQ(Recorded(Current()).poppedUp.size(), 1U);
    EXPECT_EQ(Recorded(Current()).poppedUp[0].children.size(), 4U);
    EXPECT_EQ(Recorded(Current()).popUpPlace.left, 30);
    EXPECT_EQ(Recorded(Current()).popUpPlace.top, 40);
    EXPECT_EQ(Record(), u"新");
}

TEST_F(MenusTest, APopUpOfNothing) {
    RunLines(std::u16string(kFileMenu) + u"「無い」を 1,1で ポップアップメニュー");
    EXPECT_EQ(run.ErrorNumber, 108);
    EXPECT_TRUE(Recorded(Current()).poppedUp.empty());
    run.ErrorNumber = 0;
    RunLines(u"「ファイルの新規」を 1,1で ポップアップメニュー");
    EXPECT_EQ(run.ErrorNumber, 0);
    EXPECT_TRUE(Recorded(Current()).poppedUp.empty()) << "an entry without a menu of its own";
}

TEST_F(MenusTest, AChoiceMayCloseTheWindow) {
    RunLines(std::u16string(u"ウィンドウ9を作る\r\n") + kFileMenu +
             u"手順は　ウィンドウ1のファイルの終わるをクリック\r\nウィンドウ1を閉じる\r\n終わり");
    Choose(5);
    EXPECT_EQ(FindGlobal(u"ウィンドウ1"), nullptr);
}

}  // namespace
}  // namespace velm
