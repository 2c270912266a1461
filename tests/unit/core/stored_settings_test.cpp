// Registry, user settings and protection on the store.
#include "core/stored_settings.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <string>
#include <vector>

#include "../platform/fails_with.h"
#include "../platform/temporary_folder.h"
#include "core/protection.h"
#include "core/registry.h"
#include "core/registry_names.h"
#include "core/run_state.h"
#include "core/settings_state.h"
#include "core/velm.h"
#include "platform/dialogs.h"
#include "platform/settings_store.h"

namespace velm {
namespace {

// Keeps the reports.
class Reports : public Dialogs {
  public:
    std::vector<std::u16string> texts;

    void ShowText(const std::u16string&, int, const std::u16string&) override {}
    int Ask(const std::u16string&, int, const std::u16string&) override { return box::kAnswerNo; }
    int Report(const std::u16string& text, int, const std::u16string&) override {
        texts.push_back(text);
        return box::kAnswerOk;
    }
    std::optional<std::u16string> AskText(const std::u16string&, const std::u16string&,
                                          const std::u16string&) override {
        return std::nullopt;
    }
};

class StoredSettings : public testing::Test {
  protected:
    StoredSettings() {
        CloseSettingsStore();
        TheEngine();
        ResetRunState();
        run.Status = RunStatus::kRunning;
        SetDialogs(&reports_);
    }
    ~StoredSettings() override {
        CloseSettingsStore();
        ProtectionLevels.fill(false);
        ResetRunState();
        SetDialogs(nullptr);
    }
    static std::u16string Read(std::int32_t type, const std::string& bytes) {
        const StorePath key = {store_root::kLocalMachine, u"t"};
        WriteStoredValue(key, u"v", {type, bytes});
        bool found = false;
        return ReadRegistry(key, u"V", u"default", found);
    }

