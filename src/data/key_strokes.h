// Texts of keys to press, such as "^a{DEL}株式会社{TAB 2}%{F4}", as lists of key strokes.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace velm {

enum class StrokeKey : std::uint8_t {
    kCharacter,  // the key, or keys, that type the character
    kBackspace,
    kBreak,
    kCapsLock,
    kDelete,
    kDown,
    kEnd,
    kEnter,
    kEscape,
    kHelp,
    kHome,
    kInsert,
    kLeft,
    kNumLock,
    kPageDown,
    kPageUp,
    kPrintScreen,
    kRight,
    kScrollLock,
    kTab,
    kUp,
    kF1,  // kF2 to kF16 follow it
    kF16 = kF1 + 15,
};

// Modifiers that are held while a key is pressed.
namespace stroke {
constexpr std::int32_t kShift = 1;
constexpr std::int32_t kControl = 2;
constexpr std::int32_t kAlt = 4;
}  // namespace stroke

struct KeyStroke {
    StrokeKey key = StrokeKey::kCharacter;
    char32_t character = 0;  // with kCharacter
    std::int32_t modifiers = 0;
    std::int32_t count = 1;  // how often the key is pressed

    bool operator==(const KeyStroke&) const = default;
};

// Characters stand for themselves, but for these:
//
//   + ^ %        the next key, or group, is pressed with shift, control, alt
//   ( )          a group
//   ~            the enter key
//   {NAME}       a key by name: {ENTER}, {F1}, {BS} …; {+} and other signs for themselves
//   {NAME 4}     the key four times; {h 10} too
//
// CR LF, CR and LF are the enter key, a tab the tab key. Letters with control or alt are plain keys: ^C is
// ^c. Throws Failure(5) for a text that doesn't follow the grammar, 6 for a count above 32767.
std::vector<KeyStroke> ParseKeyStrokes(std::u16string_view text);

// Every character for itself; only line ends and tabs are keys.
std::vector<KeyStroke> PlainKeyStrokes(std::u16string_view text);

}  // namespace velm
