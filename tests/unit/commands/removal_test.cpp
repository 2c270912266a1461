// The forms of 削除 that are no file operation, as far as they need no store; what becomes of the stores is
// told by the script cases.
#include "commands/removal.h"

#include <gtest/gtest.h>

#include "core/protection.h"
#include "core/registry_names.h"
#include "core/run_state.h"
#include "core/sentence.h"
#include "core/velm.h"
#include "unit/platform/temporary_folder.h"
#include "unit/recorded_dialogs.h"

namespace velm {
namespace {

class Removal : public testing::Test {
  protected:
    Removal() {
        TheEngine();
        ResetRunState();
    }
    ~Removal() override {
        ProtectionLevels.fill(false);
        run.Status = RunStatus::kIdle;
    }

    // The number of the error that a sentence of 削除 raised, 0 for none.
    std::int32_t Run(std::u16string_view sentence) {
        run.ErrorNumber = 0;
        dialogs_.reported.clear();
        const StatementPtr statement = ParseStatement(sentence);
        EXPECT_TRUE(RemoveByForm(*statement));
        return run.ErrorNumber;
    }

    TemporaryFolder folder_;
    RecordedDialogs dialogs_;
};

TEST_F(Removal, WholeTreesDirectlyUnderARootAreRefused) {
    EXPECT_EQ(Run(u"レジストリの「HKEY_CURRENT_USER\\Software」を完全に削除"), 0);
    ASSERT_EQ(dialogs_.reported.size(), 1U);
    EXPECT_TRUE(
        dialogs_.reported[0].text.starts_with(u"このキーはシステムに影響を及ぼすため削除できません"
                                              u"。\r\nHKEY_CURRENT_USER\\Software\r\n"));
    EXPECT_EQ(dialogs_.reported[0].style & box::kIcons, 16);
}

TEST_F(Removal, UnknownRootIsReported) {
    EXPECT_EQ(Run(u"レジストリの「HKEY_NONE\\A」を削除"), 32);
    EXPECT_EQ(Run(u"レジストリの「A」を完全に削除"), 32);
}

TEST_F(Removal, RootNumbers) {
    const char16_t* names[] = {
        u"HKEY_CLASSES_ROOT",     u"HKEY_CURRENT_USER",   u"HKEY_LOCAL_MACHINE", u"HKEY_USERS",
        u"HKEY_PERFORMANCE_DATA", u"HKEY_CURRENT_CONFIG", u"hkey_dyn_data"};
    std::uint32_t number = 0x80000000;
    for (const char16_t* name : names) {
        EXPECT_EQ(static_cast<std::uint32_t>(RootKeyFromName(name)), number++);
    }
    EXPECT_EQ(RootKeyFromName(u""), 0);
}

TEST_F(Removal, AssociationsAreBehindTheGate) {
    ProtectionLevels[2] = true;
    EXPECT_EQ(Run(u"「.txt」の関連付けを削除"), 99);
    EXPECT_EQ(Run(u"「.txt」の関連づけを削除"), 99);
}

TEST_F(Removal, FolderFormNeedsItsFifthCharacter) {
    folder_.Write("sub/in/a.txt", "");
    EXPECT_EQ(Run(u"フォルダ 「sub」を削除"), 211);
    EXPECT_TRUE(dialogs_.reported[0].text.starts_with(
        u"フォルダ名が正しくありません。\r\nフォルダが空ではありません。\r\nsub\r\n"));
    EXPECT_EQ(Run(u"フォルダ 「none」を削除"), 211);
}

TEST_F(Removal, AnythingElseIsAFile) {
    for (const char16_t* sentence :
         {u"「a.txt」を削除", u"フォルダ「a」を削除", u"レジストリを削除"}) {
        const StatementPtr statement = ParseStatement(sentence);
        EXPECT_FALSE(RemoveByForm(*statement));
    }
}

}  // namespace
}  // namespace velm
