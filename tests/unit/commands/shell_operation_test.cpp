// The watched file operations: where things go, what is asked, what is shown when it fails.
#include "commands/shell_operation.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "unit/platform/temporary_folder.h"
#include "unit/recorded_dialogs.h"

namespace velm {
namespace {

constexpr int kAtOnce = file_flag::kSilent | file_flag::kNoConfirmation;

class ShellOperation : public testing::Test {
  protected:
    TemporaryFolder folder_;
    RecordedDialogs dialogs_;
};

TEST_F(ShellOperation, CopyToANameOrIntoAFolder) {
    folder_.Write("a.txt", "a");
    folder_.Write("d/x", "");
    SHFileOperation({FileDeed::kCopy, u"a.txt", u"b.txt", 0});
    SHFileOperation({FileDeed::kCopy, u"a.txt", u"d", 0});
    SHFileOperation({FileDeed::kCopy, u"a.txt", u"new\\", file_flag::kNoConfirmFolder});
    SHFileOperation({FileDeed::kCopy, u"a.txt", u"n1\\n2\\c.txt", file_flag::kNoConfirmFolder});
    EXPECT_EQ(folder_.Read("b.txt"), "a");
    EXPECT_EQ(folder_.Read("d/a.txt"), "a");
    EXPECT_EQ(folder_.Read("new/a.txt"), "a");
    EXPECT_EQ(folder_.Read("n1/n2/c.txt"), "a");
    EXPECT_TRUE(dialogs_.asked.empty());
    EXPECT_TRUE(dialogs_.reported.empty());
}

TEST_F(ShellOperation, MaskGoesIntoAFolderWithItsFolders) {
    folder_.Write("src/a.txt", "a");
    folder_.Write("src/B.TXT", "b");
    folder_.Write("src/c.dat", "c");
    folder_.Write("src/t.txt/in", "in");
    SHFileOperation({FileDeed::kCopy, u"src\\*.txt", u"dst", file_flag::kNoConfirmFolder});
    EXPECT_EQ(folder_.Read("dst/a.txt"), "a");
    EXPECT_EQ(folder_.Read("dst/B.TXT"), "b");
    EXPECT_EQ(folder_.Read("dst/t.txt/in"), "in");
    EXPECT_FALSE(folder_.Has("dst/c.dat"));
}

TEST_F(ShellOperation, FolderGoesIntoAFolderThatIsThere) {
    folder_.Write("src/a.txt", "a");
    folder_.Write("dst/x", "");
    SHFileOperation({FileDeed::kCopy, u"src", u"dst", 0});
    SHFileOperation({FileDeed::kCopy, u"src", u"copy", 0});
    EXPECT_EQ(folder_.Read("dst/src/a.txt"), "a");
    EXPECT_EQ(folder_.Read("copy/a.txt"), "a");
}

TEST_F(ShellOperation, ReplacingIsAsked) {
    folder_.Write("a.txt", "new");
    folder_.Write("b.txt", "old");
    SHFileOperation({FileDeed::kCopy, u"a.txt", u"b.txt", 0});
    ASSERT_EQ(dialogs_.asked.size(), 1U);
    EXPECT_EQ(dialogs_.asked[0].text, u"「b.txt」はすでにあります。置き換えますか？");
    EXPECT_EQ(dialogs_.asked[0].style, box::kYesNo | 32);
    EXPECT_EQ(folder_.Read("b.txt"), "old");
    SHFileOperation({FileDeed::kMove, u"a.txt", u"b.txt", 0});
    EXPECT_EQ(folder_.Read("a.txt"), "new");
    dialogs_.agrees = true;
    SHFileOperation({FileDeed::kMove, u"a.txt", u"b.txt", 0});
    EXPECT_EQ(folder_.Read("b.txt"), "new");
    EXPECT_FALSE(folder_.Has("a.txt"));
}

TEST_F(ShellOperation, AtOnceAsksNothing) {
    folder_.Write("a.txt", "new");
    folder_.Write("b.txt", "old");
    SHFileOperation({FileDeed::kCopy, u"a.txt", u"b.txt", kAtOnce});
    EXPECT_EQ(folder_.Read("b.txt"), "new");
    SHFileOperation({FileDeed::kMove, u"a.txt", u"n\\c.txt", kAtOnce});
    EXPECT_EQ(folder_.Read("n/c.txt"), "new");
    EXPECT_TRUE(dialogs_.asked.empty());
    EXPECT_TRUE(dialogs_.progress.empty());
}

TEST_F(ShellOperation, NewFolderForAMoveIsAsked) {
    folder_.Write("a.txt", "a");
    SHFileOperation({FileDeed::kMove, u"a.txt", u"新\\a.txt", file_flag::kAllowUndo});
    ASSERT_EQ(dialogs_.asked.size(), 1U);
    EXPECT_EQ(dialogs_.asked[0].text, u"フォルダ「新\\」はありません。作りますか？");
    EXPECT_TRUE(folder_.Has("a.txt"));
    EXPECT_FALSE(folder_.Has("新"));
    dialogs_.agrees = true;
    SHFileOperation({FileDeed::kMove, u"a.txt", u"新\\a.txt", file_flag::kAllowUndo});
    EXPECT_EQ(folder_.Read("新/a.txt"), "a");
}

TEST_F(ShellOperation, DeletingIsAskedAndGoesToTheTrash) {
    folder_.Write("a.txt", "a");
    folder_.Write("b.txt", "b");
    SHFileOperation({FileDeed::kDelete, u"a.txt", u"", file_flag::kAllowUndo});
    EXPECT_TRUE(folder_.Has("a.txt"));
    dialogs_.agrees = true;
    SHFileOperation({FileDeed::kDelete, u"a.txt", u"", file_flag::kAllowUndo});
    EXPECT_EQ(folder_.Read("data/Trash/files/a.txt"), "a");
    folder_.Write("a.txt", "a");
    SHFileOperation({FileDeed::kDelete, u"*.txt", u"", file_flag::kAllowUndo});
    EXPECT_FALSE(folder_.Has("b.txt"));
    ASSERT_EQ(dialogs_.asked.size(), 3U);
    EXPECT_EQ(dialogs_.asked[0].text, u"「a.txt」をごみ箱に移しますか？");
    EXPECT_EQ(dialogs_.asked[2].text, u"これらの2個の項目をごみ箱に移しますか？");
}

TEST_F(ShellOperation, DeletingForGood) {
    folder_.Write("d/in/a.txt", "a");
    SHFileOperation({FileDeed::kDelete, u"d", u"", kAtOnce});
    EXPECT_FALSE(folder_.Has("d"));
    EXPECT_FALSE(folder_.Has("data"));
    folder_.Write("e.txt", "");
    SHFileOperation({FileDeed::kDelete, u"e.txt", u"", 0});
    ASSERT_EQ(dialogs_.asked.size(), 1U);
    EXPECT_EQ(dialogs_.asked[0].text, u"「e.txt」を完全に削除しますか？");
    EXPECT_TRUE(folder_.Has("e.txt"));
}

TEST_F(ShellOperation, RenamingNeverReplaces) {
    folder_.Write("a.txt", "a");
    folder_.Write("b.txt", "b");
    SHFileOperation({FileDeed::kRename, u"a.txt", u"b.txt", kAtOnce});
    ASSERT_EQ(dialogs_.reported.size(), 1U);
    EXPECT_EQ(dialogs_.reported[0].text,
              u"「a.txt」の変更ができません。\r\n同じ名前のファイルがあります。");
    SHFileOperation({FileDeed::kRename, u"*.txt", u"c.txt", kAtOnce});
    EXPECT_EQ(dialogs_.reported.size(), 2U);
    EXPECT_EQ(folder_.Read("b.txt"), "b");
    SHFileOperation({FileDeed::kRename, u"a.txt", u"c.txt", 0});
    EXPECT_EQ(folder_.Read("c.txt"), "a");
}

TEST_F(ShellOperation, FailureIsShownAndEndsIt) {
    folder_.Write("d/in.txt", "x");
    SHFileOperation({FileDeed::kCopy, u"d", u"d\\sub", 0});
    ASSERT_EQ(dialogs_.reported.size(), 1U);
    EXPECT_TRUE(dialogs_.reported[0].text.starts_with(u"「d」のコピーができません。\r\n"));
    EXPECT_EQ(dialogs_.reported[0].style, 16);
    SHFileOperation({FileDeed::kDelete, u"C:\\", u"", kAtOnce});
    EXPECT_TRUE(dialogs_.reported[1].text.starts_with(u"「C:\\」の削除ができません。"));
    EXPECT_TRUE(folder_.Has("d/in.txt"));
}

TEST_F(ShellOperation, ProgressMayEndIt) {
    folder_.Write("a.txt", "");
    folder_.Write("b.txt", "");
    dialogs_.stops = true;
    SHFileOperation({FileDeed::kMove, u"*.txt", u"d", file_flag::kNoConfirmFolder});
    ASSERT_EQ(dialogs_.progress.size(), 1U);
    EXPECT_EQ(dialogs_.progress[0], u"a.txt");
    EXPECT_TRUE(folder_.Has("a.txt"));
    EXPECT_TRUE(folder_.Has("b.txt"));
}

}  // namespace
}  // namespace velm
