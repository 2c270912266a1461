// Copying, moving and removing whole folders, and the trash.
#include "platform/file_tree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

#include "platform/files.h"
#include "unit/platform/fails_with.h"
#include "unit/platform/temporary_folder.h"

namespace velm {
namespace {

// Notes what it is asked about and answers as told.
struct Answers {
    explicit Answers(bool agrees) : replace(agrees) {}
    TreeQuestions Questions() {
        TreeQuestions questions;
        questions.mayReplace = [this](const std::u16string& path) {
            asked.push_back(path);
            return replace;
        };
        return questions;
    }
    bool replace;
    std::vector<std::u16string> asked;
};

TEST(CopyTree, FolderWithEverythingInIt) {
    const TemporaryFolder folder;
    folder.Write("src/a.txt", "甲");
    folder.Write("src/in/b.txt", "乙");
    folder.Link("a.txt", "src/link");
    folder.Link("../src", "src/circle");
    chmod("src/in", 0750);
    EXPECT_TRUE(CopyTree(u"src", u"dst", {}));
    EXPECT_EQ(folder.Read("dst/a.txt"), "甲");
    EXPECT_EQ(folder.Read("dst/in/b.txt"), "乙");
    EXPECT_EQ(std::filesystem::read_symlink("dst/link"), "a.txt");
    EXPECT_EQ(std::filesystem::read_symlink("dst/circle"), "../src");
    struct stat info;
    stat("dst/in", &info);
    EXPECT_EQ(info.st_mode & 0777U, 0750U);
    EXPECT_EQ(folder.Read("src/a.txt"), "甲");
}

TEST(CopyTree, AddsToAFolderAndAsksBeforeReplacing) {
    const TemporaryFolder folder;
    folder.Write("src/a.txt", "new");
    folder.Write("src/b.txt", "b");
    folder.Write("dst/a.txt", "old");
    folder.Write("dst/c.txt", "c");
    Answers no(false);
    EXPECT_TRUE(CopyTree(u"src", u"dst", no.Questions()));
    EXPECT_THAT(no.asked, testing::ElementsAre(u"dst\\a.txt"));
    EXPECT_EQ(folder.Read("dst/a.txt"), "old");
    EXPECT_EQ(folder.Read("dst/b.txt"), "b");
    Answers yes(true);
    EXPECT_TRUE(CopyTree(u"src", u"dst", yes.Questions()));
    EXPECT_EQ(folder.Read("dst/a.txt"), "new");
    EXPECT_EQ(folder.Read("dst/c.txt"), "c");
}

TEST(CopyTree, NamesThatDifferInLetterCaseStayTwo) {
    const TemporaryFolder folder;
    folder.Write("src/A.txt", "upper");
    folder.Write("src/a.txt", "lower");
    CopyTree(u"src", u"dst", {});
    EXPECT_EQ(folder.Read("dst/A.txt"), "upper");
    EXPECT_EQ(folder.Read("dst/a.txt"), "lower");
    MoveTree(u"dst", u"moved", {});
    EXPECT_EQ(folder.Read("moved/a.txt"), "lower");
}

TEST(CopyTree, OntoOrIntoItselfFails) {
    const TemporaryFolder folder;
    folder.Write("src/in/a.txt", "x");
    folder.Link("src/in/a.txt", "link");
    EXPECT_EQ(FailureOf([] { CopyTree(u"src", u"src", {}); }), failure::kPathFileAccess);
    EXPECT_EQ(FailureOf([] { CopyTree(u"src", u"src\\in\\new", {}); }), failure::kPathFileAccess);
    EXPECT_EQ(FailureOf([] { MoveTree(u"src", u"src\\in", {}); }), failure::kPathFileAccess);
    EXPECT_EQ(FailureOf([] { CopyTree(u"link", u"src\\in\\a.txt", {}); }),
              failure::kPathFileAccess);
    EXPECT_EQ(folder.Read("src/in/a.txt"), "x");
}

TEST(CopyTree, FileAndFolderDoNotReplaceEachOther) {
    const TemporaryFolder folder;
    folder.Write("d/a.txt", "");
    folder.Write("f", "");
    EXPECT_EQ(FailureOf([] { CopyTree(u"f", u"d", {}); }), failure::kPathFileAccess);
    EXPECT_EQ(FailureOf([] { CopyTree(u"d", u"f", {}); }), failure::kFileExists);
    EXPECT_EQ(FailureOf([] { CopyTree(u"none", u"g", {}); }), failure::kFileNotFound);
    EXPECT_EQ(FailureOf([] { CopyTree(u"f", u"none\\g", {}); }), failure::kPathNotFound);
}

TEST(CopyTree, NamedLinkStandsForItsTarget) {
    const TemporaryFolder folder;
    folder.Write("d/a.txt", "x");
    folder.Link("d/a.txt", "link");
    CopyTree(u"link", u"copy", {});
    EXPECT_FALSE(std::filesystem::is_symlink("copy"));
    EXPECT_EQ(folder.Read("copy"), "x");
}

TEST(CopyTree, ReplacesAReadOnlyFileWhenAgreed) {
    const TemporaryFolder folder;
    folder.Write("a", "new");
    folder.Write("b", "old");
    chmod("b", 0444);
    CopyTree(u"a", u"b", {});
    EXPECT_EQ(folder.Read("b"), "new");
}

TEST(CopyTree, UserMayEndIt) {
    const TemporaryFolder folder;
    folder.Write("src/a.txt", "");
    folder.Write("src/b.txt", "");
    TreeQuestions questions;
    questions.goOn = [](const std::u16string& path) { return path != u"src\\b.txt"; };
    EXPECT_FALSE(CopyTree(u"src", u"dst", questions));
    EXPECT_TRUE(folder.Has("dst/a.txt"));
    EXPECT_FALSE(folder.Has("dst/b.txt"));
}

TEST(MoveTree, RenamesAndMerges) {
    const TemporaryFolder folder;
    folder.Write("src/a.txt", "a");
    folder.Write("src/keep.txt", "new");
    folder.Write("dst/keep.txt", "old");
    Answers no(false);
    EXPECT_TRUE(MoveTree(u"src", u"dst", no.Questions()));
    EXPECT_EQ(folder.Read("dst/a.txt"), "a");
    EXPECT_EQ(folder.Read("dst/keep.txt"), "old");
    EXPECT_EQ(folder.Read("src/keep.txt"), "new");
    EXPECT_TRUE(MoveTree(u"src", u"elsewhere", {}));
    EXPECT_FALSE(folder.Has("src"));
    EXPECT_EQ(folder.Read("elsewhere/keep.txt"), "new");
}

// On most machines /dev/shm is a file system of its own, where renaming can't reach.
TEST(MoveTree, ToAnotherPlaceAndBack) {
    const TemporaryFolder folder;
    const std::string memory = "/dev/shm";
    const bool usable = access(memory.c_str(), W_OK) == 0;
    const std::string other =
        (usable ? memory : folder.Path()) + "/velm-test-" + std::to_string(getpid());
    folder.Write("src/in/a.txt", "moved");
    MoveTree(u"src", ScriptPath(other), {});
    EXPECT_FALSE(folder.Has("src"));
    MoveTree(ScriptPath(other), u"back", {});
    EXPECT_EQ(folder.Read("back/in/a.txt"), "moved");
    EXPECT_FALSE(std::filesystem::exists(other));
}

TEST(RemoveTree, LinksAreNotFollowed) {
    const TemporaryFolder folder;
    folder.Write("outside/a.txt", "x");
    folder.Write("d/in/b.txt", "");
    folder.Link("../outside", "d/link");
    folder.Link("../d", "d/circle");
    chmod("d/in/b.txt", 0444);
    RemoveTree(u"D");
    EXPECT_FALSE(folder.Has("d"));
    EXPECT_EQ(folder.Read("outside/a.txt"), "x");
    folder.Link("outside", "link");
    RemoveTree(u"link");
    EXPECT_EQ(folder.Read("outside/a.txt"), "x");
}

TEST(RemoveTree, SeparatorBehindALinkDoesNotFollowIt) {
    const TemporaryFolder folder;
    folder.Write("outside/a.txt", "x");
    folder.Link("outside", "link");
    RemoveTree(u"link\\");
    EXPECT_FALSE(folder.Has("link"));
    folder.Link("outside", "link");
    MoveToTrash(u"link\\");
    EXPECT_FALSE(folder.Has("link"));
    EXPECT_EQ(folder.Read("outside/a.txt"), "x");
}

TEST(RemoveTree, PathsLongerThanTheSystemTakes) {
    const TemporaryFolder folder;
    const std::string name(200, 'n');
    std::filesystem::create_directory("deep");
    std::filesystem::current_path("deep");
    // 30 times 200 bytes are more than the 4096 of a path.
    for (int depth = 0; depth < 30; ++depth) {
        ASSERT_EQ(mkdir(name.c_str(), 0700), 0);
        ASSERT_EQ(chdir(name.c_str()), 0);
    }
    std::filesystem::current_path(folder.Path());
    RemoveTree(u"deep");
    EXPECT_FALSE(folder.Has("deep"));
}

TEST(RemoveTree, RootAndPointsAreRefused) {
    const TemporaryFolder folder;
    folder.Write("a.txt", "");
    EXPECT_EQ(FailureOf([] { RemoveTree(u"C:\\"); }), failure::kFileOpen);
    EXPECT_EQ(FailureOf([] { RemoveTree(u"C:\\tmp\\..\\"); }), failure::kFileOpen);
    EXPECT_EQ(FailureOf([] { RemoveTree(u"."); }), failure::kFileOpen);
    EXPECT_EQ(FailureOf([] { MoveToTrash(u"..\\"); }), failure::kFileOpen);
    EXPECT_EQ(FailureOf([] { RemoveTree(u"none"); }), failure::kFileNotFound);
    EXPECT_TRUE(folder.Has("a.txt"));
}

TEST(MoveToTrash, EntryAndItsNote) {
    const TemporaryFolder folder;
    folder.Write("d/覚え 書き%.txt", "x");
    MoveToTrash(u"d\\覚え 書き%.txt");
    EXPECT_FALSE(folder.Has("d/覚え 書き%.txt"));
    EXPECT_EQ(folder.Read("data/Trash/files/覚え 書き%.txt"), "x");
    const std::string note = folder.Read("data/Trash/info/覚え 書き%.txt.trashinfo");
    const std::string real = std::filesystem::canonical(folder.Path()).string();
    EXPECT_THAT(note, testing::StartsWith("[Trash Info]\nPath=" + real +
                                          "/d/%E8%A6%9A%E3%81%88%20%E6%9B%B8%E3%81%8D%25.txt\n"
                                          "DeletionDate="));
    EXPECT_THAT(note.substr(note.find("Date=") + 5),
                testing::MatchesRegex("....-..-..T..:..:..\n"));
}

TEST(MoveToTrash, SameNameTwiceAndAnOrphan) {
    const TemporaryFolder folder;
    folder.Write("data/Trash/files/a.txt.2", "orphan");
    for (const char* content : {"1", "2"}) {
        folder.Write("a.txt", content);
        MoveToTrash(u"a.txt");
    }
    EXPECT_EQ(folder.Read("data/Trash/files/a.txt"), "1");
    EXPECT_EQ(folder.Read("data/Trash/files/a.txt.2"), "orphan");
    EXPECT_FALSE(folder.Has("data/Trash/info/a.txt.2.trashinfo"));
    EXPECT_EQ(folder.Read("data/Trash/files/a.txt.3"), "2");
    EXPECT_TRUE(folder.Has("data/Trash/info/a.txt.3.trashinfo"));
}

TEST(MoveToTrash, FoldersLinksAndLongNames) {
    const TemporaryFolder folder;
    folder.Write("d/a.txt", "x");
    folder.Link("nowhere", "link");
    const std::string longName(255, 'n');
    folder.Write(longName, "x");
    MoveToTrash(u"d");
    MoveToTrash(u"link");
    MoveToTrash(ScriptPath(longName));
    EXPECT_EQ(folder.Read("data/Trash/files/d/a.txt"), "x");
    EXPECT_TRUE(folder.Has("data/Trash/files/link"));
    EXPECT_EQ(folder.Read("data/Trash/files/" + std::string(220, 'n')), "x");
    EXPECT_EQ(FailureOf([] { MoveToTrash(u"none"); }), failure::kFileNotFound);
}

TEST(MoveToTrash, HomeFolderHoldsItWithoutADataFolder) {
    TemporaryFolder folder;
    folder.Set("XDG_DATA_HOME", "");
    folder.Write("a.txt", "x");
    MoveToTrash(u"a.txt");
    EXPECT_EQ(folder.Read(".local/share/Trash/files/a.txt"), "x");
    folder.Set("HOME", "");
    folder.Write("b.txt", "x");
    EXPECT_EQ(FailureOf([] { MoveToTrash(u"b.txt"); }), failure::kNoSuchMember);
    EXPECT_TRUE(folder.Has("b.txt"));
}

TEST(MoveToTrash, WithoutATrashNothingIsLost) {
    const TemporaryFolder folder;
    folder.Write("data", "no folder");
    folder.Write("a.txt", "x");
    EXPECT_NE(FailureOf([] { MoveToTrash(u"a.txt"); }), 0);
    EXPECT_EQ(folder.Read("a.txt"), "x");
}

}  // namespace
}  // namespace velm
