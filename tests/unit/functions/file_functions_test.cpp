// Sizes and dates of files that scripts can't make.
#include "functions/file_functions.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <time.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <limits>
#include <string>

#include "core/eval.h"
#include "core/run_state.h"
#include "core/velm.h"
#include "data/failure.h"
#include "platform/files.h"

namespace velm {
namespace {

namespace fs = std::filesystem;

constexpr std::int64_t kStep = 1024;

TEST(SizeText, CutsOffBehindThreeDigits) {
    EXPECT_EQ(SizeText(0), u"0 バイト");
    EXPECT_EQ(SizeText(kStep - 1), u"1023 バイト");
    EXPECT_EQ(SizeText(kStep), u"1.00 KB");
    EXPECT_EQ(SizeText(10 * kStep - 1), u"9.99 KB");
    EXPECT_EQ(SizeText(10 * kStep), u"10.0 KB");
    EXPECT_EQ(SizeText(100 * kStep - 1), u"99.9 KB");
    EXPECT_EQ(SizeText(100 * kStep), u"100 KB");
    EXPECT_EQ(SizeText(1000 * kStep - 1), u"999 KB");
}

TEST(SizeText, TakesTheNextUnitFromAThousandOn) {
    EXPECT_EQ(SizeText(1000 * kStep), u"0.97 MB");
    EXPECT_EQ(SizeText(kStep * kStep), u"1.00 MB");
    EXPECT_EQ(SizeText(1000 * kStep * kStep), u"0.97 GB");
    EXPECT_EQ(SizeText(kStep * kStep * kStep * kStep * kStep), u"1.00 PB");
    EXPECT_EQ(SizeText(std::numeric_limits<std::int64_t>::max()), u"7.99 EB");
}

class FileFunctionsTest : public testing::Test {
  protected:
    void SetUp() override {
        TheEngine();
        ResetRunState();
        run.ErrorMode = ErrorModes::kReport;
        std::string pattern = (fs::temp_directory_path() / "velm-file-XXXXXX").string();
        ASSERT_NE(mkdtemp(pattern.data()), nullptr);
        folder_ = pattern;
        native_ = (folder_ / "a.bin").string();
        std::ofstream(native_) << "x";
        path_ = ScriptPath(native_);
        const char* zone = std::getenv("TZ");
        zone_ = zone == nullptr ? "" : zone;
        setenv("TZ", "Asia/Tokyo", 1);
    }
    void TearDown() override {
        fs::remove_all(folder_);
        if (zone_.empty()) {
            unsetenv("TZ");
        } else {
            setenv("TZ", zone_.c_str(), 1);
        }
        tzset();
        ResetRunState();
        run.Status = RunStatus::kIdle;
    }
    void SetTime(std::int64_t seconds) const {
        const timespec times[2] = {{seconds, 0}, {seconds, 0}};
        ASSERT_EQ(utimensat(AT_FDCWD, native_.c_str(), times, 0), 0);
    }
    std::u16string Of(std::u16string_view function) const {
        return EvalText(std::u16string(function) + u"（「" + path_ + u"」）").Text();
    }

    fs::path folder_;
    std::string native_;
    std::u16string path_;
    std::string zone_;
};

TEST_F(FileFunctionsTest, DatesAreLocalTime) {
    SetTime(1083794889);  // 2004-05-05 22:08:09 UTC
    EXPECT_EQ(Of(u"ファイル更新日"), u"2004/05/06 07:08:09");
    SetTime(1083769200);  // 2004-05-05 15:00:00 UTC is midnight there
    EXPECT_EQ(Of(u"ファイル更新日"), u"2004/05/06");
    SetTime(-1);
    EXPECT_EQ(Of(u"ファイル更新日"), u"1970/01/01 08:59:59");
}

TEST_F(FileFunctionsTest, SizesBeyond32BitsOverflow) {
    ASSERT_EQ(truncate(native_.c_str(), 2147483647), 0);
    EXPECT_EQ(Of(u"ファイルサイズ"), u"2147483647");
    EXPECT_EQ(run.ErrorNumber, 0);
    ASSERT_EQ(truncate(native_.c_str(), 2147483648), 0);
    EXPECT_EQ(Of(u"ファイルサイズ"), u"");
    EXPECT_EQ(run.ErrorNumber, 90);
}

TEST_F(FileFunctionsTest, AttributesFollowThePermissions) {
    const auto readOnly = [&] {
        return EvalText(u"ファイル属性（「" + path_ + u"」、読み取り専用ファイル）").Text();
    };
    EXPECT_EQ(readOnly(), u"0");
    ASSERT_EQ(chmod(native_.c_str(), 0444), 0);
    EXPECT_EQ(readOnly(), u"1");
}

TEST_F(FileFunctionsTest, ADateThatIsNoneFails) {
    EXPECT_THROW(FileDateText(ScriptPath((folder_ / "none").string())), Failure);
}

}  // namespace
}  // namespace velm
