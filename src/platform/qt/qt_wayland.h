// What a Wayland desktop keeps to itself: where windows stand, which of them is in front, how they show.
#pragma once

#include <QGuiApplication>

#include "data/failure.h"

namespace velm {

inline bool IsOnWayland() {
    return QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

// Throws Failure(438) there.
inline void RefuseOnWayland() {
    if (IsOnWayland()) throw Failure(failure::kNoSuchMember);
}

}  // namespace velm
