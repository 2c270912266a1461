// The mapping between script paths and native ones.
#include <gtest/gtest.h>

#include "platform/files.h"
#include "unit/platform/fails_with.h"
#include "unit/platform/temporary_folder.h"

namespace velm {
namespace {

TEST(NativePath, DriveIsTheRootOfTheFileSystem) {
    EXPECT_EQ(NativePath(u"C:\\"), "/");
    EXPECT_EQ(NativePath(u"c:\\"), "/");
    EXPECT_EQ(NativePath(u"C:/"), "/");
    EXPECT_EQ(NativePath(u"\\"), "/");
    EXPECT_EQ(NativePath(u"C:\\tmp"), "/tmp");
    EXPECT_EQ(NativePath(u"\\tmp"), "/tmp");
    EXPECT_EQ(NativePath(u"/tmp/velm none.txt"), "/tmp/velm none.txt");
}

TEST(NativePath, SeparatorsOfBothKindsCountOnce) {
    EXPECT_EQ(NativePath(u"C:\\none\\\\a//b\\/c"), "/none/a/b/c");
    EXPECT_EQ(NativePath(u"none\\"), "none/");
}

TEST(NativePath, RelativeToTheCurrentFolder) {
    EXPECT_EQ(NativePath(u"none\\a.txt"), "none/a.txt");
    EXPECT_EQ(NativePath(u"C:a.txt"), "a.txt");
    EXPECT_EQ(NativePath(u"C:"), ".");
    EXPECT_EQ(NativePath(u"..\\a.none"), "../a.none");
}

TEST(NativePath, OtherDrivesAndNetworkPathsAreNotThere) {
    EXPECT_EQ(FailureOf([] { NativePath(u"D:\\a.txt"); }), failure::kPathNotFound);
    EXPECT_EQ(FailureOf([] { NativePath(u"z:"); }), failure::kPathNotFound);
    EXPECT_EQ(FailureOf([] { NativePath(u"\\\\server\\share\\a.txt"); }), failure::kPathNotFound);
}

TEST(NativePath, NamesThatCannotBeOnes) {
    EXPECT_EQ(FailureOf([] { NativePath(u""); }), failure::kBadFileName);
    EXPECT_EQ(FailureOf([] { NativePath(std::u16string(u"a\0b", 3)); }), failure::kBadFileName);
}

TEST(NativePath, LooksAgainWithoutRegardToLetterCase) {
    const TemporaryFolder folder;
    folder.Write("Data/Sub/Read Me.TXT", "x");
    folder.Write("ＡＢＣ.txt", "x");
    EXPECT_EQ(NativePath(u"data\\SUB\\read me.txt"), "Data/Sub/Read Me.TXT");
    EXPECT_EQ(NativePath(u"DATA\\new.txt"), "Data/new.txt");
    EXPECT_EQ(NativePath(u"data\\none\\a.txt"), "Data/none/a.txt");
    EXPECT_EQ(NativePath(u"ａｂｃ.TXT"), "ＡＢＣ.txt");
    EXPECT_EQ(NativePath(u"abc.txt"), "abc.txt");
}

TEST(NativePath, NameAsWrittenComesFirst) {
    const TemporaryFolder folder;
    folder.Write("A.txt", "upper");
    folder.Write("a.txt", "lower");
    EXPECT_EQ(NativePath(u"a.txt"), "a.txt");
    EXPECT_EQ(NativePath(u"A.txt"), "A.txt");
    EXPECT_EQ(NativePath(u"A.TXT"), "A.txt");
}

TEST(NativePath, LastComponentAsWritten) {
    const TemporaryFolder folder;
    folder.Write("Data/A.txt", "x");
    EXPECT_EQ(NativePathAsWritten(u"data\\a.TXT"), "Data/a.TXT");
    EXPECT_EQ(NativePathAsWritten(u"a.TXT"), "a.TXT");
}

TEST(NativePath, ShortcutStandsUnderItsNameForTheDesktop) {
    const TemporaryFolder folder;
    folder.Write("memo.desktop", "x");
    EXPECT_EQ(NativePath(u"Memo.lnk"), "memo.desktop");
    folder.Write("Memo.lnk", "x");
    EXPECT_EQ(NativePath(u"Memo.lnk"), "Memo.lnk");
}

TEST(NativePath, PointInFrontIsNoOtherFormOfAForeignName) {
    const TemporaryFolder folder;
    folder.Write(".secret", "x");
    EXPECT_EQ(NativePath(u"secret"), "secret");
}

TEST(ScriptPath, BeginsWithTheDrive) {
    EXPECT_EQ(ScriptPath("/"), u"C:\\");
    EXPECT_EQ(ScriptPath("/home/花子/a b.txt"), u"C:\\home\\花子\\a b.txt");
    EXPECT_EQ(ScriptPath("//home//x/"), u"C:\\home\\x\\");
    EXPECT_EQ(ScriptPath("a/b"), u"a\\b");
    EXPECT_EQ(ScriptPath(""), u"");
}

TEST(ScriptPath, BytesThatAreNoTextComeBackToTheirFile) {
    const TemporaryFolder folder;
    const std::string names[] = {"\xFF.txt", "a\x93\xFA", "back\\slash", "\xE3\x81",
                                 "x\xF0\x9F\x98\x80\x80"};
    for (const std::string& name : names) {
        folder.Write(name, "found " + name);
        const std::u16string path = ScriptPath(folder.Path() + "/" + name);
        EXPECT_EQ(NativePath(path), folder.Path() + "/" + name);
        EXPECT_EQ(ReadFileBytes(path), "found " + name);
    }
    EXPECT_EQ(ScriptPath("\xFF.txt"), u"\xDCFF.txt");
    EXPECT_EQ(ScriptPath("back\\slash"), u"back\xDC5Cslash");
}

TEST(ScriptPath, NoOtherLoneUnitIsAByte) {
    // A slash in disguise must not lead into another folder.
    EXPECT_EQ(NativePath(u"a\xDC2Fnone"), "a\xEF\xBF\xBDnone");
    EXPECT_EQ(NativePath(u"😀none"), "😀none");
    EXPECT_EQ(NativePath(u"\xD83Dnone"), "\xEF\xBF\xBDnone");
}

TEST(CurrentFolder, IsAScriptPath) {
    const TemporaryFolder folder;
    EXPECT_EQ(CurrentFolder(), ScriptPath(folder.Path()));
    MakeFolder(u"中");
    ChangeFolder(u"中");
    EXPECT_EQ(CurrentFolder(), ScriptPath(folder.Path() + "/中"));
    EXPECT_EQ(FailureOf([] { ChangeFolder(u"none"); }), failure::kPathNotFound);
}

}  // namespace
}  // namespace velm
