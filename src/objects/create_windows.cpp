// Making windows, and the state that a run begins and ends with.
#include <algorithm>

#include "core/hooks.h"
#include "data/failure.h"
#include "data/numbers.h"
#include "graphics/drawing_surface.h"
#include "objects/create.h"
#include "objects/kinds.h"
#include "objects/menus.h"
#include "objects/object_canvas.h"
#include "objects/object_settings.h"
#include "objects/resolve.h"

namespace velm {

namespace {

// The client area of a new window, in layout units.
constexpr std::int32_t kClientWidth = 6696;
constexpr std::int32_t kClientHeight = 4788;
constexpr std::u16string_view kTurtleArray = u"MainIcon";
constexpr std::u16string_view kHostedName = u"ウィンドウ";

// The turtle, hidden in the middle, with the drawing position at its centre.
void AddTurtle(const WindowPtr& window) {
    const auto turtle =
        std::make_shared<Object>(ControlClass::kTurtle, std::u16string(kTurtleArray), 0, window);
    window->Controls.push_back(turtle);
    PixelBox box = turtle->Geometry();
    ObjectCanvas& canvas = *window->Canvas();
    box.left = (canvas.Width() - box.width) / 2;
    box.top = (canvas.Height() - box.height) / 2;
    turtle->SetGeometry(box);
    canvas.CurrentX = static_cast<float>(box.left) + static_cast<float>(box.width) / 2;
    canvas.CurrentY = static_cast<float>(box.top) + static_cast<float>(box.height) / 2;
}

// A window as a record: the toolkit's comes at the first need.
WindowPtr LoadWindow() {
    const auto window = std::make_shared<Window>();
    const double units = UnitsInPixel(scale_mode::kLayoutUnit);
    window->Canvas()->Resize(static_cast<std::int32_t>(kClientWidth / units),
                             static_cast<std::int32_t>(kClientHeight / units));
    AddTurtle(window);
    objects.Windows.push_back(window);
    return window;
}

// The form of a host takes every name of a window.
WindowPtr UseHostedWindow(std::u16string_view alias) {
    const WindowPtr window = objects.CurrentWindow;
    if (window == nullptr) return nullptr;
    RegisterName(*window, window, kHostedName);
    window->CollObAlias[window->Identity()] = kHostedName;
    window->tag = alias;
    return window;
}

// The names that a new window gets.
void NameWindow(Window& window, const WindowName& parts, std::u16string_view alias) {
    window.tag = alias;
    if (window.tag.empty()) {
        window.tag = parts.word;
        if (!parts.rest.empty()) window.tag += FormatNumber(NumberBehind(parts.rest, false));
    }
    window.WindowType = parts.word;
}

void ShowPlain(Window& window) {
    ApplyInitialState(window);
    window.Call(u"Show", {false});
}

void UnloadAllWindows() {
    const std::vector<WindowPtr> windows = objects.Windows;
    for (const WindowPtr& window : windows) Attempt([&] { window->Unload(); });
}

}  // namespace

void LoadFirstWindow() {
    const WindowPtr window = LoadWindow();
    std::rotate(objects.Windows.begin(), objects.Windows.end() - 1, objects.Windows.end());
    objects.FirstWindow = window;
    if (objects.CurrentWindow == nullptr) SetCurrentWindow(window);
    if (objects.DrawTarget == nullptr) SetDrawTarget(objects.CurrentWindow);
    if (objects.TurtleObject == nullptr) SetTurtleObject(objects.CurrentWindow->MainIcon());
}

void InitObjectSystem() {
    if (!objects.HostedMode) {
        UnloadAllWindows();
        LoadFirstWindow();
    }
    SetDrawTarget(objects.CurrentWindow);
    drawing.DrawLock = false;
    objects.WindowCount = 1;
    objects.MenuCount = 0;
    objects.KeepOpen = false;
    objects.ThatObject = nullptr;
    objects.ThisObject = nullptr;
    objects.SavedThisObject = nullptr;
    objects.Dialogs = nullptr;
    objects.Printer = nullptr;
    objects.ObjectTable.clear();
    objects.PluginClassTable.clear();
    ResetMenus();
    pendingFailure.Clear();
}

void CloseObjectSystem() {
    if (objects.HostedMode) return;
    if (HasToolkit()) Attempt(RemoveTrayIcon);
    UnloadAllWindows();
    LoadFirstWindow();
    objects.Dialogs = nullptr;
    objects.Printer = nullptr;
    pendingFailure.Clear();
}

WindowPtr CreateWindowObject(std::u16string_view word, std::u16string_view alias, bool show) {
    if (objects.HostedMode) return UseHostedWindow(alias);
    if (const WindowPtr there = WindowByName(word)) return there;
    const WindowName parts = SplitWindowName(word);
    const WindowPtr window = LoadWindow();
    SetTurtleObject(window->MainIcon());
    window->Prop[u"種類"] = Value::OfInteger(parts.kind);
    if (parts.kind > 0) Attempt([&] { ApplyWindowKind(*window, parts.kind); });
    ++objects.WindowCount;
    NameWindow(*window, parts, alias);
    RegisterGlobalName(window, window->tag);
    if (show) Attempt([&] { ShowPlain(*window); });
    PumpEvents();
    pendingFailure.Clear();
    if (window->IsUnloaded()) return nullptr;
    SetCurrentWindow(window);
    SetDrawTarget(window);
    objects.ThatObject = window;
    return window;
}

}  // namespace velm
