// The list of folders, and timers.
#include <QListWidget>
#include <filesystem>
#include <fstream>

#include "gui/control_tests.h"
#include "platform/files.h"

namespace velm {
namespace {

// --- Timers

TEST(Timers, TellWhenTheirTimeHasCome) {
    TestedControl timer(kTimerClass);
    EXPECT_EQ(timer.Number(u"Interval"), 0);
    QTest::qWait(50);
    EXPECT_EQ(timer.Told(EventKind::kTimer), 0);
    timer.Set(u"Interval", 20.0);
    QTest::qWait(210);
    EXPECT_GE(timer.Told(EventKind::kTimer), 6);
    EXPECT_LE(timer.Told(EventKind::kTimer), 11);
    timer.Set(u"Enabled", false);
    timer.listener.events.clear();
    QTest::qWait(60);
    EXPECT_EQ(timer.Told(EventKind::kTimer), 0);
    timer.Set(u"Enabled", true);
    QTest::qWait(60);
    EXPECT_GE(timer.Told(EventKind::kTimer), 1);
    EXPECT_EQ(timer.FailureOf(u"Interval", -1.0), failure::kBadCall);
    EXPECT_EQ(timer.FailureOf(u"Visible", true), failure::kNoSuchMember);
}

TEST(Timers, MayEndWithinTheirEvent) {
    TestedControl timer(kTimerClass);
    EndAt(timer, EventKind::kTimer);
    timer.Set(u"Interval", 1.0);
    QTest::qWait(50);
    EXPECT_EQ(timer.control, nullptr);
    EXPECT_EQ(timer.Told(EventKind::kTimer), 1);
}

// --- Lists of folders

class FolderListTest : public testing::Test {
  protected:
    FolderListTest() {
        std::string name = (std::filesystem::temp_directory_path() / "velm-XXXXXX").string();
        root_ = mkdtemp(name.data());
        for (const char* each : {"beta", "Alpha", "alpha/in", ".hidden"}) {
            std::filesystem::create_directories(root_ / each);
        }
        std::ofstream(root_ / "file.txt") << "x";
        path_ = ScriptPath(root_.string());
    }
    ~FolderListTest() override { std::filesystem::remove_all(root_); }

    std::filesystem::path root_;
    std::u16string path_;
};

TEST_F(FolderListTest, ListsTheFoldersOfAPath) {
    TestedControl list(kFolderListClass);
    EXPECT_EQ(list.Text(u"Path"), CurrentFolder());
    list.Set(u"Path", path_);
    EXPECT_EQ(list.Text(u"Path"), path_);
    EXPECT_EQ(list.Number(u"ListCount"), 3);
    EXPECT_EQ(list.Text(u"List", {0.0}), path_ + u"\\Alpha");
    EXPECT_EQ(list.Text(u"List", {2.0}), path_ + u"\\beta");
    EXPECT_EQ(list.Text(u"List", {3.0}), u"");
    EXPECT_EQ(list.Number(u"ListIndex"), -1);
    EXPECT_EQ(list.Text(u"List", {-1.0}), path_);
    EXPECT_EQ(list.Told(EventKind::kClick), 0);
    list.Set(u"ListIndex", 1.0);
    EXPECT_EQ(list.Told(EventKind::kClick), 1);
    EXPECT_EQ(list.Text(u"Text"), path_ + u"\\alpha");
    list.Set(u"Path", path_ + u"\\alpha\\..\\beta\\");
    EXPECT_EQ(list.Text(u"Path"), path_ + u"\\beta");
    EXPECT_EQ(list.FailureOf(u"Path", path_ + u"\\none"), failure::kPathNotFound);
    EXPECT_EQ(list.FailureOf(u"ListIndex", 0.0), failure::kBadCall);
    EXPECT_EQ(list.Text(u"Path"), path_ + u"\\beta");
    list.Set(u"Path", u"C:\\");
    EXPECT_EQ(list.Text(u"Path"), u"C:\\");
    EXPECT_EQ(list.Text(u"List", {-1.0}), u"C:\\");
    EXPECT_EQ(list.Text(u"List", {-2.0}), u"");
}

TEST_F(FolderListTest, OpensAFolderByADoubleClick) {
    TestedControl list(kFolderListClass, {0, 0, 200, 190});
    list.Set(u"Path", path_);
    list.Show();
    auto& widget = static_cast<QListWidget&>(list.Widget());
    const int last = widget.count() - 1;
    const QPoint place = widget.visualItemRect(widget.item(last)).center();
    QTest::mouseClick(widget.viewport(), Qt::LeftButton, Qt::NoModifier, place);
    EXPECT_EQ(list.Number(u"ListIndex"), 2);
    EXPECT_EQ(list.Told(EventKind::kClick), 1);
    QTest::mouseDClick(widget.viewport(), Qt::LeftButton, Qt::NoModifier, place);
    Deliver();
    EXPECT_EQ(list.Text(u"Path"), path_ + u"\\beta");
    EXPECT_EQ(list.Number(u"ListIndex"), -1);
    std::filesystem::create_directory(root_ / "beta" / "new");
    list.Call(u"Refresh");
    EXPECT_EQ(list.Number(u"ListCount"), 1);
}

}  // namespace
}  // namespace velm
