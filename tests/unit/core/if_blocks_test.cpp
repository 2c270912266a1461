// The scan of the もし blocks: the depth of each line.
#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "core/blocks.h"
#include "core/prepare.h"
#include "core/velm.h"
#include "data/text.h"
#include "unit/recorded_dialogs.h"

namespace velm {
namespace {

using Lines = std::vector<std::u16string>;

// The scan as it is told: each block is walked by itself and by every block around it.
class ToldScan {
  public:
    explicit ToldScan(const Lines& lines)
        : depth(lines.size()), lines_(lines), scanned_(lines.size()) {
        Mark(0, false);
    }

    std::vector<std::int32_t> depth;
    std::vector<std::size_t> reportedAt;

  private:
    bool Mark(std::size_t from, bool inBlock) {
        for (std::size_t i = from; i < lines_.size(); ++i) {
            const std::u16string& text = lines_[i];
            if (text == u"もし終わり" && !scanned_[i]) {
                Count(i);
                return true;
            }
            if (text.starts_with(u"もし") && text.ends_with(u"なら") && !scanned_[i] &&
                !Mark(i + 1, true)) {
                return false;
            }
            if (inBlock) Count(i);
        }
        if (inBlock) reportedAt.push_back(from);
        return !inBlock;
    }
    void Count(std::size_t i) {
        ++depth[i];
        scanned_[i] = true;
    }

    const Lines& lines_;
    std::vector<bool> scanned_;
};

class IfBlocksTest : public testing::Test {
  protected:
    void SetUp() override {
        TheEngine();
        ResetRunState();
        Programs.assign(1, ProgramPtr(new Program));
    }
    void TearDown() override {
        ResetRunState();
        run.Status = RunStatus::kIdle;
    }
    static Program Scanned(const Lines& lines) {
        Program program;
        program.Statements = PrepareProgram(Join(lines, kCrLf));
        ScanBlocks(program);
        return program;
    }
};

TEST_F(IfBlocksTest, TheHeadDoesNotCountForItsOwnBlockTheEndDoes) {
    const Program program = Scanned({u"x", u"もし A＝1 なら", u"x", u"もし B＝1 なら", u"x",
                                     u"もし終わり", u"他なら", u"x", u"もし終わり", u"x"});
    EXPECT_EQ(program.Depth, std::vector<std::int32_t>({0, 0, 1, 1, 2, 2, 1, 1, 1, 0}));
}

TEST_F(IfBlocksTest, OneLineFormsAreNoHeads) {
    const Program program = Scanned({u"もし A＝1 なら x", u"x"});
    EXPECT_EQ(program.Depth, std::vector<std::int32_t>({0, 0}));
}

TEST_F(IfBlocksTest, AStrayEndEndsTheScan) {
    const Program program = Scanned({u"もし終わり", u"もし A＝1 なら", u"x", u"もし終わり"});
    EXPECT_EQ(program.Depth, std::vector<std::int32_t>({1, 0, 0, 0}));
}

TEST_F(IfBlocksTest, RandomProgramsGetTheDepthsOfTheToldScan) {
    const std::u16string_view kinds[] = {u"もし A＝1 なら", u"もし終わり", u"x"};
    for (unsigned seed = 0; seed < 3000; ++seed) {
        std::mt19937 random(seed);
        Lines lines(1 + random() % 14);
        for (std::u16string& line : lines) line = kinds[random() % 3];
        RecordedDialogs dialogs;
        const Program program = Scanned(lines);
        const ToldScan told(lines);
        ASSERT_EQ(program.Depth, told.depth) << "seed " << seed;
        ASSERT_EQ(dialogs.reported.size(), told.reportedAt.size()) << "seed " << seed;
        if (!told.reportedAt.empty()) {
            ASSERT_EQ(run.ErrorLine, static_cast<std::int32_t>(told.reportedAt[0]));
        }
    }
}

}  // namespace
}  // namespace velm
