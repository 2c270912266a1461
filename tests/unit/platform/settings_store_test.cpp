// The settings store: the tree, its file, and what happens when the file is damaged or shared.
#include "platform/settings_store.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

#include "fails_with.h"
#include "temporary_folder.h"

namespace velm {
namespace {

using Names = std::vector<std::u16string>;

constexpr const char* kFile = "data/velmscript/settings.db";

class SettingsStore : public testing::Test {
  protected:
    SettingsStore() { CloseSettingsStore(); }
    ~SettingsStore() override { CloseSettingsStore(); }

    static StorePath Path(std::u16string_view key) {
        return {store_root::kCurrentUser, std::u16string(key)};
    }
    static void Write(std::u16string_view key, std::u16string_view name, std::string bytes) {
        WriteStoredValue(Path(key), name, {store_type::kString, std::move(bytes)});
    }
    static std::string Read(std::u16string_view key, std::u16string_view name) {
        const std::optional<StoredValue> value = ReadStoredValue(Path(key), name);
        return value ? value->bytes : "(none)";
    }

    TemporaryFolder folder_;
};

TEST_F(SettingsStore, NothingIsMadeUntilTheFirstWrite) {
    EXPECT_EQ(Read(u"a", u"b"), "(none)");
    EXPECT_FALSE(HasStoredKey(Path(u"a")));
    EXPECT_FALSE(DeleteStoredKey(Path(u"a"), true));
    EXPECT_FALSE(DeleteStoredValue(Path(u"a"), u"b"));
    EXPECT_FALSE(folder_.Has("data"));
    Write(u"a", u"b", "1");
    EXPECT_TRUE(folder_.Has(kFile));
}

TEST_F(SettingsStore, AValueKeepsItsBytesAndType) {
    const std::string bytes("\0\x93\xFA\xFF", 4);
    WriteStoredValue(Path(u"a\\b"), u"n", {store_type::kBinary, bytes});
    const std::optional<StoredValue> value = ReadStoredValue(Path(u"a\\b"), u"n");
    ASSERT_TRUE(value);
    EXPECT_EQ(value->type, store_type::kBinary);
    EXPECT_EQ(value->bytes, bytes);
    Write(u"a\\b", u"n", "");
    EXPECT_EQ(Read(u"a\\b", u"n"), "");
}

TEST_F(SettingsStore, NamesIgnoreLetterCaseAndKeepIt) {
    Write(u"Software\\Ａbc", u"Name", "1");
    Write(u"SOFTWARE\\ａBC", u"NAME", "2");
    EXPECT_EQ(Read(u"software\\ａbc", u"name"), "2");
    EXPECT_EQ(StoredSubkeys(Path(u"software")), Names{u"Ａbc"});
    EXPECT_EQ(StoredValueNames(Path(u"software\\ａbc")), Names{u"Name"});
}

TEST_F(SettingsStore, RootsAreApart) {
    Write(u"a", u"n", "user");
    WriteStoredValue({store_root::kUserSettings, u"a"}, u"n", {1, "setting"});
    WriteStoredValue({store_root::kClassesRoot, u""}, u"n", {1, "root"});
    EXPECT_EQ(Read(u"a", u"n"), "user");
    EXPECT_EQ(ReadStoredValue({store_root::kUserSettings, u"a"}, u"n")->bytes, "setting");
    EXPECT_EQ(ReadStoredValue({store_root::kClassesRoot, u""}, u"n")->bytes, "root");
    EXPECT_EQ(Read(u"", u"n"), "(none)");
    EXPECT_TRUE(HasStoredKey(Path(u"")));
}

TEST_F(SettingsStore, EmptyPartsOfAPathArePassedOver) {
    Write(u"\\a\\\\b\\", u"", "default");
    EXPECT_EQ(Read(u"a\\b", u""), "default");
}

TEST_F(SettingsStore, ListsAreInOrder) {
    for (const char16_t* key : {u"k\\b", u"k\\A", u"k\\c"}) Write(key, u"x", "");
    for (const char16_t* name : {u"z", u"a", u"m"}) Write(u"k", name, "");
    Write(u"k", u"z", "again");
    EXPECT_EQ(StoredSubkeys(Path(u"k")), (Names{u"A", u"b", u"c"}));
    EXPECT_EQ(StoredValueNames(Path(u"k")), (Names{u"z", u"a", u"m"}));
    EXPECT_EQ(StoredSubkeys(Path(u"none")), Names{});
}

TEST_F(SettingsStore, AKeyWithSubkeysGoesOnlyAsAWhole) {
    Write(u"a\\b\\c", u"n", "1");
    Write(u"a", u"n", "2");
    EXPECT_FALSE(DeleteStoredKey(Path(u"a"), false));
    EXPECT_TRUE(DeleteStoredKey(Path(u"a\\b\\c"), false));
    EXPECT_FALSE(HasStoredKey(Path(u"a\\b\\c")));
    Write(u"a\\b\\c", u"n", "1");
    EXPECT_TRUE(DeleteStoredKey(Path(u"A"), true));
    EXPECT_FALSE(HasStoredKey(Path(u"a")));
    Write(u"a\\b\\c", u"m", "3");
    EXPECT_EQ(Read(u"a\\b\\c", u"n"), "(none)");
    EXPECT_FALSE(DeleteStoredKey(Path(u""), true));
}

TEST_F(SettingsStore, ValuesAreRemoved) {
    Write(u"a", u"n", "1");
    EXPECT_TRUE(DeleteStoredValue(Path(u"a"), u"N"));
    EXPECT_FALSE(DeleteStoredValue(Path(u"a"), u"n"));
    EXPECT_TRUE(HasStoredKey(Path(u"a")));
}

TEST_F(SettingsStore, TheFileSurvivesItsClosing) {
    Write(u"a", u"n", "1");
    CloseSettingsStore();
    EXPECT_EQ(Read(u"a", u"n"), "1");
}

// The store is closed, so that the bytes of its file are looked at before it is opened.
TEST_F(SettingsStore, AKeyIsMissedOnlyWhereItIsNotThere) {
    const auto isThere = [](std::u16string_view key) {
        CloseSettingsStore();
        return Read(key, u"n") == "1" && HasStoredKey(Path(key)) &&
               StoredValueNames(Path(key)) == Names{u"n"};
    };
    const std::u16string longName(400, u'l');
    for (const std::u16string& key :
         {std::u16string(u"Abc\\Déf\\ぎ"), std::u16string(u"\\x\\\\yy\\"), longName}) {
        Write(key, u"n", "1");
        EXPECT_TRUE(isThere(key));
    }
    EXPECT_TRUE(isThere(u"ABC\\dÉf\\ぎ"));
    EXPECT_FALSE(isThere(u"abc\\none"));
    EXPECT_FALSE(isThere(u"Déf"));
    // Larger than what is looked at.
    Write(u"big", u"bytes", std::string(100'000, 'b'));
    EXPECT_TRUE(isThere(u"abc\\déf\\ぎ"));
    EXPECT_FALSE(isThere(u"abc\\none"));
}

// A process that ends without closing the store leaves what it wrote in the log, which stands beside the
// file also where a link leads there.
TEST_F(SettingsStore, AKeyThatIsOnlyInTheLogIsFound) {
    for (const std::u16string key : {u"logged", u"linked"}) {
        Write(u"a", u"n", "1");
        CloseSettingsStore();
        if (key == u"linked") {
            const std::filesystem::path file(folder_.Path() + "/" + kFile);
            std::filesystem::rename(file, folder_.Path() + "/elsewhere.db");
            std::filesystem::create_symlink(folder_.Path() + "/elsewhere.db", file);
        }
        const pid_t child = fork();
        if (child == 0) {
            Write(key, u"n", "2");
            _exit(0);
        }
        waitpid(child, nullptr, 0);
        EXPECT_EQ(folder_.Read(kFile).find(key == u"linked" ? "LINKED" : "LOGGED"),
                  std::string::npos);
        EXPECT_EQ(Read(key, u"n"), "2");
        CloseSettingsStore();
    }
}

TEST_F(SettingsStore, AFolderThatWasClearedUnderItIsMadeAnew) {
    Write(u"a", u"n", "1");
    std::filesystem::remove_all(folder_.Path() + "/data");
    EXPECT_EQ(Read(u"a", u"n"), "(none)");
    Write(u"a", u"n", "2");
    CloseSettingsStore();
    EXPECT_EQ(Read(u"a", u"n"), "2");
}

TEST_F(SettingsStore, ADamagedFileReadsAsNothingAndFailsToBeWritten) {
    folder_.Write(kFile,
                  "this is no database, but a text that is somewhat longer than a header "
                  "of a hundred bytes would be, which is what the library looks at first");
    EXPECT_EQ(Read(u"a", u"n"), "(none)");
    EXPECT_EQ(StoredSubkeys(Path(u"")), Names{});
    EXPECT_EQ(FailureOf([] { Write(u"a", u"n", "1"); }), failure::kIoError);
    EXPECT_TRUE(folder_.Read(kFile).starts_with("this is no database"));
}

TEST_F(SettingsStore, AFileCutShortIsNoCrash) {
    for (int i = 0; i < 200; ++i) Write(u"k" + std::u16string(1, char16_t(u'a' + i)), u"n", "1");
    CloseSettingsStore();
    const std::string whole = folder_.Read(kFile);
    folder_.Write(kFile, whole.substr(0, whole.size() / 2) + std::string(whole.size() / 2, 'x'));
    Read(u"ka", u"n");
    EXPECT_EQ(FailureOf([] { DeleteStoredKey(Path(u"ka"), true); }) == 0 ||
                  FailureOf([] { Write(u"kb", u"n", "2"); }) == failure::kIoError,
              true);
}

TEST_F(SettingsStore, AnEmptyFileIsANewStore) {
    folder_.Write(kFile, "");
    EXPECT_EQ(Read(u"a", u"n"), "(none)");
    Write(u"a", u"n", "1");
    EXPECT_EQ(Read(u"a", u"n"), "1");
}

TEST_F(SettingsStore, AFolderInPlaceOfTheFileFails) {
    std::filesystem::create_directories(folder_.Path() + "/" + kFile);
    EXPECT_EQ(Read(u"a", u"n"), "(none)");
    EXPECT_NE(FailureOf([] { Write(u"a", u"n", "1"); }), 0);
}

TEST_F(SettingsStore, AFileInPlaceOfTheFolderFails) {
    folder_.Write("data", "");
    EXPECT_EQ(Read(u"a", u"n"), "(none)");
    EXPECT_NE(FailureOf([] { Write(u"a", u"n", "1"); }), 0);
}

TEST_F(SettingsStore, WithoutAHomeNothingIsStored) {
    folder_.Set("HOME", "");
    folder_.Set("XDG_DATA_HOME", "");
    EXPECT_EQ(Read(u"a", u"n"), "(none)");
    EXPECT_EQ(FailureOf([] { Write(u"a", u"n", "1"); }), failure::kPermissionDenied);
}

// Eight processes begin with no file at all and each write fifty values.
TEST_F(SettingsStore, WritersAtOnceLoseNothing) {
    constexpr int kProcesses = 8;
    constexpr int kWrites = 25;
    std::vector<pid_t> children;
    for (int process = 0; process < kProcesses; ++process) {
        const pid_t child = fork();
        if (child == 0) {
            int failed = 0;
            for (int i = 0; i < kWrites; ++i) {
                const std::u16string name(1, static_cast<char16_t>(u'A' + i));
                const std::u16string key(1, static_cast<char16_t>(u'a' + process));
                failed += FailureOf([&] { Write(u"k\\" + key, name, "1"); }) != 0 ? 1 : 0;
            }
            CloseSettingsStore();
            _exit(failed);
        }
        children.push_back(child);
    }
    for (const pid_t child : children) {
        int status = 0;
        waitpid(child, &status, 0);
        EXPECT_EQ(status, 0);
    }
    EXPECT_EQ(StoredSubkeys(Path(u"k")).size(), std::size_t{kProcesses});
    for (const std::u16string& key : StoredSubkeys(Path(u"k"))) {
        EXPECT_EQ(StoredValueNames(Path(u"k\\" + key)).size(), std::size_t{kWrites});
    }
}

}  // namespace
}  // namespace velm
