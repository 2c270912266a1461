// The words for keys, as the names of key procedures have them.
#include "objects/events.h"

namespace velm {

namespace {

namespace key {
constexpr std::int32_t kBackspace = 8;
constexpr std::int32_t kTab = 9;
constexpr std::int32_t kEnter = 13;
constexpr std::int32_t kShift = 16;
constexpr std::int32_t kControl = 17;
constexpr std::int32_t kAlt = 18;
constexpr std::int32_t kBackslash = 226;
}  // namespace key

struct KeyRange {
    std::int32_t first;
    std::int32_t last;
    std::int32_t offset;  // from the key's number to its character
};

// Kept: function keys, the space bar and the arrows have no name of their own.
constexpr KeyRange kCharacterKeys[] = {{47, 90, 0}, {186, 191, 144}, {192, 223, 128}};

std::u16string PlainKeyName(std::int32_t code) {
    switch (code) {
        case key::kEnter: return u"エンター";
        case key::kBackspace: return u"BackSpace";
        case key::kTab: return u"Tab";
        case key::kBackslash: return u"_";
        default: break;
    }
    for (const KeyRange& range : kCharacterKeys) {
        if (code < range.first || code > range.last) continue;
        return std::u16string(1, static_cast<char16_t>(code - range.offset));
    }
    return {};
}

struct ModifierWord {
    std::int32_t bit;
    std::int32_t code;
    std::u16string_view word;
};

// Each goes in front of the name so far.
constexpr ModifierWord kModifierWords[] = {
    {shift_state::kShift, key::kShift, u"シフト＋"},
    {shift_state::kAlt, key::kAlt, u"オルト＋"},
    {shift_state::kControl, key::kControl, u"コントロール＋"},
};

}  // namespace

std::u16string KeyName(std::int32_t code, std::int32_t shift) {
    std::u16string name = PlainKeyName(code);
    for (const ModifierWord& modifier : kModifierWords) {
        if ((shift & modifier.bit) != 0 && code != modifier.code) name.insert(0, modifier.word);
    }
    return name;
}

}  // namespace velm
