// Listing by pattern where scripts can't set the scene: links, circles, deep trees, odd names.
#include "core/file_search.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "core/encoded_file.h"
#include "data/failure.h"
#include "platform/files.h"
#include "platform/links.h"

namespace velm {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

class FileSearchTest : public testing::Test {
  protected:
    void SetUp() override {
        std::string pattern = (fs::temp_directory_path() / "velm-search-XXXXXX").string();
        ASSERT_NE(mkdtemp(pattern.data()), nullptr);
        native_ = pattern;
        root_ = ScriptPath(native_.string()) + u"\\";
    }
    void TearDown() override { fs::remove_all(native_); }

    void Write(const std::string& name, const std::string& content = "x") const {
        fs::create_directories((native_ / name).parent_path());
        std::ofstream(native_ / name) << content;
    }
    std::vector<std::u16string> Files(std::u16string_view pattern, SearchIn extent) const {
        return FindByPattern(root_ + std::u16string(pattern), SearchFor::kFiles, extent);
    }
    std::vector<std::u16string> Folders(std::u16string_view pattern, SearchIn extent) const {
        return FindByPattern(root_ + std::u16string(pattern), SearchFor::kFolders, extent);
    }

    fs::path native_;
    std::u16string root_;
};

TEST_F(FileSearchTest, ACircleOfLinksIsFoundButNotEntered) {
    Write("a/b/c.txt");
    fs::create_directory_symlink(native_, native_ / "a/b/up");
    fs::create_directory_symlink("self", native_ / "self");
    EXPECT_THAT(Files(u"*.txt", SearchIn::kTree), ElementsAre(u"a\\b\\c.txt"));
    EXPECT_THAT(Folders(u"", SearchIn::kTree), ElementsAre(u"a\\", u"a\\b\\", u"a\\b\\up\\"));
}

TEST_F(FileSearchTest, LinksToFilesAndBrokenLinksAreFiles) {
    Write("a.txt");
    fs::create_symlink("a.txt", native_ / "b.txt");
    fs::create_symlink("nowhere", native_ / "c.txt");
    EXPECT_THAT(Files(u"*.txt", SearchIn::kFolder), ElementsAre(u"a.txt", u"b.txt", u"c.txt"));
    EXPECT_THAT(Folders(u"", SearchIn::kFolder), IsEmpty());
}

TEST_F(FileSearchTest, TheFolderOfThePatternMayBeALink) {
    Write("real/a.txt");
    fs::create_directory_symlink("real", native_ / "link");
    EXPECT_THAT(Files(u"link\\", SearchIn::kTree), ElementsAre(u"a.txt"));
}

TEST_F(FileSearchTest, ADeepTreeIsWalkedToItsEnd) {
    std::string name;
    for (int i = 0; i < 300; ++i) name += "d/";
    Write(name + "end.txt");
    const std::vector<std::u16string> found = Files(u"end.*", SearchIn::kTree);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].size(), 300U * 2 + 7);
    EXPECT_EQ(Folders(u"", SearchIn::kTree).size(), 300U);
}

TEST_F(FileSearchTest, NamesThatAreNoTextComeBackToTheirFiles) {
    Write("\xFF\xFE.txt", "bytes");
    Write("back\\slash.txt", "slash");
    const std::vector<std::u16string> found = Files(u"", SearchIn::kFolder);
    ASSERT_EQ(found.size(), 2U);
    std::u16string contents;
    for (const std::u16string& name : found) contents += ReadTextFile(root_ + name);
    EXPECT_TRUE(contents == u"bytesslash" || contents == u"slashbytes");
}

TEST_F(FileSearchTest, AMissingFolderFails) {
    EXPECT_THROW(Files(u"none\\*", SearchIn::kFolder), Failure);
    EXPECT_THROW(Files(u"none\\*", SearchIn::kTree), Failure);
    Write("a.txt");
    EXPECT_THROW(Files(u"a.txt\\*", SearchIn::kFolder), Failure);
}

TEST_F(FileSearchTest, EveryAlternativeThatMatchesCounts) {
    Write("a.txt");
    EXPECT_THAT(Files(u"*;a*;b*;*.txt", SearchIn::kFolder),
                ElementsAre(u"a.txt", u"a.txt", u"a.txt"));
    EXPECT_THAT(Files(u";", SearchIn::kFolder), IsEmpty());
}

TEST_F(FileSearchTest, LinksAreToldFromWhatTheyLeadTo) {
    Write("folder/a.txt");
    fs::create_directory_symlink("folder", native_ / "link");
    EXPECT_TRUE(IsLink(root_ + u"link"));
    EXPECT_TRUE(IsLink(root_ + u"link\\"));
    EXPECT_FALSE(IsLink(root_ + u"folder\\"));
    EXPECT_FALSE(IsLink(root_ + u"none"));
}

}  // namespace
}  // namespace velm
