// Changing a file under its lock.
#include "platform/locked_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>
#include <vector>

#include "fails_with.h"
#include "temporary_folder.h"

namespace velm {
namespace {

std::optional<std::string> AddOne(const std::string& old) { return old + "x"; }

TEST(LockedFile, TheChangeSeesTheOldContent) {
    const TemporaryFolder folder;
    folder.Write("a.txt", "old");
    ChangeFile(u"a.txt", AddOne);
    EXPECT_EQ(folder.Read("a.txt"), "oldx");
}

TEST(LockedFile, AMissingFileIsEmptyAndIsMade) {
    const TemporaryFolder folder;
    ChangeFile(u"a.txt", AddOne);
    EXPECT_EQ(folder.Read("a.txt"), "x");
}

TEST(LockedFile, NoChangeLeavesNoFile) {
    const TemporaryFolder folder;
    ChangeFile(u"a.txt", [](const std::string&) { return std::nullopt; });
    EXPECT_FALSE(folder.Has("a.txt"));
}

TEST(LockedFile, ALinkStaysAndItsTargetIsChanged) {
    const TemporaryFolder folder;
    folder.Write("sub/real.txt", "1");
    folder.Link("sub/real.txt", "link.txt");
    ChangeFile(u"link.txt", AddOne);
    EXPECT_EQ(folder.Read("sub/real.txt"), "1x");
    EXPECT_TRUE(std::filesystem::is_symlink("link.txt"));
}

TEST(LockedFile, FailuresAreThoseOfTheFileAndLeaveItAsItWas) {
    const TemporaryFolder folder;
    folder.Write("closed.txt", "old");
    chmod("closed.txt", 0444);
    EXPECT_EQ(FailureOf([] { ChangeFile(u"closed.txt", AddOne); }), failure::kPermissionDenied);
    EXPECT_EQ(folder.Read("closed.txt"), "old");
    EXPECT_EQ(FailureOf([] { ChangeFile(u"none\\a.txt", AddOne); }), failure::kPathNotFound);
    EXPECT_NE(FailureOf([] { ChangeFile(u".", AddOne); }), 0);
    EXPECT_EQ(FailureOf([] {
                  ChangeFile(u"closed.txt", [](const std::string&) -> std::optional<std::string> {
                      throw Failure(failure::kBadCall);
                  });
              }),
              failure::kBadCall);
}

TEST(LockedFile, WritersAtOnceLoseNothing) {
    constexpr int kProcesses = 4;
    constexpr int kWrites = 50;
    const TemporaryFolder folder;
    std::vector<pid_t> children;
    for (int process = 0; process < kProcesses; ++process) {
        const pid_t child = fork();
        if (child == 0) {
            for (int i = 0; i < kWrites; ++i) ChangeFile(u"shared.txt", AddOne);
            _exit(0);
        }
        children.push_back(child);
    }
    for (const pid_t child : children) waitpid(child, nullptr, 0);
    EXPECT_EQ(folder.Read("shared.txt"), std::string(kProcesses * kWrites, 'x'));
}

}  // namespace
}  // namespace velm
