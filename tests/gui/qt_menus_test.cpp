// Menu bars and pop-up menus.
#include "platform/qt/qt_menus.h"

#include <gtest/gtest.h>

#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QTimer>

#include "gui/recording_listener.h"
#include "platform/qt/qt_canvas_view.h"
#include "platform/qt/qt_window.h"

namespace velm {
namespace {

MenuEntry Entry(std::int32_t id, const std::u16string& text) {
    MenuEntry entry;
    entry.id = id;
    entry.text = text;
    return entry;
}

std::vector<MenuEntry> FileMenus() {
    MenuEntry separator = Entry(3, u"-");
    separator.isSeparator = true;
    MenuEntry checked = Entry(4, u"右端で折り返す");
    checked.isChecked = true;
    MenuEntry disabled = Entry(5, u"印刷");
    disabled.isEnabled = false;
    MenuEntry hidden = Entry(6, u"秘密");
    hidden.isVisible = false;
    MenuEntry recent = Entry(7, u"最近");
    recent.children = {Entry(8, u"ひとつ")};
    MenuEntry file = Entry(1, u"ファイル(&F)");
    file.children = {Entry(2, u"開く(&O)\tCtrl+O"), separator, checked, disabled, hidden, recent};
    return {file, Entry(9, u"ヘルプ")};
}

class Menus : public testing::Test {
  protected:
    Menus() {
        window_.SetClientSize(300, 200);
        window_.SetMenus(FileMenus());
        window_.Show(false);
        Deliver();
        listener_.events.clear();
    }

    QMenuBar& Bar() { return *window_.Surface().Widget()->findChild<QMenuBar*>(); }
    QMenu& File() { return *Bar().actions()[0]->menu(); }