    TemporaryFolder folder_;
    Reports reports_;
};

TEST_F(StoredSettings, EveryRootHasItsNumber) {
    EXPECT_EQ(RootKeyFromName(u"hkey_classes_root"), store_root::kClassesRoot);
    EXPECT_EQ(RootKeyFromName(u"HKEY_CURRENT_USER"), store_root::kCurrentUser);
    EXPECT_EQ(RootKeyFromName(u"HKEY_LOCAL_MACHINE"), store_root::kLocalMachine);
    EXPECT_EQ(RootKeyFromName(u"HKEY_USERS"), store_root::kUsers);
    EXPECT_EQ(RootKeyFromName(u"HKEY_PERFORMANCE_DATA"), store_root::kPerformanceData);
    EXPECT_EQ(RootKeyFromName(u"HKEY_CURRENT_CONFIG"), store_root::kCurrentConfig);
    EXPECT_EQ(RootKeyFromName(u"HKEY_DYN_DATA"), store_root::kDynData);
    EXPECT_EQ(RootName(store_root::kDynData), u"HKEY_DYN_DATA");
    EXPECT_EQ(RootName(store_root::kUserSettings), u"");
    EXPECT_TRUE(reports_.texts.empty());
    EXPECT_EQ(RootKeyFromName(u"HKEY_NONE"), 0);
    EXPECT_EQ(run.ErrorNumber, 32);
}

TEST_F(StoredSettings, APathIsCutAtItsFirstAndLastBackslash) {
    const RegistryPlace place = CutRegistryPath(u"ROOT\\a\\b\\c");
    EXPECT_EQ(place.root, u"ROOT");
    EXPECT_EQ(place.key, u"a\\b");
    EXPECT_EQ(place.name, u"c");
    EXPECT_EQ(place.backslashes, 2);
    EXPECT_EQ(CutRegistryPath(u"ROOT\\a").backslashes, 1);
    EXPECT_EQ(CutRegistryPath(u"ROOT").backslashes, 0);
    EXPECT_EQ(CutRegistryPath(u"ROOT\\a\\").name, u"");
}

TEST_F(StoredSettings, ValuesOfEachTypeHaveATextForm) {
    EXPECT_EQ(Read(store_type::kString, std::string("\x93\xFA\0x", 4)), u"日");
    EXPECT_EQ(Read(store_type::kExpandString, "%a%"), u"%a%");
    EXPECT_EQ(Read(store_type::kNumber, std::string("\x0F\0\xA0\x12", 4)), u"12A0000F");
    EXPECT_EQ(Read(store_type::kNumber, "\1"), u"00000001");
    EXPECT_EQ(Read(store_type::kBinary, std::string("\x01\xAB\x10\0\x22", 5)), u"01,AB,10");
    EXPECT_EQ(Read(store_type::kString, std::string(300, 'a')), std::u16string(256, u'a'));
    bool found = true;
    EXPECT_EQ(ReadRegistry({store_root::kUsers, u"t"}, u"v", u"default", found), u"default");
    EXPECT_FALSE(found);
}

TEST_F(StoredSettings, AStringIsKeptInTheCodePageWithItsNul) {
    EXPECT_TRUE(WriteRegistryString({store_root::kUsers, u"k"}, u"n", u"日한"));
    EXPECT_EQ(ReadStoredValue({store_root::kUsers, u"k"}, u"n")->bytes,
              std::string("\x93\xFA?\0", 4));
}

TEST_F(StoredSettings, ARegistryThatCantBeWrittenIsReported) {
    folder_.Write("data", "");
    EXPECT_FALSE(WriteRegistryString({store_root::kUsers, u"k"}, u"n", u"1"));
    EXPECT_EQ(run.ErrorNumber, 26);
    ASSERT_EQ(reports_.texts.size(), 1U);
    EXPECT_TRUE(
        reports_.texts[0].starts_with(u"レジストリの書き込みに失敗しました\r\nHKEY_USERS\\k\\n"));
}

TEST_F(StoredSettings, UserSettingsKeepAnyText) {
    SaveUserSetting(u"s", u"K", u"한글\r\n\u00E9");
    EXPECT_EQ(UserSetting(u"S", u"k"), u"한글\r\n\u00E9");
    EXPECT_EQ(FindUserSetting(u"s", u"none"), std::nullopt);
    DeleteUserSetting(u"s", u"k");
    EXPECT_EQ(UserSetting(u"s", u"K"), u"");
    EXPECT_EQ(FailureOf([] { DeleteUserSetting(u"s", u"k"); }), failure::kBadCall);
    EXPECT_EQ(FailureOf([] { DeleteUserSection(u"none"); }), failure::kBadCall);
    EXPECT_EQ(FailureOf([] { SaveUserSetting(u"s", u"", u"1"); }), failure::kBadCall);
}

TEST_F(StoredSettings, AFileThatCantBeReadHasNoEntries) {
    EXPECT_EQ(ReadSettingsFile(u"s", u"k"), std::nullopt);
    settings.settingsFile = u"none\\a.ini";
    EXPECT_EQ(ReadSettingsFile(u"s", u"k"), std::nullopt);
    EXPECT_FALSE(pendingFailure.IsSet());
    WriteSettingsFile(u"s", u"k", u"1");
    EXPECT_EQ(run.ErrorNumber, 39);
}

// The first digit is the parity of the levels plus the last digit less 5: 1 + 5 - 5 is odd, 0 + 3 + 3 + 5 -
// 5 is even.
TEST_F(StoredSettings, TheProtectionLevelsComeFromTheStore) {
    LoadProtection();
    EXPECT_EQ(ProtectionLevels, (std::array<bool, 5>{}));
    SaveUserSetting(kSecuritySection, u"Key", u"115");
    LoadProtection();
    EXPECT_EQ(ProtectionLevels, (std::array<bool, 5>{false, true, false, false, false}));
    SaveUserSetting(kSecuritySection, u"Key", u"00335");
    LoadProtection();
    EXPECT_TRUE(IsProtected(Protected::kRegistry));
    EXPECT_TRUE(IsProtected(Protected::kExternalCalls));
    EXPECT_FALSE(IsProtected(Protected::kFiles));
    EXPECT_TRUE(reports_.texts.empty());
}

TEST_F(StoredSettings, ProtectionRefusesTheRegistry) {
    ProtectionLevels[0] = true;
    EXPECT_FALSE(WriteRegistryString({store_root::kUsers, u"k"}, u"n", u"1"));
    EXPECT_EQ(run.ErrorNumber, 99);
    EXPECT_FALSE(folder_.Has("data"));
}

}  // namespace
}  // namespace velm
