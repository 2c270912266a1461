// Keys of the toolkit as virtual key codes.
#include "platform/qt/qt_keys.h"

#include <QKeyEvent>
#include <algorithm>
#include <iterator>

#include "platform/toolkit.h"

namespace velm {

namespace {

struct KeyRow {
    int key;
    std::int32_t code;
};

constexpr KeyRow kKeys[] = {
    {Qt::Key_Backspace, 8},
    {Qt::Key_Tab, 9},
    {Qt::Key_Backtab, 9},
    {Qt::Key_Clear, 12},
    {Qt::Key_Return, 13},
    {Qt::Key_Enter, 13},
    {Qt::Key_Shift, 16},
    {Qt::Key_Control, 17},
    {Qt::Key_Alt, 18},
    {Qt::Key_AltGr, 18},
    {Qt::Key_Pause, 19},
    {Qt::Key_CapsLock, 20},
    {Qt::Key_Kana_Lock, 21},
    {Qt::Key_Kanji, 25},
    {Qt::Key_Escape, 27},
    {Qt::Key_Henkan, 28},
    {Qt::Key_Muhenkan, 29},
    {Qt::Key_Space, 32},
    {Qt::Key_PageUp, 33},
    {Qt::Key_PageDown, 34},
    {Qt::Key_End, 35},
    {Qt::Key_Home, 36},
    {Qt::Key_Left, 37},
    {Qt::Key_Up, 38},
    {Qt::Key_Right, 39},
    {Qt::Key_Down, 40},
    {Qt::Key_Select, 41},
    {Qt::Key_Execute, 43},
    {Qt::Key_Print, 44},
    {Qt::Key_Insert, 45},
    {Qt::Key_Delete, 46},
    {Qt::Key_Help, 47},
    {Qt::Key_Meta, 91},
    {Qt::Key_Super_L, 91},
    {Qt::Key_Super_R, 92},
    {Qt::Key_Menu, 93},
    {Qt::Key_NumLock, 144},
    {Qt::Key_ScrollLock, 145},
    {Qt::Key_Eisu_toggle, 240},
    {Qt::Key_Hiragana_Katakana, 242},
    {Qt::Key_Zenkaku_Hankaku, 243},
    // The keys of signs, with and without shift.
    {Qt::Key_Colon, 186},
    {Qt::Key_Asterisk, 186},
    {Qt::Key_Semicolon, 187},
    {Qt::Key_Plus, 187},
    {Qt::Key_Comma, 188},
    {Qt::Key_Less, 188},
    {Qt::Key_Minus, 189},
    {Qt::Key_Equal, 189},
    {Qt::Key_Period, 190},
    {Qt::Key_Greater, 190},
    {Qt::Key_Slash, 191},
    {Qt::Key_Question, 191},
    {Qt::Key_At, 192},
    {Qt::Key_QuoteLeft, 192},
    {Qt::Key_BracketLeft, 219},
    {Qt::Key_BraceLeft, 219},
    {Qt::Key_Backslash, 220},
    {Qt::Key_Bar, 220},
    {Qt::Key_yen, 220},
    {Qt::Key_BracketRight, 221},
    {Qt::Key_BraceRight, 221},
    {Qt::Key_AsciiCircum, 222},
    {Qt::Key_AsciiTilde, 222},
    {Qt::Key_Underscore, 226},
    {Qt::Key_Exclam, '1'},
    {Qt::Key_QuoteDbl, '2'},
    {Qt::Key_NumberSign, '3'},
    {Qt::Key_Dollar, '4'},
    {Qt::Key_Percent, '5'},
    {Qt::Key_Ampersand, '6'},
    {Qt::Key_Apostrophe, '7'},
    {Qt::Key_ParenLeft, '8'},
    {Qt::Key_ParenRight, '9'},
};

constexpr KeyRow kKeypad[] = {
    {Qt::Key_Asterisk, 106}, {Qt::Key_Plus, 107},   {Qt::Key_Comma, 108},
    {Qt::Key_Minus, 109},    {Qt::Key_Period, 110}, {Qt::Key_Slash, 111},
};

// Key codes of X11 and Wayland for keys that no symbol tells: the digits above the letters, whose
// shifted signs differ from keyboard to keyboard, and two keys of the Japanese one.
constexpr quint32 kScanOne = 10;
constexpr quint32 kScanZero = 19;
constexpr quint32 kScanRo = 97;
constexpr quint32 kScanYen = 132;

template <std::size_t kCount>
std::int32_t CodeOf(const KeyRow (&rows)[kCount], int key) {
    const auto* const row = std::find_if(std::begin(rows), std::end(rows),
                                         [key](const KeyRow& each) { return each.key == key; });
    return row == std::end(rows) ? 0 : row->code;
}

std::int32_t CodeOfScan(quint32 scan) {
    if (scan >= kScanOne && scan < kScanZero)
        return static_cast<std::int32_t>('1' + scan - kScanOne);
    if (scan == kScanZero) return '0';
    if (scan == kScanRo) return 226;
    return scan == kScanYen ? 220 : 0;
}

std::int32_t CodeOfKeypad(int key) {
    if (key >= Qt::Key_0 && key <= Qt::Key_9) return 96 + key - Qt::Key_0;
    return CodeOf(kKeypad, key);
}

}  // namespace

std::int32_t VirtualKey(const QKeyEvent& event) {
    const int key = event.key();
    if (event.modifiers().testFlag(Qt::KeypadModifier)) {
        if (const std::int32_t code = CodeOfKeypad(key); code != 0) return code;
    }
    if ((key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9))
        return key;
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24) return 112 + key - Qt::Key_F1;
    const bool isSign = key > Qt::Key_Space && key < Qt::Key_Escape;
    if (isSign) {
        if (const std::int32_t code = CodeOfScan(event.nativeScanCode()); code != 0) return code;
    }
    return CodeOf(kKeys, key);
}

std::int32_t ShiftState(Qt::KeyboardModifiers modifiers) {
    std::int32_t state = 0;
    if (modifiers.testFlag(Qt::ShiftModifier)) state |= shift_state::kShift;
    if (modifiers.testFlag(Qt::ControlModifier)) state |= shift_state::kControl;
    if (modifiers.testFlag(Qt::AltModifier)) state |= shift_state::kAlt;
    return state;
}

bool TypesText(const QKeyEvent& event) {
    return event.key() != Qt::Key_Delete && !event.modifiers().testFlag(Qt::AltModifier) &&
           !event.text().isEmpty();
}

bool TypesWithAlt(const QKeyEvent& event) {
    return event.modifiers().testFlag(Qt::AltModifier) && !event.text().isEmpty() &&
           event.text().at(0).isPrint();
}

}  // namespace velm