    RecordingListener listener_;
    QtWindow window_{listener_};
};

TEST_F(Menus, EntriesLookAsTold) {
    ASSERT_EQ(Bar().actions().size(), 2);
    const QList<QAction*> file = File().actions();
    ASSERT_EQ(file.size(), 6);
    EXPECT_EQ(file[0]->text(), QStringLiteral("開く(&O)\tCtrl+O"));
    EXPECT_TRUE(file[0]->isEnabled());
    EXPECT_FALSE(file[0]->isCheckable());
    EXPECT_TRUE(file[1]->isSeparator());
    EXPECT_EQ(file[1]->text(), QString());  // a text would make it a heading
    EXPECT_TRUE(file[2]->isChecked());
    EXPECT_FALSE(file[3]->isEnabled());
    EXPECT_FALSE(file[4]->isVisible());
    ASSERT_NE(file[5]->menu(), nullptr);
    EXPECT_EQ(file[5]->menu()->actions()[0]->text(), QStringLiteral("ひとつ"));
}

// The frame keeps its size: what the bar takes is taken from the client area.
TEST_F(Menus, TheBarStandsAboveTheClientArea) {
    const int bar = Bar().height();
    EXPECT_GT(bar, 10);
    EXPECT_EQ(window_.Client().y(), bar);
    const PixelBox before = window_.Geometry();
    const int client = window_.ClientHeight();
    window_.SetMenus({});
    EXPECT_EQ(window_.Geometry(), before);
    EXPECT_EQ(window_.ClientHeight(), client + bar);
    EXPECT_EQ(window_.Client().y(), 0);
}

TEST_F(Menus, AClientSizeLeavesRoomForTheBar) {
    window_.SetClientSize(200, 100);
    EXPECT_EQ(window_.ClientWidth(), 200);
    EXPECT_EQ(window_.ClientHeight(), 100);
}

TEST_F(Menus, TheMouseIsToldFromTheCornerOfTheClientArea) {
    QTest::mousePress(&window_.Client(), Qt::LeftButton, {}, QPoint(5, 6));
    ASSERT_EQ(listener_.Count(EventKind::kMouseDown), 1);
    EXPECT_EQ(listener_.events.back().x, 5);
    EXPECT_EQ(listener_.events.back().y, 6);
    QTest::mouseRelease(&window_.Client(), Qt::LeftButton, {}, QPoint(5, 6));
    EXPECT_EQ(listener_.Count(EventKind::kClick), 1);
}

TEST_F(Menus, ChoosingTellsTheId) {
    File().actions()[0]->trigger();
    EXPECT_EQ(listener_.Count(EventKind::kMenu), 0);  // the menu closes first
    Deliver();
    ASSERT_EQ(listener_.Count(EventKind::kMenu), 1);
    EXPECT_EQ(listener_.events.back().code, 2);
}

TEST_F(Menus, AnEntryOnTheBarCanBeChosen) {
    QTest::mouseClick(&Bar(), Qt::LeftButton, {},
                      Bar().actionGeometry(Bar().actions()[1]).center());
    Deliver();
    ASSERT_EQ(listener_.Count(EventKind::kMenu), 1);
    EXPECT_EQ(listener_.events.back().code, 9);
}

TEST_F(Menus, OnlyTheScriptChangesACheckMark) {
    File().actions()[2]->trigger();
    Deliver();
    EXPECT_TRUE(File().actions()[2]->isChecked());
    std::vector<MenuEntry> menus = FileMenus();
    menus[0].children[2].isChecked = false;
    window_.SetMenus(menus);
    EXPECT_FALSE(File().actions()[2]->isChecked());
    File().actions()[2]->trigger();
    EXPECT_FALSE(File().actions()[2]->isChecked());
}

TEST_F(Menus, StatesAndTextsChangeInPlace) {
    QMenu* const file = &File();
    std::vector<MenuEntry> menus = FileMenus();
    menus[0].children[3].isEnabled = true;
    menus[0].children[0].text = u"読む";
    window_.SetMenus(menus);
    ASSERT_EQ(&File(), file);
    EXPECT_TRUE(file->actions()[3]->isEnabled());
    EXPECT_EQ(file->actions()[0]->text(), QStringLiteral("読む"));
}

TEST_F(Menus, NewEntriesTakeThePlaceOfTheOldOnes) {
    std::vector<MenuEntry> menus = FileMenus();
    menus[0].children.push_back(Entry(10, u"新しい"));
    window_.SetMenus(menus);
    Deliver();
    ASSERT_EQ(Bar().actions().size(), 2);
    ASSERT_EQ(File().actions().size(), 7);
    File().actions()[6]->trigger();
    Deliver();
    EXPECT_EQ(listener_.events.back().code, 10);
}

TEST_F(Menus, MayBeRebuiltByTheirOwnEntry) {
    listener_.answer = [&](const ControlEvent& event) {
        if (event.kind == EventKind::kMenu) window_.SetMenus({Entry(1, u"別")});
        return false;
    };
    File().actions()[0]->trigger();
    Deliver();
    ASSERT_EQ(Bar().actions().size(), 1);
    EXPECT_EQ(Bar().actions()[0]->text(), QStringLiteral("別"));
}

// Presses keys on the pop-up menu as soon as it is up.
void OnPopUp(const std::function<void(QMenu&)>& act) {
    QTimer::singleShot(10, qApp, [act] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (menu == nullptr) {
            OnPopUp(act);
        } else {
            act(*menu);
        }
    });
}

TEST_F(Menus, APopUpAnswersWhatWasChosen) {
    OnPopUp([](QMenu& menu) {
        QTest::keyClick(&menu, Qt::Key_Down);
        QTest::keyClick(&menu, Qt::Key_Return);
    });
    EXPECT_EQ(window_.PopUpMenu(FileMenus()[0], 50, 60), 2);
    EXPECT_EQ(listener_.Count(EventKind::kMenu), 0);
}

TEST_F(Menus, APopUpThatIsLeftAnswersNothing) {
    OnPopUp([](QMenu& menu) { QTest::keyClick(&menu, Qt::Key_Escape); });
    EXPECT_EQ(window_.PopUpMenu(FileMenus()[0], 50, 60), -1);
}

TEST(PopUpMenu, OutlivesItsWindow) {
    RecordingListener listener;
    auto window = std::make_unique<QtWindow>(listener);
    window->Show(false);
    OnPopUp([&](QMenu&) { window.reset(); });
    QtWindow* const gone = window.get();
    EXPECT_EQ(gone->PopUpMenu(FileMenus()[0], 50, 60), -1);
    Deliver();
}

}  // namespace
}  // namespace velm
