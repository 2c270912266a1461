// The icon in the desktop's notification area.
#pragma once

#include "platform/toolkit.h"

namespace velm {

// The one icon of the process. Show throws Failure(438) where the desktop has no notification area; the
// other calls throw 91 while no icon is shown, but for Hide.
TrayIcon& QtTray();

}  // namespace velm
