// Windows and keys of the X display.
#include "platform/qt/x11_display.h"

#include <X11/Xatom.h>
#include <X11/Xutil.h>
#include <X11/keysym.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <optional>
#include <string_view>
#include <thread>

#include "data/failure.h"
#include "data/utf.h"
#include "platform/qt/x11_connection.h"

namespace velm {

namespace {

constexpr long kLongestProperty = 1 << 18;  // in units of 32 bits
constexpr std::chrono::milliseconds kPatience{1000};
constexpr std::chrono::milliseconds kPause{5};

Atom Named(Display* display, const char* name) { return XInternAtom(display, name, False); }

// A property as items of T (long for those of 32 bits, as the X library has them).
template <class T>
std::vector<T> Property(Display* display, Window window, const char* name, int bits) {
    Atom type = None;
    int format = 0;
    unsigned long count = 0;
    unsigned long rest = 0;
    unsigned char* bytes = nullptr;
    const int status =
        XGetWindowProperty(display, window, Named(display, name), 0, kLongestProperty, False,
                           AnyPropertyType, &type, &format, &count, &rest, &bytes);
    std::vector<T> items;
    if (status == Success && bytes != nullptr && format == bits) {
        const T* first = reinterpret_cast<const T*>(bytes);
        items.assign(first, first + count);
    }
    if (bytes != nullptr) XFree(bytes);
    return items;
}

std::u16string TitleOf(Display* display, Window window) {
    std::vector<char> bytes = Property<char>(display, window, "_NET_WM_NAME", 8);
    if (bytes.empty()) bytes = Property<char>(display, window, "WM_NAME", 8);
    // Old programs write Latin-1 there.
    const std::string_view text(bytes.data(), bytes.size());
    if (IsValidUtf8(text)) return Utf8ToUtf16(text);
    std::u16string title;
    for (const char byte : text) title += static_cast<unsigned char>(byte);
    return title;
}

// Whether a window is a panel, or the desktop itself.
bool IsFurniture(Display* display, Window window) {
    const auto types = Property<unsigned long>(display, window, "_NET_WM_WINDOW_TYPE", 32);
    const auto has = [&](const char* type) {
        return std::find(types.begin(), types.end(), Named(display, type)) != types.end();
    };
    return has("_NET_WM_WINDOW_TYPE_DOCK") || has("_NET_WM_WINDOW_TYPE_DESKTOP");
}

// Without a window manager: the visible windows that want one.
std::vector<Window> BareWindows(Display* display) {
    Window root = None;
    Window parent = None;
    Window* children = nullptr;
    unsigned count = 0;
    std::vector<Window> found;
    if (XQueryTree(display, DefaultRootWindow(display), &root, &parent, &children, &count) == 0)
        return found;
    for (unsigned i = 0; i < count; ++i) {
        XWindowAttributes attributes;
        if (XGetWindowAttributes(display, children[i], &attributes) == 0) continue;
        if (attributes.map_state == IsViewable && attributes.override_redirect == False)
            found.push_back(children[i]);
    }
    if (children != nullptr) XFree(children);
    return found;
}

bool IsManaged(Display* display) {
    return !Property<Window>(display, DefaultRootWindow(display), "_NET_SUPPORTING_WM_CHECK", 32)
                .empty();
}

X11Window Describe(Display* display, Window window) {
    X11Window described;
    described.id = window;
    described.title = TitleOf(display, window);
    const auto process = Property<unsigned long>(display, window, "_NET_WM_PID", 32);
    if (!process.empty()) described.processId = static_cast<std::int64_t>(process[0]);
    const auto owner = Property<Window>(display, window, "WM_TRANSIENT_FOR", 32);
    described.isOwned =
        !owner.empty() && owner[0] != None && owner[0] != DefaultRootWindow(display);
    return described;
}

Window ActiveWindow(Display* display) {
    if (!IsManaged(display)) {
        Window focused = None;
        int revert = 0;
        XGetInputFocus(display, &focused, &revert);
        return focused == PointerRoot ? static_cast<Window>(None) : focused;
    }
    const auto active =
        Property<Window>(display, DefaultRootWindow(display), "_NET_ACTIVE_WINDOW", 32);
    return active.empty() ? static_cast<Window>(None) : active[0];
}

void AskForFront(Display* display, Window window) {
    if (!IsManaged(display)) {
        XRaiseWindow(display, window);
        XSetInputFocus(display, window, RevertToPointerRoot, CurrentTime);
        return;
    }
    constexpr long kFromPager =
        2;  // a request of the user, not of the program that wants attention
    XEvent event = {};
    event.xclient.type = ClientMessage;
    event.xclient.window = window;
    event.xclient.message_type = Named(display, "_NET_ACTIVE_WINDOW");
    event.xclient.format = 32;
    event.xclient.data.l[0] = kFromPager;
    event.xclient.data.l[1] = CurrentTime;
    XSendEvent(display, DefaultRootWindow(display), False,
               SubstructureNotifyMask | SubstructureRedirectMask, &event);
}

struct KeyRow {
    std::int32_t virtualKey;
    std::array<KeySym, 2> symbols;
};

constexpr KeyRow kKeys[] = {
    {0x08, {XK_BackSpace, 0}},
    {0x09, {XK_Tab, XK_ISO_Left_Tab}},
    {0x0C, {XK_Clear, XK_KP_Begin}},
    {0x0D, {XK_Return, XK_KP_Enter}},
    {0x10, {XK_Shift_L, XK_Shift_R}},
    {0x11, {XK_Control_L, XK_Control_R}},
    {0x12, {XK_Alt_L, XK_Alt_R}},
    {0x13, {XK_Pause, 0}},
    {0x14, {XK_Caps_Lock, XK_Eisu_toggle}},
    {0x15, {XK_Hiragana_Katakana, 0}},
    {0x19, {XK_Kanji, XK_Zenkaku_Hankaku}},
    {0x1B, {XK_Escape, 0}},
    {0x1C, {XK_Henkan_Mode, 0}},
    {0x1D, {XK_Muhenkan, 0}},
    {0x20, {XK_space, 0}},
    {0x21, {XK_Prior, XK_KP_Prior}},
    {0x22, {XK_Next, XK_KP_Next}},
    {0x23, {XK_End, XK_KP_End}},
    {0x24, {XK_Home, XK_KP_Home}},
    {0x25, {XK_Left, XK_KP_Left}},
    {0x26, {XK_Up, XK_KP_Up}},
    {0x27, {XK_Right, XK_KP_Right}},
    {0x28, {XK_Down, XK_KP_Down}},
    {0x2C, {XK_Print, 0}},
    {0x2D, {XK_Insert, XK_KP_Insert}},
    {0x2E, {XK_Delete, XK_KP_Delete}},
    {0x2F, {XK_Help, 0}},
    {0x5B, {XK_Super_L, 0}},
    {0x5C, {XK_Super_R, 0}},
    {0x5D, {XK_Menu, 0}},
    {0x6A, {XK_KP_Multiply, 0}},
    {0x6B, {XK_KP_Add, 0}},
    {0x6C, {XK_KP_Separator, 0}},
    {0x6D, {XK_KP_Subtract, 0}},
    {0x6E, {XK_KP_Decimal, 0}},
    {0x6F, {XK_KP_Divide, 0}},
    {0x90, {XK_Num_Lock, 0}},
    {0x91, {XK_Scroll_Lock, 0}},
    {0xA0, {XK_Shift_L, 0}},
    {0xA1, {XK_Shift_R, 0}},
    {0xA2, {XK_Control_L, 0}},
    {0xA3, {XK_Control_R, 0}},
    {0xA4, {XK_Alt_L, 0}},
    {0xA5, {XK_Alt_R, 0}},
    {0xBA, {XK_colon, 0}},
    {0xBB, {XK_semicolon, 0}},
    {0xBC, {XK_comma, 0}},
    {0xBD, {XK_minus, 0}},
    {0xBE, {XK_period, 0}},
    {0xBF, {XK_slash, 0}},
    {0xC0, {XK_at, XK_grave}},
    {0xDB, {XK_bracketleft, 0}},
    {0xDC, {XK_backslash, XK_yen}},
    {0xDD, {XK_bracketright, 0}},
    {0xDE, {XK_asciicircum, XK_apostrophe}},
};

// The symbols of a key by its virtual number; zeros for a number without a key.
std::array<KeySym, 2> SymbolsOf(std::int32_t key) {
    const auto offset = [key](std::int32_t first) { return static_cast<KeySym>(key - first); };
    if (key >= '0' && key <= '9') return {XK_0 + offset('0'), 0};
    if (key >= 'A' && key <= 'Z') return {XK_a + offset('A'), 0};
    if (key >= 0x60 && key <= 0x69) return {XK_KP_0 + offset(0x60), 0};
    if (key >= 0x70 && key <= 0x87) return {XK_F1 + offset(0x70), 0};
    for (const KeyRow& row : kKeys) {
        if (row.virtualKey == key) return row.symbols;
    }
    return {0, 0};
}

// The state bit of a mouse button by its virtual number; 0 for another number.
unsigned ButtonMask(std::int32_t key) {
    switch (key) {
        case 1: return Button1Mask;
        case 2: return Button3Mask;
        case 4: return Button2Mask;
        default: return 0;
    }
}

bool IsButtonDown(Display* display, unsigned mask) {
    Window root = None;
    Window child = None;
    int rootX = 0;
    int rootY = 0;
    int x = 0;
    int y = 0;
    unsigned state = 0;
    XQueryPointer(display, DefaultRootWindow(display), &root, &child, &rootX, &rootY, &x, &y,
                  &state);
    return (state & mask) != 0;
}

}  // namespace

std::vector<X11Window> X11ListWindows() {
    Display* display = X11Connection();
    const X11ErrorsIgnored ignored(display);
    std::vector<Window> ids =
        IsManaged(display)
            ? Property<Window>(display, DefaultRootWindow(display), "_NET_CLIENT_LIST_STACKING", 32)
            : BareWindows(display);
    // Both have the hindmost window first.
    std::reverse(ids.begin(), ids.end());
    std::vector<X11Window> windows;
    for (const Window id : ids) {
        if (!IsFurniture(display, id)) windows.push_back(Describe(display, id));
    }
    return windows;
}

std::u16string X11ActiveTitle() {
    Display* display = X11Connection();
    const X11ErrorsIgnored ignored(display);
    const Window active = ActiveWindow(display);
    return active == None ? std::u16string() : TitleOf(display, active);
}

void X11Activate(unsigned long window) {
    Display* display = X11Connection();
    const X11ErrorsIgnored ignored(display);
    AskForFront(display, window);
    XFlush(display);
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (ActiveWindow(display) != window) {
        if (std::chrono::steady_clock::now() > end) throw Failure(failure::kBadCall);
        std::this_thread::sleep_for(kPause);
    }
}

bool X11IsKeyDown(std::int32_t virtualKey) {
    Display* display = X11Connection();
    if (const unsigned mask = ButtonMask(virtualKey)) return IsButtonDown(display, mask);
    std::array<char, 32> down = {};
    XQueryKeymap(display, down.data());
    const auto isDown = [&](KeySym symbol) {
        const KeyCode code = symbol == 0 ? KeyCode{0} : XKeysymToKeycode(display, symbol);
        return code != 0 && (down[code / 8u] >> (code % 8) & 1) != 0;
    };
    const std::array<KeySym, 2> symbols = SymbolsOf(virtualKey);
    return std::any_of(symbols.begin(), symbols.end(), isDown);
}

}  // namespace velm
