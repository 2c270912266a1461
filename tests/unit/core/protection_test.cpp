// The protection levels and the gate.
#include "core/protection.h"

#include <gtest/gtest.h>

#include "core/run_state.h"
#include "core/sentence.h"
#include "core/velm.h"
#include "unit/recorded_dialogs.h"

namespace velm {
namespace {

std::u16string digitsOfTest;

std::u16string ReadDigits(std::u16string_view section, std::u16string_view key) {
    return section == u"Secure" && key == u"Key" ? digitsOfTest : u"";
}

class Protection : public testing::Test {
  protected:
    Protection() : before_(ReadUserSetting) {
        TheEngine();
        ResetRunState();
        ReadUserSetting = ReadDigits;
    }
    ~Protection() override {
        ReadUserSetting = before_;
        ProtectionLevels.fill(false);
        run.CurrentStatement = StatementPtr();
        run.Status = RunStatus::kIdle;
    }

    void Load(const char16_t* digits) {
        digitsOfTest = digits;
        LoadProtection();
    }
    static std::array<bool, 5> Levels(std::initializer_list<std::size_t> set) {
        std::array<bool, 5> levels = {};
        for (const std::size_t level : set) levels[level] = true;
        return levels;
    }

    RecordedDialogs dialogs_;

  private:
    std::u16string (*before_)(std::u16string_view section, std::u16string_view key);
};

TEST_F(Protection, NoSettingSetsNoLevel) {
    ProtectionLevels.fill(true);
    Load(u"");
    EXPECT_EQ(ProtectionLevels, Levels({}));
    ReadUserSetting = nullptr;
    ProtectionLevels.fill(true);
    LoadProtection();
    EXPECT_EQ(ProtectionLevels, Levels({}));
    EXPECT_TRUE(dialogs_.reported.empty());
}

// Index digits 1 and 3, last digit 6: 1 + 3 + 6 - 5 = 5, odd, so the first digit is 1.
TEST_F(Protection, DigitsNameLevels) {
    Load(u"1136");
    EXPECT_EQ(ProtectionLevels, Levels({1, 3}));
    // 0 + 1 + 2 + 3 + 4 + 5 - 5 = 10, even.
    Load(u"0012345");
    EXPECT_EQ(ProtectionLevels, Levels({0, 1, 2, 3, 4}));
    // No index digit: 7 - 5 = 2, even.
    Load(u"07");
    EXPECT_EQ(ProtectionLevels, Levels({}));
    EXPECT_TRUE(dialogs_.reported.empty());
}

TEST_F(Protection, BrokenSettingIsReportedAndHoldsAllTheSame) {
    for (const char16_t* digits : {u"0136", u"1x16", u"x", u"1", u"0"}) {
        dialogs_.reported.clear();
        Load(digits);
        ASSERT_EQ(dialogs_.reported.size(), 1U);
        EXPECT_TRUE(dialogs_.reported[0].text.starts_with(u"保護機能の設定が壊れています。"));
        EXPECT_EQ(dialogs_.reported[0].style & box::kIcons, 64);
    }
    Load(u"0136");
    EXPECT_EQ(ProtectionLevels, Levels({1, 3}));
}

TEST_F(Protection, EachLevelRefusesItsOwn) {
    ProtectionLevels = Levels({0});
    EXPECT_TRUE(IsProtected(Protected::kRegistry));
    EXPECT_FALSE(IsProtected(Protected::kFiles));
    ProtectionLevels = Levels({1});
    EXPECT_TRUE(IsProtected(Protected::kFiles));
    EXPECT_FALSE(IsProtected(Protected::kSystem));
    EXPECT_FALSE(IsProtected(Protected::kExternalCalls));
    ProtectionLevels = Levels({2});
    EXPECT_TRUE(IsProtected(Protected::kSystem));
    EXPECT_TRUE(IsProtected(Protected::kExternalCalls));
    ProtectionLevels = Levels({3});
    EXPECT_FALSE(IsProtected(Protected::kSystem));
    EXPECT_TRUE(IsProtected(Protected::kExternalCalls));
}

TEST_F(Protection, RefusalIsReportedWithTheSentence) {
    run.CurrentStatement = ParseStatement(u"「abc」を「a.txt」へ保存");
    EXPECT_TRUE(CheckProtection(Protected::kFiles));
    ProtectionLevels = Levels({1});
    EXPECT_FALSE(CheckProtection(Protected::kFiles));
    ASSERT_EQ(dialogs_.reported.size(), 1U);
    EXPECT_TRUE(dialogs_.reported[0].text.starts_with(
        u"保護機能が有効です。現在の設定では、以下の命令を実行できません。\r\n"
        u"「abc」を「a.txt」へ保存\r\n"));
    EXPECT_EQ(dialogs_.reported[0].style & box::kIcons, 16);
    EXPECT_EQ(run.ErrorNumber, 99);
    EXPECT_TRUE(dialogs_.asked.empty());
}

TEST_F(Protection, QuestionBeforeEachCommand) {
    run.CurrentStatement = ParseStatement(u"「a.txt」をすぐ削除");
    ProtectionLevels = Levels({4});
    dialogs_.agrees = true;
    EXPECT_TRUE(CheckProtection(Protected::kFiles));
    ASSERT_EQ(dialogs_.asked.size(), 1U);
    EXPECT_EQ(dialogs_.asked[0].style, 0x34);
    EXPECT_EQ(dialogs_.asked[0].text,
              u"システムに影響を及ぼす可能性がある命令を実行しようとしています。\r\n"
              u"「a.txt」をすぐ削除\r\nこの命令を実行しますか？");
    dialogs_.agrees = false;
    EXPECT_FALSE(CheckProtection(Protected::kFiles));
    EXPECT_EQ(run.ErrorNumber, 99);
}

TEST_F(Protection, QuestionIsAskedThoughTheLevelRefusesAnyway) {
    ProtectionLevels = Levels({1, 4});
    dialogs_.agrees = true;
    EXPECT_FALSE(CheckProtection(Protected::kFiles));
    EXPECT_EQ(dialogs_.asked.size(), 1U);
}

}  // namespace
}  // namespace velm
