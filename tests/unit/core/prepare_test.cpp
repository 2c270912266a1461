// Preparing source: comments, continued lines, the count of brackets.
#include "core/prepare.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/velm.h"
#include "unit/recorded_dialogs.h"

namespace velm {
namespace {

using Lines = std::vector<std::u16string>;

class PrepareTest : public testing::Test {
  protected:
    void SetUp() override {
        TheEngine();
        ResetRunState();
    }
    void TearDown() override {
        ResetRunState();
        run.Status = RunStatus::kIdle;
    }
    static Lines Normalised(Lines lines) {
        NormaliseLines(lines);
        return lines;
    }

    RecordedDialogs dialogs_;
};

TEST_F(PrepareTest, CommentsAreCutOutsideBrackets) {
    EXPECT_EQ(Normalised({u"a’b", u"a 'b", u"「a'b」c'd", u"（'）", u"('x"}),
              Lines({u"a", u"a", u"「a'b」c", u"（'）", u"("}));
    ASSERT_EQ(dialogs_.reported.size(), 1U);
    EXPECT_EQ(dialogs_.reported[0].text, u"）が1ヶ所不足しています\r\n［5行目 エラー番号0］");
    EXPECT_EQ(dialogs_.reported[0].style, 64 + 1);
}

TEST_F(PrepareTest, ContinuedLinesStandWhereTheyBegan) {
    EXPECT_EQ(Normalised({u"a、", u"b_", u" c ", u"d"}), Lines({u"a、b\r\n c ", u"", u"", u"d"}));
    EXPECT_EQ(Normalised({u"「a、", u"b」"}), Lines({u"「a、b」", u""}));
}

TEST_F(PrepareTest, AnUnfinishedContinuationIsLost) {
    EXPECT_EQ(Normalised({u"a", u"b、", u"c_"}), Lines({u"a", u"", u""}));
    EXPECT_TRUE(dialogs_.reported.empty());
}

TEST_F(PrepareTest, TheCheckStopsTheNormalisation) {
    EXPECT_EQ(Normalised({u" a ", u"（(b ", u" c 'd"}), Lines({u"a", u"（(b ", u" c 'd"}));
    EXPECT_EQ(dialogs_.reported.size(), 1U);
    EXPECT_EQ(dialogs_.reported[0].text, u"）が2ヶ所不足しています\r\n［2行目 エラー番号0］");
}

TEST_F(PrepareTest, ExcessClosersAreReportedToo) {
    Normalised({u"a））"});
    EXPECT_EQ(dialogs_.reported[0].text, u"（が2ヶ所不足しています\r\n［1行目 エラー番号0］");
}

TEST_F(PrepareTest, AHalfWidthBracketBeforeAFullWidthOneIsPassedOver) {
    Normalised({u"((（a）"});
    EXPECT_TRUE(dialogs_.reported.empty());
}

TEST_F(PrepareTest, EveryLineIsOneStatement) {
    const std::vector<StatementPtr> statements = PrepareProgram(u"a\tb\r\n\r\n'c\r\nd、\r\ne\nf");
    ASSERT_EQ(statements.size(), 5U);
    EXPECT_EQ(statements[0]->Source, u"ab");
    EXPECT_EQ(statements[1]->Source, u"");
    EXPECT_EQ(statements[2]->Source, u"");
    EXPECT_EQ(statements[3]->Source, u"d、e\nf");
    EXPECT_EQ(statements[4]->Source, u"");
}

TEST_F(PrepareTest, AnEmptyTextIsOneEmptyLine) { EXPECT_EQ(PrepareProgram(u"").size(), 1U); }

TEST_F(PrepareTest, ProgramsAreAppended) {
    Programs.assign(1, ProgramPtr(new Program));
    EXPECT_EQ(AddProgram(PrepareProgram(u"a"), u"x.vlm"), 1);
    EXPECT_EQ(Programs[1]->FileName, u"x.vlm");
    Programs.assign(1, ProgramPtr(new Program));
}

}  // namespace
}  // namespace velm
