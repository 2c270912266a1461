// 入力, 入力２ and アクティブ, as sentences.
#include "data/failure.h"
#include "platform/foreign_windows.h"
#include "unit/objects/control_test.h"

namespace velm {
namespace {

// Notes what it is asked for; a process or title with 無い isn't there.
class NotedWindows : public ForeignWindows {
  public:
    NotedWindows() { SetForeignWindows(this); }
    NotedWindows(const NotedWindows&) = delete;
    NotedWindows& operator=(const NotedWindows&) = delete;
    ~NotedWindows() override { SetForeignWindows(nullptr); }

    void ActivateProcess(std::int32_t processId) override {
        notes.push_back(u"process " + MemberToText(static_cast<double>(processId)));
    }
    void ActivateTitle(std::u16string_view title) override {
        if (title == u"無い") throw Failure(failure::kBadCall);
        notes.push_back(u"title " + std::u16string(title));
    }
    void TypeKeys(std::u16string_view keys) override {
        notes.push_back(u"keys " + std::u16string(keys));
    }
    void TypeCharacters(std::u16string_view text) override {
        notes.push_back(u"characters " + std::u16string(text));
    }

    std::vector<std::u16string> notes;
};

class KeyCommands : public ControlTest {
  protected:
    using Notes = std::vector<std::u16string>;
    NotedWindows windows;
};

TEST_F(KeyCommands, KeysGoToAWindow) {
    Do(u"ボタン1を作る");  // the toolkit runs
    const int pumps = toolkit.pumps;
    Do(u"「^a」＆「b」を「メモ」へ入力");
    EXPECT_EQ(windows.notes, (Notes{u"title メモ", u"keys ^ab"}));
    EXPECT_EQ(toolkit.pumps, pumps + 2);
}

TEST_F(KeyCommands, KeysGoToAProcess) {
    Do(u"番＝1200+34");
    Do(u"「a」を番へにゅうりょく");
    EXPECT_EQ(windows.notes, (Notes{u"process 1234", u"keys a"}));
}

TEST_F(KeyCommands, KeysWithoutATargetGoWhereTheFocusIs) {
    Do(u"「a」を入力");
    EXPECT_EQ(windows.notes, (Notes{u"keys a"}));
}

TEST_F(KeyCommands, NothingIsTypedWhereTheTargetIsMissing) {
    Do(u"「a」を「無い」へ入力");
    Do(u"「a」を「無い」へ入力２");
    EXPECT_EQ(windows.notes, Notes());
    EXPECT_EQ(run.ErrorNumber, 0);
}

TEST_F(KeyCommands, KeysOneByOne) {
    Do(u"「^a」を「メモ」へ入力２");
    EXPECT_EQ(windows.notes, (Notes{u"title メモ", u"characters ^a"}));
}

TEST_F(KeyCommands, ActivatingAWindow) {
    Do(u"「メモ」をアクティブ");
    Do(u"12をアクティブ");
    EXPECT_EQ(windows.notes, (Notes{u"title メモ", u"process 12"}));
}

}  // namespace
}  // namespace velm
