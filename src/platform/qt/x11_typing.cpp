// Typing on the X display.
#include "platform/qt/x11_typing.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTimer>
#include <algorithm>
#include <array>
#include <cstdlib>
#include <optional>
#include <utility>

#include "data/failure.h"
#include "platform/qt/x11_connection.h"

// Behind the toolkit's headers, for its macros.
#include <X11/XKBlib.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>

namespace velm {

namespace {

// How long a program may take to look a key up after it was pressed: it asks for the mapping only then.
constexpr int kTimeToLookUp = 1000;  // milliseconds
constexpr int kShortTimeToLookUp = 300;

constexpr KeySym kUnicodeSymbols = 0x01000000;

struct KeyPlace {
    KeyCode code = 0;
    bool shifted = false;
};

// Characters that stand on unused keys for a while.
struct Borrowed {
    std::vector<KeyCode> free;
    std::vector<std::pair<char32_t, KeyCode>> used;
    bool isListed = false;
    QTimer* restorer = nullptr;
} borrowed;

KeySym SymbolOfKey(StrokeKey key) {
    constexpr std::array kSymbols = {
        KeySym{0},         KeySym{XK_BackSpace}, KeySym{XK_Break},       KeySym{XK_Caps_Lock},
        KeySym{XK_Delete}, KeySym{XK_Down},      KeySym{XK_End},         KeySym{XK_Return},
        KeySym{XK_Escape}, KeySym{XK_Help},      KeySym{XK_Home},        KeySym{XK_Insert},
        KeySym{XK_Left},   KeySym{XK_Num_Lock},  KeySym{XK_Next},        KeySym{XK_Prior},
        KeySym{XK_Print},  KeySym{XK_Right},     KeySym{XK_Scroll_Lock}, KeySym{XK_Tab},
        KeySym{XK_Up},
    };
    const auto number = static_cast<std::size_t>(key);
    if (number < kSymbols.size()) return kSymbols[number];
    return XK_F1 + number - static_cast<std::size_t>(StrokeKey::kF1);
}

KeySym SymbolOfCharacter(char32_t character) {
    const bool isLatin =
        (character >= 0x20 && character <= 0x7E) || (character >= 0xA0 && character <= 0xFF);
    return isLatin ? static_cast<KeySym>(character) : kUnicodeSymbols + character;
}

// The key of the layout in force that gives a symbol, plainly or with shift.
std::optional<KeyPlace> Find(Display* display, KeySym symbol, int group) {
    int first = 0;
    int last = 0;
    XDisplayKeycodes(display, &first, &last);
    for (const int level : {0, 1}) {
        for (int code = first; code <= last; ++code) {
            const auto key = static_cast<KeyCode>(code);
            if (XkbKeycodeToKeysym(display, key, group, level) == symbol)
                return KeyPlace{key, level == 1};
        }
    }
    return std::nullopt;
}

void ListUnusedKeys(Display* display) {
    if (borrowed.isListed) return;
    borrowed.isListed = true;
    int first = 0;
    int last = 0;
    XDisplayKeycodes(display, &first, &last);
    int width = 0;
    KeySym* symbols =
        XGetKeyboardMapping(display, static_cast<KeyCode>(first), last - first + 1, &width);
    if (symbols == nullptr) return;
    for (int code = first; code <= last; ++code) {
        const KeySym* row = symbols + (code - first) * width;
        if (std::all_of(row, row + width, [](KeySym symbol) { return symbol == NoSymbol; }))
            borrowed.free.push_back(static_cast<KeyCode>(code));
    }
    XFree(symbols);
}

void MapKey(Display* display, KeyCode code, KeySym symbol) {
    std::array<KeySym, 2> symbols = {symbol, symbol};
    XChangeKeyboardMapping(display, code, static_cast<int>(symbols.size()), symbols.data(), 1);
}

// Our own windows are among those that look keys up.
void LetOthersLookUp() {
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < kShortTimeToLookUp)
        QCoreApplication::processEvents(QEventLoop::AllEvents, kShortTimeToLookUp);
}

KeyPlace Borrow(Display* display, char32_t character) {
    ListUnusedKeys(display);
    for (const auto& [there, code] : borrowed.used) {
        if (there == character) return {code, false};
    }
    if (borrowed.free.empty()) {
        LetOthersLookUp();
        X11RestoreKeyboard();
    }
    if (borrowed.free.empty()) throw Failure(failure::kBadCall);
    const KeyCode code = borrowed.free.back();
    borrowed.free.pop_back();
    borrowed.used.emplace_back(character, code);
    MapKey(display, code, SymbolOfCharacter(character));
    XSync(display, False);
    return {code, false};
}

void RestoreLater() {
    if (borrowed.used.empty()) return;
    if (borrowed.restorer == nullptr) {
        borrowed.restorer = new QTimer(QCoreApplication::instance());
        borrowed.restorer->setSingleShot(true);
        QObject::connect(borrowed.restorer, &QTimer::timeout, X11RestoreKeyboard);
        // The toolkit may be taken down before the process ends, or never.
        qAddPostRoutine(X11RestoreKeyboard);
        std::atexit([] { Attempt(X11RestoreKeyboard); });
    }
    borrowed.restorer->start(kTimeToLookUp);
}

bool IsLetter(char32_t character) {
    return (character >= U'a' && character <= U'z') || (character >= U'A' && character <= U'Z');
}

class Typist {
  public:
    explicit Typist(Display* display) : display_(display) {
        XkbStateRec state = {};
        XkbGetState(display, XkbUseCoreKbd, &state);
        group_ = state.group;
        capsLocked_ = (state.locked_mods & LockMask) != 0;
    }

