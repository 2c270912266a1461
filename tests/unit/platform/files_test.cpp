// Entries of the file system: kinds, lists, masks, attributes, simple changes.
#include "platform/files.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/xattr.h>

#include "unit/platform/fails_with.h"
#include "unit/platform/temporary_folder.h"

namespace velm {
namespace {

std::vector<std::u16string> Names(const std::vector<FolderEntry>& entries) {
    std::vector<std::u16string> names;
    for (const FolderEntry& entry : entries) names.push_back(entry.name);
    return names;
}

TEST(MatchesMask, StarIsAnyText) {
    EXPECT_TRUE(MatchesMask(u"a.txt", u"*.txt"));
    EXPECT_TRUE(MatchesMask(u"A.TXT", u"*.txt"));
    EXPECT_TRUE(MatchesMask(u"山川.txt", u"山*.t*"));
    EXPECT_TRUE(MatchesMask(u"aXbXc", u"a*b*c"));
    EXPECT_TRUE(MatchesMask(u"abab", u"*ab"));
    EXPECT_FALSE(MatchesMask(u"a.txtx", u"*.txt"));
    EXPECT_FALSE(MatchesMask(u"b.txt", u"a*"));
    EXPECT_TRUE(MatchesMask(u"", u"*"));
}

TEST(MatchesMask, QuestionMarkIsOneOrNoneAtAnEnd) {
    EXPECT_TRUE(MatchesMask(u"ab.txt", u"a?.txt"));
    EXPECT_TRUE(MatchesMask(u"a.txt", u"a?.txt"));
    EXPECT_TRUE(MatchesMask(u"a", u"a??"));
    EXPECT_FALSE(MatchesMask(u"abc.txt", u"a?.txt"));
    EXPECT_FALSE(MatchesMask(u"ab", u"?b?c"));
}

TEST(MatchesMask, OldForms) {
    EXPECT_TRUE(MatchesMask(u"nopoint", u"*.*"));
    EXPECT_TRUE(MatchesMask(u"nopoint", u"*."));
    EXPECT_FALSE(MatchesMask(u"a.txt", u"*."));
}

TEST(MatchesMask, ManyStarsEndSoon) {
    const std::u16string name(2000, u'a');
    std::u16string mask;
    for (int i = 0; i < 200; ++i) mask += u"*a";
    EXPECT_FALSE(MatchesMask(name, mask + u"b"));
}

TEST(ListFolder, SortedWithoutRegardToLetterCase) {
    const TemporaryFolder folder;
    folder.Write("b.txt", "22");
    folder.Write("A.txt", "1");
    folder.Write("c/in.txt", "");
    folder.Write(".hidden", "");
    const std::vector<FolderEntry> entries = ListFolder(u".");
    EXPECT_THAT(Names(entries), testing::ElementsAre(u".hidden", u"A.txt", u"b.txt", u"c"));
    EXPECT_EQ(entries[2].info.size, 2);
    EXPECT_EQ(entries[3].info.kind, EntryKind::kFolder);
    EXPECT_EQ(FailureOf([] { ListFolder(u"none"); }), failure::kFileNotFound);
}

TEST(ListMatches, NameOrMask) {
    const TemporaryFolder folder;
    folder.Write("d/a.txt", "");
    folder.Write("d/B.TXT", "");
    folder.Write("d/c.dat", "");
    EXPECT_THAT(Names(ListMatches(u"d\\*.txt")), testing::ElementsAre(u"a.txt", u"B.TXT"));
    EXPECT_THAT(Names(ListMatches(u"D\\b.txt")), testing::ElementsAre(u"B.TXT"));
    EXPECT_THAT(Names(ListMatches(u"*")), testing::ElementsAre(u"d"));
    EXPECT_TRUE(ListMatches(u"d\\*.none").empty());
    EXPECT_TRUE(ListMatches(u"none\\*").empty());
    EXPECT_TRUE(ListMatches(u"D:\\*").empty());
    EXPECT_TRUE(ListMatches(u"").empty());
}

TEST(ListMatches, FileMayBeCalledLikeAMask) {
    const TemporaryFolder folder;
    folder.Write("what?", "");
    folder.Write("whats", "");
    EXPECT_FALSE(IsMask(u"what?"));
    EXPECT_THAT(Names(ListMatches(u"what?")), testing::ElementsAre(u"what?"));
    EXPECT_TRUE(IsMask(u"wha??"));
}

TEST(StatFile, KindsAndSizes) {
    const TemporaryFolder folder;
    folder.Write("d/a.txt", "12345");
    folder.Link("d", "to folder");
    folder.Link("nowhere", "broken");
    EXPECT_EQ(StatFile(u"d\\a.txt")->size, 5);
    EXPECT_TRUE(IsPlainFile(u"d\\a.txt"));
    EXPECT_TRUE(IsFolder(u"d"));
    EXPECT_TRUE(IsFolder(u"to folder"));
    EXPECT_TRUE(IsPlainFile(u"broken"));
    EXPECT_FALSE(IsPlainFile(u"d"));
    EXPECT_FALSE(StatFile(u"none"));
    EXPECT_FALSE(StatFile(u"D:\\a.txt"));
    EXPECT_FALSE(StatFile(u""));
    EXPECT_EQ(FailureOf([] { StatFileOrFail(u"none"); }), failure::kFileNotFound);
    EXPECT_EQ(FailureOf([] { StatFileOrFail(u"none\\a.txt"); }), failure::kPathNotFound);
}

TEST(StatFile, TimesOfAWrite) {
    const TemporaryFolder folder;
    folder.Write("a.txt", "1");
    const FileInfo first = *StatFile(u"a.txt");
    EXPECT_LE(first.created, first.modified);
    const struct timespec times[2] = {{100, 0}, {200, 5}};
    utimensat(AT_FDCWD, "a.txt", times, 0);
    const FileInfo second = *StatFile(u"a.txt");
    EXPECT_EQ(second.modified, (FileTime{200, 5}));
    EXPECT_EQ(second.accessed, (FileTime{100, 0}));
}

TEST(PathExists, EntriesAndMasks) {
    const TemporaryFolder folder;
    folder.Write("d/a.txt", "");
    EXPECT_TRUE(PathExists(u"d"));
    EXPECT_TRUE(PathExists(u"d\\"));
    EXPECT_TRUE(PathExists(u"d\\a.txt"));
    EXPECT_TRUE(PathExists(u"d\\*.txt"));
    EXPECT_FALSE(PathExists(u"d\\*.dat"));
    EXPECT_FALSE(PathExists(u"none"));
    EXPECT_FALSE(PathExists(u""));
    EXPECT_FALSE(PathExists(std::u16string(5000, u'x')));
}

TEST(MakeFolder, OneLevel) {
    const TemporaryFolder folder;
    MakeFolder(u"新");
    EXPECT_TRUE(IsFolder(u"新"));
    EXPECT_EQ(FailureOf([] { MakeFolder(u"新"); }), failure::kFileExists);
    EXPECT_EQ(FailureOf([] { MakeFolder(u"a\\b"); }), failure::kPathNotFound);
    EXPECT_EQ(FailureOf([] { MakeFolder(std::u16string(300, u'x')); }), failure::kBadFileName);
}

TEST(RemoveFolder, OnlyAnEmptyOne) {
    const TemporaryFolder folder;
    folder.Write("d/a.txt", "");
    folder.Write("f", "");
    EXPECT_EQ(FailureOf([] { RemoveFolder(u"d"); }), failure::kPathFileAccess);
    EXPECT_EQ(FailureOf([] { RemoveFolder(u"none"); }), failure::kPathNotFound);
    EXPECT_EQ(FailureOf([] { RemoveFolder(u"f"); }), failure::kPathNotFound);
    RemoveFile(u"d\\a.txt");
    RemoveFolder(u"D");
    EXPECT_FALSE(folder.Has("d"));
}

TEST(RemoveFile, FilesAndLinksOnly) {
    const TemporaryFolder folder;
    folder.Write("d/a.txt", "");
    folder.Write("locked.txt", "");
    chmod("locked.txt", 0444);
    folder.Link("d/a.txt", "link");
    RemoveFile(u"link");
    EXPECT_TRUE(folder.Has("d/a.txt"));
    EXPECT_EQ(FailureOf([] { RemoveFile(u"d"); }), failure::kFileNotFound);
    EXPECT_EQ(FailureOf([] { RemoveFile(u"none"); }), failure::kFileNotFound);
    EXPECT_EQ(FailureOf([] { RemoveFile(u"locked.txt"); }), failure::kPathFileAccess);
    EXPECT_TRUE(folder.Has("locked.txt"));
}

TEST(RenameEntry, NeverReplaces) {
    const TemporaryFolder folder;
    folder.Write("a.txt", "a");
    folder.Write("b.txt", "b");
    EXPECT_EQ(FailureOf([] { RenameEntry(u"a.txt", u"b.txt"); }), failure::kFileExists);
    EXPECT_EQ(FailureOf([] { RenameEntry(u"none", u"c.txt"); }), failure::kFileNotFound);
    RenameEntry(u"a.txt", u"A.TXT");
    EXPECT_EQ(folder.Read("A.TXT"), "a");
    EXPECT_FALSE(folder.Has("a.txt"));
    RenameEntry(u"A.TXT", u"A.TXT");
    EXPECT_EQ(folder.Read("A.TXT"), "a");
}

TEST(Attributes, ReadOnlyIsTheWritePermission) {
    const TemporaryFolder folder;
    folder.Write("a.txt", "");
    chmod("a.txt", 0664);
    EXPECT_EQ(StatFile(u"a.txt")->attributes, 0);
    SetFileAttributes(u"a.txt", attribute::kReadOnly);
    struct stat info;
    stat("a.txt", &info);
    EXPECT_EQ(info.st_mode & 0777U, 0444U);
    EXPECT_EQ(StatFile(u"a.txt")->attributes, attribute::kReadOnly);
    SetFileAttributes(u"a.txt", 0);
    stat("a.txt", &info);
    EXPECT_EQ(info.st_mode & 0777U, 0644U);
    EXPECT_EQ(FailureOf([] { SetFileAttributes(u"none", 0); }), failure::kFileNotFound);
}

TEST(Attributes, FoldersHaveOneOfTheirOwn) {
    const TemporaryFolder folder;
    MakeFolder(u"d");
    EXPECT_EQ(StatFile(u"d")->attributes, attribute::kFolder);
    SetFileAttributes(u"d", attribute::kReadOnly);
    EXPECT_EQ(StatFile(u"d")->attributes, attribute::kFolder);
}

TEST(Attributes, HiddenIsThePointInFront) {
    const TemporaryFolder folder;
    folder.Write("a.txt", "x");
    SetFileAttributes(u"a.txt", attribute::kHidden);
    EXPECT_TRUE(folder.Has(".a.txt"));
    EXPECT_FALSE(folder.Has("a.txt"));
    EXPECT_EQ(StatFile(u".a.txt")->attributes, attribute::kHidden);
    SetFileAttributes(u".a.txt", 0);
    EXPECT_TRUE(folder.Has("a.txt"));
    folder.Write(".b.txt", "");
    folder.Write("b.txt", "");
    EXPECT_EQ(FailureOf([] { SetFileAttributes(u".b.txt", 0); }), failure::kFileExists);
}

// Some file systems keep no extended attributes; what hangs on them is then honestly absent.
bool KeepsExtendedAttributes() { return setxattr("a.txt", "user.velmscript.test", "1", 1, 0) == 0; }

TEST(Attributes, TheRestIsInAnExtendedAttribute) {
    const TemporaryFolder folder;
    folder.Write("a.txt", "x");
    const int rest = attribute::kSystem | attribute::kArchive;
    const int kept = KeepsExtendedAttributes() ? rest : 0;
    SetFileAttributes(u"a.txt", rest);
    EXPECT_EQ(StatFile(u"a.txt")->attributes, kept);
    SetFileAttributes(u"a.txt", rest | attribute::kReadOnly);
    EXPECT_EQ(StatFile(u"a.txt")->attributes, kept | attribute::kReadOnly);
    SetFileAttributes(u"a.txt", 0);
    EXPECT_EQ(StatFile(u"a.txt")->attributes, 0);
}

TEST(Attributes, HiddenFileIsFoundUnderItsOldName) {
    const TemporaryFolder folder;
    folder.Write("a.txt", "x");
    const bool kept = KeepsExtendedAttributes();
    SetFileAttributes(u"a.txt", attribute::kHidden);
    EXPECT_EQ(PathExists(u"a.txt"), kept);
    EXPECT_EQ(PathExists(u"A.TXT"), kept);
}

}  // namespace
}  // namespace velm
