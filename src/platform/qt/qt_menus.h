// Menu bars and pop-up menus.
#pragma once

#include <QPoint>
#include <cstdint>
#include <vector>

#include "platform/toolkit.h"

class QMenuBar;
class QWidget;

namespace velm {

class QtSurface;

// An empty bar, hidden; its place is its owner's affair.
QMenuBar* MakeMenuBar(QWidget& owner);
// Makes the bar show the entries. What is chosen is told to the surface as kMenu, once the menu is off the
// screen. Entries that differ only in text and state are changed in place, so that an open menu stays.
void FillMenus(QMenuBar& bar, const std::vector<MenuEntry>& entries, QtSurface& surface);
// Shows the children of an entry at a place of the screen and waits; the id of the chosen one, -1 for none.
std::int32_t AskMenu(const MenuEntry& menu, QWidget& owner, QPoint place);

}  // namespace velm
