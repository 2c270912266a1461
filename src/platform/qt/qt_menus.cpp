// See qt_menus.h. "&" marks an access key and a tab the label of a shortcut to the toolkit as well.
#include "platform/qt/qt_menus.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QTimer>
#include <functional>

#include "platform/qt/qt_removal.h"
#include "platform/qt/qt_surface.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/qt_wait_watch.h"

namespace velm {

namespace {

constexpr std::int32_t kNothingChosen = -1;

using Choose = std::function<void(std::int32_t)>;

bool IsLike(const QAction& action, const MenuEntry& entry) {
    return action.isSeparator() == entry.isSeparator && action.data().toInt() == entry.id &&
           (action.menu() != nullptr) == !entry.children.empty();
}

bool AreLike(const QList<QAction*>& actions, const std::vector<MenuEntry>& entries) {
    if (static_cast<std::size_t>(actions.size()) != entries.size()) return false;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const QAction& action = *actions[static_cast<qsizetype>(i)];
        if (!IsLike(action, entries[i])) return false;
        if (action.menu() != nullptr && !AreLike(action.menu()->actions(), entries[i].children)) {
            return false;
        }
    }
    return true;
}

void Apply(QAction& action, const MenuEntry& entry) {
    // A separator with a text would be the heading of a section.
    if (!entry.isSeparator) action.setText(ToTitle(entry.text));
    action.setEnabled(entry.isEnabled);
    action.setVisible(entry.isVisible);
    action.setCheckable(entry.isChecked);
    action.setChecked(entry.isChecked);
    if (action.menu() == nullptr) return;
    const QList<QAction*> inner = action.menu()->actions();
    for (std::size_t i = 0; i < entry.children.size(); ++i) {
        Apply(*inner[static_cast<qsizetype>(i)], entry.children[i]);
    }
}

void Connect(QAction& action, const Choose& choose) {
    QObject::connect(&action, &QAction::triggered, &action, [&action, choose] {
        // The mark is the script's affair.
        if (action.isCheckable()) action.setChecked(true);
        choose(action.data().toInt());
    });
}

// Host: a bar or a menu.
template <class Host>
void Build(Host& host, const std::vector<MenuEntry>& entries, const Choose& choose) {
    for (const MenuEntry& entry : entries) {
        QAction* action = nullptr;
        if (entry.isSeparator) {
            action = host.addSeparator();
        } else if (entry.children.empty()) {
            action = host.addAction(QString());
            Connect(*action, choose);
        } else {
            QMenu* menu = host.addMenu(QString());
            Build(*menu, entry.children, choose);
            action = menu->menuAction();
        }
        action->setData(entry.id);
        Apply(*action, entry);
    }
}

// An open menu may be what this was called from: it ends when no event of it is under way.
void Empty(QMenuBar& bar) {
    for (QAction* action : bar.actions()) {
        bar.removeAction(action);
        if (action->menu() != nullptr) {
            action->menu()->close();
            RemoveWhenFree(*action->menu(), 0);
        } else {
            RemoveWhenFree(*action, 0);
        }
    }
}

}  // namespace

QMenuBar* MakeMenuBar(QWidget& owner) {
    auto* bar = new QMenuBar(&owner);
    // A bar of the desktop's own would leave the window without one.
    bar->setNativeMenuBar(false);
    // Clicks beside its entries are none on the window.
    bar->setAttribute(Qt::WA_NoMousePropagation);
    bar->hide();
    return bar;
}

void FillMenus(QMenuBar& bar, const std::vector<MenuEntry>& entries, QtSurface& surface) {
    const QList<QAction*> actions = bar.actions();
    if (AreLike(actions, entries)) {
        for (std::size_t i = 0; i < entries.size(); ++i) {
            Apply(*actions[static_cast<qsizetype>(i)], entries[i]);
        }
        return;
    }
    Empty(bar);
    // Later, when the menu has closed: the procedure may take long, or end the window.
    const QPointer<QtSurface> target = &surface;
    Build(bar, entries, [target](std::int32_t id) {
        if (target == nullptr) return;
        QTimer::singleShot(0, target, [target, id] {
            ControlEvent event;
            event.kind = EventKind::kMenu;
            event.code = id;
            target->Tell(event);
        });
    });
}

std::int32_t AskMenu(const MenuEntry& menu, QWidget& owner, QPoint place) {
    std::int32_t chosen = kNothingChosen;
    const QPointer<QMenu> shown = new QMenu(&owner);
    Build(*shown, menu.children, [](std::int32_t) {});
    const QtWaitWatch watch([shown] {
        if (shown != nullptr) shown->close();
    });
    // The window, and its menus with it, may end meanwhile.
    const QAction* action = shown->exec(place);
    if (shown == nullptr) return kNothingChosen;
    if (action != nullptr) chosen = action->data().toInt();
    RemoveWhenFree(*shown, 0);
    return chosen;
}

}  // namespace velm