    void Press(const KeyStroke& one) {
        const KeyPlace place = PlaceOf(one);
        if (place.code == 0) return;
        std::int32_t modifiers = one.modifiers;
        const bool flips = capsLocked_ && IsLetter(one.character);
        if (place.shifted != flips) modifiers |= stroke::kShift;
        Hold(modifiers, True);
        for (std::int32_t i = 0; i < one.count; ++i) {
            XTestFakeKeyEvent(display_, place.code, True, CurrentTime);
            XTestFakeKeyEvent(display_, place.code, False, CurrentTime);
        }
        Hold(modifiers, False);
        XFlush(display_);
    }

  private:
    Display* display_;
    int group_ = 0;
    bool capsLocked_ = false;

    // The key of a stroke; code 0 where the keyboard has none.
    KeyPlace PlaceOf(const KeyStroke& one) const {
        if (one.key != StrokeKey::kCharacter)
            return {XKeysymToKeycode(display_, SymbolOfKey(one.key)), false};
        const auto place = Find(display_, SymbolOfCharacter(one.character), group_);
        return place ? *place : Borrow(display_, one.character);
    }

    void Hold(std::int32_t modifiers, Bool down) const {
        constexpr std::pair<std::int32_t, KeySym> kModifiers[] = {
            {stroke::kShift, XK_Shift_L},
            {stroke::kControl, XK_Control_L},
            {stroke::kAlt, XK_Alt_L},
        };
        for (const auto& [modifier, symbol] : kModifiers) {
            if ((modifiers & modifier) == 0) continue;
            XTestFakeKeyEvent(display_, XKeysymToKeycode(display_, symbol), down, CurrentTime);
        }
    }
};

}  // namespace

void X11Type(const std::vector<KeyStroke>& strokes) {
    Display* display = X11Connection();
    int event = 0;
    int error = 0;
    int major = 0;
    int minor = 0;
    if (XTestQueryExtension(display, &event, &error, &major, &minor) == False)
        throw Failure(failure::kNoSuchMember);
    Typist typist(display);
    const bool typed = Attempt([&] {
        for (const KeyStroke& one : strokes) typist.Press(one);
    });
    XSync(display, False);
    RestoreLater();
    if (!typed) throw Failure(failure::kBadCall);
}

void X11RestoreKeyboard() {
    if (borrowed.used.empty()) return;
    Display* display = X11Connection();
    for (const auto& [character, code] : borrowed.used) {
        MapKey(display, code, NoSymbol);
        borrowed.free.push_back(code);
    }
    borrowed.used.clear();
    XSync(display, False);
}

}  // namespace velm
