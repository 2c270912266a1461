// Reading and writing whole files, and what a failed write leaves.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/xattr.h>

#include <csignal>
#include <filesystem>

#include "platform/files.h"
#include "unit/platform/fails_with.h"
#include "unit/platform/temporary_folder.h"

namespace velm {
namespace {

std::size_t EntriesIn(const std::string& folder) {
    std::size_t count = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(folder)) ++count;
    return count;
}

// No file may grow beyond a limit while this lives: what a full disk is to a writer.
class FileSizeLimit {
  public:
    explicit FileSizeLimit(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &before_);
        const struct rlimit limit = {bytes, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;
    ~FileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }

  private:
    struct rlimit before_ = {};
    void (*handler_)(int);
};

TEST(ReadFileBytes, WholeFile) {
    const TemporaryFolder folder;
    std::string bytes(3'000'000, '\0');
    for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<char>(i * 7 % 251);
    folder.Write("big", bytes);
    folder.Write("empty", "");
    EXPECT_EQ(ReadFileBytes(u"big"), bytes);
    EXPECT_EQ(ReadFileBytes(u"empty"), "");
    // A file of the system tells no size.
    EXPECT_FALSE(ReadFileBytes(u"/proc/self/status").empty());
}

TEST(ReadFileBytes, WhatIsNoFileFails) {
    const TemporaryFolder folder;
    MakeFolder(u"d");
    folder.Link("loop2", "loop1");
    folder.Link("loop1", "loop2");
    EXPECT_EQ(FailureOf([] { ReadFileBytes(u"none"); }), failure::kFileNotFound);
    EXPECT_EQ(FailureOf([] { ReadFileBytes(u"none\\a"); }), failure::kPathNotFound);
    EXPECT_EQ(FailureOf([] { ReadFileBytes(u"d"); }), failure::kPathFileAccess);
    EXPECT_EQ(FailureOf([] { ReadFileBytes(u"loop1"); }), failure::kPathFileAccess);
    EXPECT_EQ(FailureOf([] { ReadFileBytes(u""); }), failure::kBadFileName);
    EXPECT_EQ(FailureOf([] { ReadFileBytes(std::u16string(300, u'n')); }), failure::kBadFileName);
    EXPECT_EQ(FailureOf([] { ReadFileBytes(u"D:\\a"); }), failure::kPathNotFound);
}

TEST(WriteFileBytes, FolderInPlaceOfAFileSaysSo) {
    const TemporaryFolder folder;
    MakeFolder(u"d");
    try {
        WriteFileBytes(u"d", "x");
        FAIL();
    } catch (const Failure& failed) {
        EXPECT_EQ(failed.Number(), failure::kPathFileAccess);
        EXPECT_EQ(failed.Description(), u"フォルダです。ファイルではありません。");
    }
}

TEST(WriteFileBytes, ReplacesWholeAndLeavesNothingElse) {
    const TemporaryFolder folder;
    WriteFileBytes(u"a.txt", "long content");
    WriteFileBytes(u"A.TXT", "new");
    EXPECT_EQ(folder.Read("a.txt"), "new");
    EXPECT_EQ(EntriesIn("."), 1U);
    EXPECT_EQ(FailureOf([] { WriteFileBytes(u"none\\a.txt", "x"); }), failure::kPathNotFound);
    EXPECT_EQ(EntriesIn("."), 1U);
}

TEST(WriteFileBytes, KeepsPermissionsAndExtendedAttributes) {
    const TemporaryFolder folder;
    folder.Write("a.txt", "old");
    chmod("a.txt", 0640);
    const bool kept = setxattr("a.txt", "user.velmscript.test", "1", 1, 0) == 0;
    WriteFileBytes(u"a.txt", "new");
    struct stat info;
    stat("a.txt", &info);
    EXPECT_EQ(info.st_mode & 0777U, 0640U);
    EXPECT_EQ(getxattr("a.txt", "user.velmscript.test", nullptr, 0) == 1, kept);
}

TEST(WriteFileBytes, NewFileHasThePermissionsOfTheUser) {
    const TemporaryFolder folder;
    const mode_t mask = umask(0027);
    WriteFileBytes(u"a.txt", "x");
    umask(mask);
    struct stat info;
    stat("a.txt", &info);
    EXPECT_EQ(info.st_mode & 0777U, 0640U);
}

TEST(WriteFileBytes, LinkStaysAndItsTargetIsReplaced) {
    const TemporaryFolder folder;
    folder.Write("d/a.txt", "old");
    folder.Link("d/a.txt", "link");
    folder.Link("d/b.txt", "to new");
    WriteFileBytes(u"link", "new");
    WriteFileBytes(u"to new", "made");
    EXPECT_TRUE(std::filesystem::is_symlink("link"));
    EXPECT_EQ(folder.Read("d/a.txt"), "new");
    EXPECT_EQ(folder.Read("d/b.txt"), "made");
}

TEST(WriteFileBytes, ReadOnlyFileStays) {
    const TemporaryFolder folder;
    folder.Write("a.txt", "old");
    chmod("a.txt", 0444);
    EXPECT_EQ(FailureOf([] { WriteFileBytes(u"a.txt", "new"); }), failure::kPermissionDenied);
    EXPECT_EQ(FailureOf([] { WriteFileBytes(u"a.txt", "n", WriteMode::kKeepTail); }),
              failure::kPermissionDenied);
    EXPECT_EQ(FailureOf([] { AppendFileBytes(u"a.txt", "new"); }), failure::kPermissionDenied);
    EXPECT_EQ(folder.Read("a.txt"), "old");
}

TEST(WriteFileBytes, KeepsALongerTail) {
    const TemporaryFolder folder;
    folder.Write("a.bin", std::string(100, 'x'));
    WriteFileBytes(u"a.bin", "AB", WriteMode::kKeepTail);
    EXPECT_EQ(folder.Read("a.bin"), "AB" + std::string(98, 'x'));
    WriteFileBytes(u"new.bin", "AB", WriteMode::kKeepTail);
    EXPECT_EQ(folder.Read("new.bin"), "AB");
    WriteFileBytes(u"a.bin", std::string(120, 'y'), WriteMode::kKeepTail);
    EXPECT_EQ(folder.Read("a.bin"), std::string(120, 'y'));
}

TEST(WriteFileBytes, WithoutSpaceTheOldContentIsWhole) {
    const TemporaryFolder folder;
    folder.Write("a.txt", "old");
    const std::string bytes(100'000, 'n');
    int replace = 0;
    int over = 0;
    int append = 0;
    int fresh = 0;
    {
        const FileSizeLimit limit(50'000);
        replace = FailureOf([&] { WriteFileBytes(u"a.txt", bytes); });
        over = FailureOf([&] { WriteFileBytes(u"a.txt", bytes, WriteMode::kKeepTail); });
        append = FailureOf([&] { AppendFileBytes(u"a.txt", bytes); });
        fresh = FailureOf([&] { WriteFileBytes(u"b.txt", bytes); });
    }
    EXPECT_EQ(replace, failure::kDiskFull);
    EXPECT_EQ(over, failure::kDiskFull);
    EXPECT_EQ(append, failure::kDiskFull);
    EXPECT_EQ(fresh, failure::kDiskFull);
    EXPECT_EQ(folder.Read("a.txt"), "old");
    EXPECT_EQ(EntriesIn("."), 1U);
}

TEST(WriteFileBytes, DeviceWithoutSpace) {
    EXPECT_EQ(FailureOf([] { WriteFileBytes(u"/dev/full", "x"); }), failure::kDiskFull);
    EXPECT_EQ(FailureOf([] { AppendFileBytes(u"/dev/full", "x"); }), failure::kDiskFull);
    EXPECT_EQ(FailureOf([] { WriteFileBytes(u"/dev/null", "x"); }), 0);
}

TEST(AppendFileBytes, AtTheEnd) {
    const TemporaryFolder folder;
    AppendFileBytes(u"a.txt", "one");
    AppendFileBytes(u"a.txt", "");
    AppendFileBytes(u"a.txt", "two");
    EXPECT_EQ(folder.Read("a.txt"), "onetwo");
    EXPECT_EQ(FailureOf([] { AppendFileBytes(u"none\\a", "x"); }), failure::kPathNotFound);
}

TEST(CopyFileTo, WithTimesAndPermissions) {
    const TemporaryFolder folder;
    folder.Write("a.txt", "content");
    folder.Write("b.txt", "old");
    chmod("a.txt", 0600);
    const struct timespec times[2] = {{1000, 0}, {2000, 0}};
    utimensat(AT_FDCWD, "a.txt", times, 0);
    CopyFileTo(u"a.txt", u"b.txt");
    struct stat info;
    stat("b.txt", &info);
    EXPECT_EQ(folder.Read("b.txt"), "content");
    EXPECT_EQ(info.st_mode & 0777U, 0600U);
    EXPECT_EQ(info.st_mtim.tv_sec, 2000);
    EXPECT_EQ(FailureOf([] { CopyFileTo(u"none", u"c"); }), failure::kFileNotFound);
    EXPECT_EQ(FailureOf([] { CopyFileTo(u"a.txt", u"d\\c"); }), failure::kPathNotFound);
    chmod("b.txt", 0444);
    EXPECT_EQ(FailureOf([] { CopyFileTo(u"a.txt", u"b.txt"); }), failure::kPermissionDenied);
}

}  // namespace
}  // namespace velm
