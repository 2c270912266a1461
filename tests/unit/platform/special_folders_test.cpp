// The desktop's folders under the settings that a user can make of them.
#include "platform/special_folders.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <optional>

#include "data/failure.h"

namespace velm {
namespace {

namespace fs = std::filesystem;

class SpecialFoldersTest : public testing::Test {
  protected:
    void SetUp() override {
        for (const char* name : kNames) {
            const char* value = std::getenv(name);
            before_[name] = value == nullptr ? std::nullopt : std::optional<std::string>(value);
            unsetenv(name);
        }
        std::string pattern = "/tmp/velm-folders-XXXXXX";
        ASSERT_NE(mkdtemp(pattern.data()), nullptr);
        home_ = pattern;
        setenv("HOME", home_.c_str(), 1);
        script_ = u"C:\\tmp\\" + home_.filename().u16string();
    }
    void TearDown() override {
        for (const auto& [name, value] : before_) {
            if (value) {
                setenv(name.c_str(), value->c_str(), 1);
            } else {
                unsetenv(name.c_str());
            }
        }
        fs::remove_all(home_);
    }
    void Choose(const std::string& text) const {
        fs::create_directories(home_ / ".config");
        std::ofstream(home_ / ".config/user-dirs.dirs") << text;
    }

    static constexpr const char* kNames[] = {"HOME", "TMPDIR", "XDG_CONFIG_HOME", "XDG_DATA_HOME"};
    std::map<std::string, std::optional<std::string>> before_;
    fs::path home_;
    std::u16string script_;
};

TEST_F(SpecialFoldersTest, DefaultsLieInTheHomeFolder) {
    EXPECT_EQ(FolderOfPurpose(SpecialFolder::kDesktop), script_ + u"\\Desktop");
    EXPECT_EQ(FolderOfPurpose(SpecialFolder::kDocuments), script_ + u"\\Documents");
    EXPECT_EQ(FolderOfPurpose(SpecialFolder::kMenu), script_ + u"\\.local\\share\\applications");
    EXPECT_EQ(FolderOfPurpose(SpecialFolder::kAutostart), script_ + u"\\.config\\autostart");
    EXPECT_EQ(FolderOfPurpose(SpecialFolder::kTemporary), u"C:\\tmp");
}

TEST_F(SpecialFoldersTest, BaseFoldersMustBeAbsolute) {
    setenv("XDG_DATA_HOME", "/data", 1);
    setenv("XDG_CONFIG_HOME", "relative", 1);
    setenv("TMPDIR", "/var/tmp///", 1);
    EXPECT_EQ(FolderOfPurpose(SpecialFolder::kMenu), u"C:\\data\\applications");
    EXPECT_EQ(FolderOfPurpose(SpecialFolder::kAutostart), script_ + u"\\.config\\autostart");
    EXPECT_EQ(FolderOfPurpose(SpecialFolder::kTemporary), u"C:\\var\\tmp");
    setenv("TMPDIR", "/", 1);
    EXPECT_EQ(FolderOfPurpose(SpecialFolder::kTemporary), u"C:\\");
}

TEST_F(SpecialFoldersTest, TheUsersChoiceCounts) {
    Choose(
        "# XDG_DESKTOP_DIR=\"/comment\"\n"
        "  XDG_DESKTOP_DIR=\"$HOME/\\\"机\\\"/\"\n"
        "XDG_DOCUMENTS_DIR=\"/srv/docs\"");
    EXPECT_EQ(FolderOfPurpose(SpecialFolder::kDesktop), script_ + u"\\\"机\"");
    EXPECT_EQ(FolderOfPurpose(SpecialFolder::kDocuments), u"C:\\srv\\docs");
}

TEST_F(SpecialFoldersTest, BadChoicesArePassedOver) {
    Choose(
        "XDG_DESKTOP_DIR=\"$HOMELAND/x\"\nXDG_DESKTOP_DIR=relative\nXDG_DESKTOP_DIRS=\"/no\"\n"
        "XDG_DOCUMENTS_DIR=\"docs\"\n");
    EXPECT_EQ(FolderOfPurpose(SpecialFolder::kDesktop), script_ + u"\\Desktop");
    EXPECT_EQ(FolderOfPurpose(SpecialFolder::kDocuments), script_ + u"\\Documents");
    Choose("XDG_DESKTOP_DIR=\"$HOME\"\n");
    EXPECT_EQ(FolderOfPurpose(SpecialFolder::kDesktop), script_);
}

TEST_F(SpecialFoldersTest, WithoutAHomeThereAreNone) {
    unsetenv("HOME");
    EXPECT_THROW(FolderOfPurpose(SpecialFolder::kDesktop), Failure);
    EXPECT_THROW(FolderOfPurpose(SpecialFolder::kMenu), Failure);
    EXPECT_EQ(FolderOfPurpose(SpecialFolder::kTemporary), u"C:\\tmp");
}

}  // namespace
}  // namespace velm
