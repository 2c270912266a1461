// 検索 and 置き換え on objects: what the object system is asked, and the report when it refuses.
#include "commands/search_commands.h"

#include <gtest/gtest.h>

#include <string>

#include "core/hooks.h"
#include "core/run_state.h"
#include "core/variables.h"
#include "core/velm.h"

namespace velm {
namespace {

std::u16string asked;

bool NoteSearch(std::u16string_view name, const Value& text) {
    asked = std::u16string(name) + u"/" + text.Text();
    return name != u"ボタン１";
}

bool NoteReplace(std::u16string_view name, const Value& text, const Value& replacement) {
    asked = std::u16string(name) + u"/" + text.Text() + u"/" + replacement.Text();
    return name != u"ボタン１";
}

class SearchCommandsTest : public testing::Test {
  protected:
    void SetUp() override {
        TheEngine();
        ResetRunState();
        saved_ = hooks;
        asked.clear();
        hooks.SearchInObject = NoteSearch;
        hooks.ReplaceInObject = NoteReplace;
        run.ErrorMode = ErrorModes::kReport;  // reports go nowhere, but leave their number
    }
    void TearDown() override {
        hooks = saved_;
        ResetRunState();
        run.Status = RunStatus::kIdle;
    }

  private:
    Hooks saved_;
};

TEST_F(SearchCommandsTest, SearchesInTheNamedObject) {
    TheEngine().RunComnd(u"文章テキスト１から「語」を検索");
    EXPECT_EQ(asked, u"文章テキスト１/語");
    EXPECT_EQ(run.ErrorNumber, 0);
}

TEST_F(SearchCommandsTest, WithoutAFromTheWordIsTheObject) {
    TheEngine().RunComnd(u"選択リスト１を検索");
    EXPECT_EQ(asked, u"選択リスト１/選択リスト１");
}

TEST_F(SearchCommandsTest, AListIsSearchedWithoutAskingAnObject) {
    SetVariable(u"表", Value(u"a,b"));
    TheEngine().RunComnd(u"表から「b」を検索");
    EXPECT_EQ(asked, u"");
    EXPECT_EQ(run.Response.Text(), u"1");
}

TEST_F(SearchCommandsTest, ReplacesInTheNamedObject) {
    TheEngine().RunComnd(u"テキスト１から「a」を「b」へ置き換え");
    EXPECT_EQ(asked, u"テキスト１/a/b");
    EXPECT_EQ(run.ErrorNumber, 0);
}

TEST_F(SearchCommandsTest, AnObjectWithoutTextIsRefused) {
    TheEngine().RunComnd(u"ボタン１から「a」を検索");
    EXPECT_EQ(run.ErrorNumber, 105);
    run.ErrorNumber = 0;
    TheEngine().RunComnd(u"ボタン１から「a」を「b」へ置き換え");
    EXPECT_EQ(run.ErrorNumber, 105);
}

}  // namespace
}  // namespace velm
