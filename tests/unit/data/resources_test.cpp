// The text resources.
#include "data/resources.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace velm {
namespace {

TEST(Resources, EveryIdHasItsRows) {
    const std::pair<int, std::size_t> counts[] = {
        {kNoteNames, 7},        {kDriveWords, 9},       {kMessages, 76},
        {kMessageBoxWords, 7},  {kArchiverWords, 4},    {kProgramWords, 7},
        {kAttributeWords, 6},   {kAnswerWords, 9},      {kColorWords, 56},
        {kCursorWords, 16},     {kColorDialogFlags, 4}, {kFontDialogFlags, 17},
        {kFileDialogFlags, 15}, {kComponentWords, 6},
    };
    for (const auto& [id, count] : counts) EXPECT_EQ(ResourceEntries(id).size(), count) << id;
}

TEST(Resources, ValuesAreFoundByTheirExactKey) {
    EXPECT_EQ(ResourceValue(kMessageBoxWords, u"情報"), u"64");
    EXPECT_EQ(ResourceValue(kMessageBoxWords, u"ＯＫとキャンセル"), u"1");
    EXPECT_EQ(ResourceValue(kMessageBoxWords, u"OKとキャンセル"), u"");
    EXPECT_EQ(ResourceValue(kProgramWords, u"メモ帳"), u"notepad.exe");
    EXPECT_EQ(ResourceValue(kDriveWords, u"空き領域"), u"FreeSpace");
    EXPECT_EQ(ResourceValue(kMessages, u"42"), u"分岐終わりがありません。");
    EXPECT_EQ(ResourceValue(kMessages, u"2"),
              u"もし命令の文法が間違っています。「なら」の前後を確認してください。");
    EXPECT_EQ(ResourceValue(kMessages, u"9999"), u"");
    EXPECT_EQ(ResourceValue(7, u"情報"), u"");
}

TEST(Resources, ATrailingBlankIsKept) {
    EXPECT_EQ(ResourceValue(kArchiverWords, u"LHA非表示"), u"-n1 ");
}

TEST(Resources, Numbers) {
    EXPECT_EQ(ResourceNumber(kCursorWords, u"砂時計"), 11);
    EXPECT_EQ(ResourceNumber(kAnswerWords, u"はい"), 6);
    EXPECT_EQ(ResourceNumber(kFileDialogFlags, u"読み取り専用無効"), -32768);
    EXPECT_EQ(ResourceNumber(kColorWords, u"青りんご"), 0xA2F07C);
    EXPECT_EQ(ResourceNumber(kCursorWords, u"無い"), -1);
    EXPECT_EQ(ResourceNumber(7, u"情報"), -1);
}

TEST(Resources, TheTextIsFramed) {
    const std::u16string& text = ResourceText(kAnswerWords);
    EXPECT_TRUE(text.starts_with(u"\r\nオン=1\r\nオフ=0\r\n"));
    EXPECT_TRUE(text.ends_with(u"いいえ=7\r\n"));
    EXPECT_EQ(ResourceText(7), u"\r\n\r\n");
    EXPECT_TRUE(ResourceEntries(7).empty());
}

}  // namespace
}  // namespace velm
