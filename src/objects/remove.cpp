// The end of controls and windows.
#include <algorithm>
#include <utility>

#include "core/diagnostics.h"
#include "core/run_state.h"
#include "data/failure.h"
#include "objects/create.h"
#include "objects/events.h"

namespace velm {

namespace {

constexpr std::u16string_view kCloses = u"を閉じる";

bool IsAnyShown() {
    return std::any_of(objects.Windows.begin(), objects.Windows.end(),
                       [](const WindowPtr& window) { return window->isShown; });
}

// Runs the closing procedure; whether the window stays open. Kept: 閉じない counts for its user alone.
bool IsKeptOpen(Window& window, bool byUser) {
    window.isClosing = true;
    WindowEvent(window, kCloses);
    window.isClosing = false;
    return byUser && std::exchange(objects.KeepOpen, false);
}

}  // namespace

void RemoveObject(const ObjectPtr& object) {
    if (object->IsWindow()) {
        CloseWindow(std::static_pointer_cast<Window>(object), false);
        return;
    }
    const ObjectPtr held = object;
    Attempt([&] { held->Set(u"Visible", false); });
    if (const WindowPtr window = held->Owner()) {
        std::erase_if(window->CollObj, [&](const auto& entry) { return entry.second == held; });
    }
    // What is part of the window itself stays with it.
    const bool isPart = held->isTemplate || held->Index() == 0;
    if (!isPart) held->Unload();
    pendingFailure.Clear();
}

void CloseWindow(const WindowPtr& window, bool byUser) {
    const WindowPtr held = window;
    if (held->IsUnloaded() || held->isClosing || IsKeptOpen(*held, byUser)) return;
    if (held->IsUnloaded()) return;
    const bool wasFirst = held == objects.FirstWindow;
    const bool wasShown = held->isShown;
    held->Unload();
    if (wasFirst) {
        LoadFirstWindow();
    } else {
        --objects.WindowCount;
    }
    if (wasShown && !IsAnyShown() && run.Status == RunStatus::kRunning) StopRun();
}

}  // namespace velm
