// Opening by the desktop and shortcuts. A program of the test's own stands in for the desktop's opener.
#include "platform/shell.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <chrono>
#include <filesystem>
#include <thread>

#include "platform/files.h"
#include "unit/platform/temporary_folder.h"

namespace velm {
namespace {

// Programs that note how they were started.
class Openers {
  public:
    explicit Openers(TemporaryFolder& folder) : folder_(folder) {
        folder_.Set("PATH", folder_.Path() + "/bin:/usr/bin:/bin");
    }
    void Add(const std::string& name) {
        folder_.Write("bin/" + name, "#!/bin/sh\nprintf '%s' \"" + name + " $*\" > '" +
                                         folder_.Path() + "/part'\nmv '" + folder_.Path() +
                                         "/part' '" + folder_.Path() + "/said'\n");
        chmod((folder_.Path() + "/bin/" + name).c_str(), 0755);
    }
    // What a program was started with; waits for it a while.
    std::string Said() {
        for (int i = 0; i < 500 && !folder_.Has("said"); ++i) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        const std::string said = folder_.Read("said");
        std::filesystem::remove(folder_.Path() + "/said");
        return said;
    }

  private:
    TemporaryFolder& folder_;
};

TEST(ShellExecute, OpensFilesFoldersAndUrls) {
    TemporaryFolder folder;
    Openers openers(folder);
    openers.Add("xdg-open");
    folder.Write("-a b.txt", "x");
    const std::string here = std::filesystem::current_path().string();
    EXPECT_EQ(ShellExecute(u"Open", u"-A b.txt"), shell::kStarted);
    EXPECT_EQ(openers.Said(), "xdg-open " + here + "/-a b.txt");
    EXPECT_EQ(ShellExecute(u"explore", u"C:\\tmp"), shell::kStarted);
    EXPECT_EQ(openers.Said(), "xdg-open /tmp");
    EXPECT_EQ(ShellExecute(u"OPEN", u"https://例.example/a b"), shell::kStarted);
    EXPECT_EQ(openers.Said(), "xdg-open https://例.example/a b");
}

TEST(ShellExecute, PrintGoesToThePrinter) {
    TemporaryFolder folder;
    Openers openers(folder);
    openers.Add("lp");
    folder.Write("a.txt", "x");
    EXPECT_EQ(ShellExecute(u"print", u"a.txt"), shell::kStarted);
    EXPECT_EQ(openers.Said(), "lp -- " + std::filesystem::current_path().string() + "/a.txt");
}

TEST(ShellExecute, RunsAProgram) {
    TemporaryFolder folder;
    Openers openers(folder);
    openers.Add("tool");
    openers.Add("xdg-open");
    EXPECT_EQ(ShellExecute(u"Open", u"bin\\tool"), shell::kStarted);
    EXPECT_EQ(openers.Said(), "tool ");
    // Some file systems call every file executable.
    folder.Write("a.txt", "text");
    chmod("a.txt", 0755);
    EXPECT_EQ(ShellExecute(u"Open", u"a.txt"), shell::kStarted);
    EXPECT_EQ(openers.Said().substr(0, 9), "xdg-open ");
    EXPECT_EQ(ShellExecute(u"edit", u"bin\\tool"), shell::kStarted);
    EXPECT_EQ(openers.Said().substr(0, 9), "xdg-open ");
}

TEST(ShellExecute, WhatCannotBe) {
    TemporaryFolder folder;
    folder.Set("PATH", folder.Path());
    folder.Write("a.txt", "x");
    EXPECT_EQ(ShellExecute(u"Open", u"none.txt"), shell::kNotFound);
    EXPECT_EQ(ShellExecute(u"Open", u"none\\a.txt"), shell::kNotFound);
    EXPECT_EQ(ShellExecute(u"Open", u"D:\\a.txt"), shell::kNotFound);
    EXPECT_EQ(ShellExecute(u"Open", u""), shell::kNotFound);
    EXPECT_EQ(ShellExecute(u"properties", u"a.txt"), shell::kNoProgram);
    EXPECT_EQ(ShellExecute(u"Open", u"a.txt"), shell::kNoProgram);
}

TEST(WriteShortcut, LinkToAFile) {
    TemporaryFolder folder;
    Openers openers(folder);
    openers.Add("xdg-open");
    folder.Write("資料/a b.txt", "x");
    WriteShortcut(u"Memo.lnk", u"資料\\a b.txt", u"");
    const std::string here = std::filesystem::current_path().string();
    const std::string url = "file://" + here + "/%E8%B3%87%E6%96%99/a%20b.txt";
    EXPECT_EQ(folder.Read("Memo.desktop"),
              "[Desktop Entry]\nVersion=1.5\nName=Memo\nType=Link\nURL=" + url + "\n");
    EXPECT_FALSE(folder.Has("Memo.lnk"));
    EXPECT_EQ(ShellExecute(u"Open", u"memo.lnk"), shell::kStarted);
    EXPECT_EQ(openers.Said(), "xdg-open " + url);
}

TEST(WriteShortcut, ProgramWithArguments) {
    TemporaryFolder folder;
    Openers openers(folder);
    openers.Add("tool");
    MakeFolder(u"links");
    WriteShortcut(u"links\\道具.lnk", u"bin\\tool", u"-x \"a b\" 100%");
    const std::string here = std::filesystem::current_path().string();
    EXPECT_EQ(folder.Read("links/道具.desktop"),
              "[Desktop Entry]\nVersion=1.5\nName=道具\nType=Application\nExec=\"" + here +
                  "/bin/tool\" \"-x\" \"a b\" \"100%%\"\nPath=" + here + "/links\nIcon=" + here +
                  "/bin/tool\n");
    struct stat info;
    stat("links/道具.desktop", &info);
    EXPECT_EQ(info.st_mode & 0777U, 0755U);
}

TEST(WriteShortcut, CharactersThatMeanSomethingThere) {
    const TemporaryFolder folder;
    WriteShortcut(u"u.lnk", u"mailto:a@b.example", u"");
    EXPECT_NE(folder.Read("u.desktop").find("\nURL=mailto:a@b.example\n"), std::string::npos);
    folder.Write("a$\"b", "x");
    WriteShortcut(u"q.lnk", u"a$\"b", u"x");
    EXPECT_NE(folder.Read("q.desktop").find("/a\\\\$\\\\\"b\" \"x\"\n"), std::string::npos);
}

TEST(WriteShortcut, NothingForAnEmptyName) {
    const TemporaryFolder folder;
    WriteShortcut(u"", u"a.txt", u"");
    WriteShortcut(u"a.lnk", u"", u"");
    EXPECT_TRUE(std::filesystem::is_empty("."));
}

}  // namespace
}  // namespace velm
