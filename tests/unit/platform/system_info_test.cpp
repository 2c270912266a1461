// What the system tells about itself, with the answers checked against the system's own.
#include "platform/system_info.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <thread>

namespace velm {
namespace {

namespace fs = std::filesystem;

void ExpectRelease(const SystemRelease& release, int major, int minor, int build) {
    EXPECT_EQ(release.major, major);
    EXPECT_EQ(release.minor, minor);
    EXPECT_EQ(release.build, build);
}

TEST(SystemRelease, IsReadFromTheNumbersInFront) {
    ExpectRelease(ParseRelease("6.1.0-18-amd64"), 6, 1, 0);
    ExpectRelease(ParseRelease("5.15.133.1-microsoft"), 5, 15, 133);
    ExpectRelease(ParseRelease("6.10-rc1"), 6, 10, 0);
    ExpectRelease(ParseRelease("7"), 7, 0, 0);
    ExpectRelease(ParseRelease(""), 0, 0, 0);
    ExpectRelease(ParseRelease("next"), 0, 0, 0);
    ExpectRelease(ParseRelease("6..3"), 6, 0, 0);
    ExpectRelease(ParseRelease("99999999999.1"), 0, 0, 0);
}

TEST(SystemRelease, OfThisSystemIsThere) { EXPECT_GT(TheSystemRelease().major, 0); }

TEST(Environment, TheExactNameComesFirst) {
    setenv("VELM_Test_Name", "exact", 1);
    setenv("VELM_TEST_NAME", "capitals", 1);
    EXPECT_EQ(EnvironmentValue("VELM_Test_Name"), "exact");
    EXPECT_EQ(EnvironmentValue("VELM_TEST_NAME"), "capitals");
    unsetenv("VELM_Test_Name");
    EXPECT_EQ(EnvironmentValue("velm_test_name"), "capitals");
    unsetenv("VELM_TEST_NAME");
    EXPECT_FALSE(EnvironmentValue("velm_test_name"));
}

TEST(Environment, ValuesMayBeEmptyAndHoldEqualSigns) {
    setenv("VELM_TEST_EMPTY", "", 1);
    setenv("VELM_TEST_EQUALS", "a=b", 1);
    EXPECT_EQ(EnvironmentValue("VELM_TEST_EMPTY"), "");
    EXPECT_EQ(EnvironmentValue("VELM_TEST_EQUALS"), "a=b");
    EXPECT_FALSE(EnvironmentValue("VELM_TEST_EQUALS=a"));
    EXPECT_FALSE(EnvironmentValue(""));
    unsetenv("VELM_TEST_EMPTY");
    unsetenv("VELM_TEST_EQUALS");
}

TEST(Processes, TheProgramKnowsItsFile) {
    EXPECT_TRUE(fs::equivalent(ProgramFile(), "/proc/self/exe"));
}

class RunningProgram {
  public:
    explicit RunningProgram(const fs::path& file) : id_(fork()) {
        if (id_ != 0) return;
        execl(file.c_str(), file.c_str(), "30", nullptr);
        _exit(1);
    }
    ~RunningProgram() {
        kill(id_, SIGKILL);
        waitpid(id_, nullptr, 0);
    }
    RunningProgram(const RunningProgram&) = delete;
    RunningProgram& operator=(const RunningProgram&) = delete;

  private:
    pid_t id_;
};

bool SeenWithinSeconds(const std::string& file) {
    for (int i = 0; i < 500; ++i) {
        if (OtherProcessRuns(file)) return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return false;
}

TEST(Processes, AnotherProcessOfAProgramIsSeen) {
    std::string pattern = (fs::temp_directory_path() / "velm-process-XXXXXX").string();
    ASSERT_NE(mkdtemp(pattern.data()), nullptr);
    const fs::path program = fs::canonical(pattern) / "sleeper";
    fs::copy_file("/bin/sleep", program);
    EXPECT_FALSE(OtherProcessRuns(program.string()));
    {
        const RunningProgram running(program);
        EXPECT_TRUE(SeenWithinSeconds(program.string()));
    }
    EXPECT_FALSE(OtherProcessRuns(program.string()));
    EXPECT_FALSE(OtherProcessRuns(""));
    fs::remove_all(pattern);
}

}  // namespace
}  // namespace velm
