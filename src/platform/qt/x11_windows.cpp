// Bringing windows to the front, and typing.
#include "platform/qt/x11_windows.h"

#include <algorithm>
#include <string>

#include "data/failure.h"
#include "data/key_strokes.h"
#include "data/text.h"
#include "data/width.h"
#include "platform/qt/x11_display.h"
#include "platform/qt/x11_typing.h"

namespace velm {

namespace {

template <class Condition>
bool ActivateFirst(const std::vector<X11Window>& windows, const Condition& fits) {
    const auto found = std::find_if(windows.begin(), windows.end(), fits);
    if (found == windows.end()) return false;
    X11Activate(found->id);
    return true;
}

}  // namespace

X11Windows::~X11Windows() {
    Attempt([] { X11RestoreKeyboard(); });
}

void X11Windows::ActivateProcess(std::int32_t processId) {
    const auto isOfProcess = [processId](const X11Window& window) {
        return window.processId == processId;
    };
    if (!ActivateFirst(X11ListWindows(), isOfProcess)) throw Failure(failure::kBadCall);
}

void X11Windows::ActivateTitle(std::u16string_view title) {
    std::vector<X11Window> windows = X11ListWindows();
    for (X11Window& window : windows) window.title = ToLower(window.title);
    const std::u16string wanted = ToLower(title);
    const auto isTitle = [&](const X11Window& window) { return window.title == wanted; };
    const auto begins = [&](const X11Window& window) { return window.title.starts_with(wanted); };
    const auto contains = [&](const X11Window& window) { return Contains(window.title, wanted); };
    if (wanted.empty() || (!ActivateFirst(windows, isTitle) && !ActivateFirst(windows, begins) &&
                           !ActivateFirst(windows, contains)))
        throw Failure(failure::kBadCall);
}

void X11Windows::TypeKeys(std::u16string_view keys) { X11Type(ParseKeyStrokes(keys)); }

void X11Windows::TypeCharacters(std::u16string_view text) { X11Type(PlainKeyStrokes(text)); }

}  // namespace velm
