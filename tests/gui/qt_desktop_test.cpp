// The desktop and what stands around windows, on the toolkit's offscreen display.
#include "platform/qt/qt_desktop.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QCursor>
#include <QProgressDialog>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <algorithm>

#include "data/failure.h"
#include "platform/qt/qt_dialogs.h"
#include "platform/qt/qt_tray.h"
#include "platform/qt/x11_windows.h"

namespace velm {

namespace {

template <class Step>
int FailureOf(const Step& step) {
    try {
        step();
    } catch (const Failure& failed) {
        return failed.Number();
    }
    return 0;
}

TEST(QtDesktop, KnowsScreenMouseAndFonts) {
    QtDesktop desktop;
    const QSize size = QGuiApplication::primaryScreen()->size();
    EXPECT_EQ(desktop.ScreenSize().x, size.width());
    EXPECT_EQ(desktop.ScreenSize().y, size.height());
    QCursor::setPos(33, 44);
    EXPECT_EQ(desktop.MousePosition().x, 33);
    EXPECT_EQ(desktop.MousePosition().y, 44);
    EXPECT_FALSE(desktop.Fonts().empty());
}

TEST(QtDesktop, ForeignThingsAreNoMembersOffscreen) {
    QtDesktop desktop;
    X11Windows windows;
    EXPECT_EQ(FailureOf([&] { desktop.IsKeyDown(0x10); }), failure::kNoSuchMember);
    EXPECT_EQ(FailureOf([&] { desktop.WindowTitles(); }), failure::kNoSuchMember);
    EXPECT_EQ(FailureOf([&] { desktop.ActiveWindowTitle(); }), failure::kNoSuchMember);
    EXPECT_EQ(FailureOf([&] { windows.ActivateTitle(u"x"); }), failure::kNoSuchMember);
    EXPECT_EQ(FailureOf([&] { windows.ActivateProcess(1); }), failure::kNoSuchMember);
    EXPECT_EQ(FailureOf([&] { windows.TypeKeys(u"a"); }), failure::kNoSuchMember);
    EXPECT_EQ(FailureOf([&] { windows.TypeKeys(u"{"); }), failure::kBadCall);
    EXPECT_EQ(FailureOf([&] { windows.TypeCharacters(u"{"); }), failure::kNoSuchMember);
}

TEST(QtDesktop, TheClipboardKeepsLineEnds) {
    QtDesktop desktop;
    desktop.SetClipboardText(u"一\r\n二\n三");
    EXPECT_EQ(desktop.ClipboardText(), u"一\r\n二\n三");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("一\n二\n三"));
    QGuiApplication::clipboard()->setText(QStringLiteral("x\ny"));
    EXPECT_EQ(desktop.ClipboardText(), u"x\r\ny");
}

TEST(QtDesktop, ScreenPointers) {
    QtDesktop desktop;
    desktop.ShowWaitPointer(true);
    desktop.ShowWaitPointer(true);
    EXPECT_EQ(desktop.MainWindowPointer(), 11);
    ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    desktop.ShowWaitPointer(false);
    EXPECT_EQ(desktop.MainWindowPointer(), 0);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(FailureOf([&] { desktop.SetScreenPointer(16); }), failure::kBadCall);
}

TEST(QtTray, FailsWhereThereIsNone) {
    EXPECT_EQ(FailureOf([] { QtTray().Show(Pixmap(16, 16, 0), u"説明"); }), failure::kNoSuchMember);
    EXPECT_EQ(FailureOf([] { QtTray().SetTip(u"説明"); }), failure::kNothingThere);
    QtTray().Hide();
}

QProgressDialog* ProgressWindow() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        auto* window = qobject_cast<QProgressDialog*>(widget);
        if (window != nullptr && window->isVisible()) return window;
    }
    return nullptr;
}

TEST(FileProgress, ComesUpForLongWorkOnlyAndGoesByItself) {
    QtDialogs dialogs;
    for (int i = 0; i < 20; ++i) EXPECT_TRUE(dialogs.ShowFileProgress(u"C:\\a", i, 20));
    EXPECT_EQ(ProgressWindow(), nullptr);
    EXPECT_TRUE(dialogs.ShowFileProgress(u"C:\\a", 0, 100));
    QTest::qSleep(550);
    EXPECT_TRUE(dialogs.ShowFileProgress(u"C:\\長い\\名前.txt", 40, 100));
    QProgressDialog* window = ProgressWindow();
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(window->value(), 400);
    EXPECT_EQ(window->labelText(), QStringLiteral("C:\\長い\\名前.txt"));
    QTest::qWait(500);
    EXPECT_EQ(ProgressWindow(), nullptr);
}

TEST(FileProgress, CancelEndsTheWork) {
    QtDialogs dialogs;
    EXPECT_TRUE(dialogs.ShowFileProgress(u"a", 0, 100));
    QTest::qSleep(550);
    EXPECT_TRUE(dialogs.ShowFileProgress(u"b", 1, 100));
    QProgressDialog* window = ProgressWindow();
    ASSERT_NE(window, nullptr);
    auto* button = window->findChild<QPushButton*>();
    ASSERT_NE(button, nullptr);
    EXPECT_EQ(button->text(), QStringLiteral("キャンセル"));
    QTest::mouseClick(button, Qt::LeftButton);
    QTest::qSleep(60);
    EXPECT_FALSE(dialogs.ShowFileProgress(u"c", 2, 100));
    EXPECT_EQ(ProgressWindow(), nullptr);
    EXPECT_TRUE(dialogs.ShowFileProgress(u"d", 0, 100));
}

}  // namespace

}  // namespace velm
