// How a window shows itself: its kind, where it appears, how it is shown, transparency, shape.
#include "objects/window_state.h"

#include <algorithm>
#include <string_view>

#include "core/diagnostics.h"
#include "data/failure.h"
#include "data/numbers.h"
#include "objects/object_canvas.h"
#include "objects/object_settings.h"

namespace velm {

namespace {

constexpr int kUnknownError = 999;
constexpr std::int32_t kFirstMiddle = 1;
constexpr std::int32_t kFirstMaximised = 2;
constexpr std::int32_t kFirstMinimised = 3;

constexpr double kStateMinimised = 1;
constexpr double kStateMaximised = 2;

}  // namespace

std::int32_t WindowSetting(const Window& window, std::u16string_view key) {
    const auto found = window.Prop.find(std::u16string(key));
    return found == window.Prop.end() ? 0 : ToInt32(found->second.NumberOrZero());
}

PixelBox CentredOnScreen(PixelBox box) {
    const PixelBox screen = TheToolkit().WorkArea();
    box.left = screen.left + (screen.width - box.width) / 2;
    box.top = screen.top + (screen.height - box.height) / 2;
    return box;
}

void ApplyInitialState(Window& window) {
    switch (WindowSetting(window, kInitialState)) {
        case kFirstMiddle:
            if (!objects.HostedMode) window.SetGeometry(CentredOnScreen(window.Geometry()));
            break;
        case kFirstMaximised: window.Set(u"WindowState", kStateMaximised); break;
        case kFirstMinimised: window.Set(u"WindowState", kStateMinimised); break;
        default: break;
    }
}

void ShowWindowAs(Window& window, bool modal, bool onTop) {
    const WindowPtr held = window.Self();  // a modal one may be closed before it returns
    if (onTop && objects.CurrentWindow) {
        Attempt([&] { SetTopMost(*objects.CurrentWindow, true); });
    }
    Attempt([&] { ApplyInitialState(window); });
    pendingFailure.Clear();
    window.isShown = true;
    if (Attempt([&] { window.Call(u"Show", {modal}); })) return;
    const std::u16string text = pendingFailure.description;
    pendingFailure.Clear();
    RaiseError(kUnknownError, kIconWarning, text, u"", -1);
}

void ApplyWindowKind(Window& window, std::int32_t kind) {
    window.Prop[std::u16string(kWindowKind)] = Value::OfInteger(kind);
    window.Set(u"Kind", static_cast<double>(kind));
}

void SetWindowAlpha(Window& window, std::int32_t percent) {
    constexpr double kOpaque = 255;
    constexpr double kWhole = 100;
    const double alpha = kOpaque - percent * kOpaque / kWhole;
    if (alpha < 0 || alpha > kOpaque) throw Failure(failure::kOverflow);
    window.Set(u"Alpha", static_cast<double>(ToInt32(alpha)));
}

void SetTopMost(Window& window, bool isOn) { window.Set(u"TopMost", isOn); }

void ShapeByPicture(Window& window) {
    const Pixmap& picture = PictureOf(window);
    if (picture.pixels.empty()) return;
    ToolkitWindow& frame = window.Frame();
    const std::uint32_t key = picture.At(0, 0);
    Pixmap mask(frame.ClientWidth(), frame.ClientHeight(), kTransparentPixel);
    for (std::int32_t y = 0; y < std::min(mask.height, picture.height); ++y) {
        for (std::int32_t x = 0; x < std::min(mask.width, picture.width); ++x) {
            if (picture.At(x, y) != key) mask.Row(y)[x] = 0;
        }
    }
    frame.SetShape(mask);
}

}  // namespace velm
