// A window's place in the desktop's list of windows.
#pragma once

class QWindow;

namespace velm {

// Asks the window manager to list a shown window, or to leave it out. Throws Failure(438) where a program
// can't ask that.
void ShowInTaskbar(QWindow& window, bool isListed);

}  // namespace velm
