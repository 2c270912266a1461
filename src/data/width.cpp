// Width, kana and letter case of text, and the key form of names. See width.h for what each map
// leaves alone, and width_table.cpp for the characters.
#include "data/width.h"

#include <cstddef>

#include "data/width_table.h"

namespace velm {
namespace {

constexpr char16_t kKanaOffset = u'ァ' - u'ぁ';

bool Between(char16_t unit, char16_t first, char16_t last) { return unit >= first && unit <= last; }

bool IsHalfKana(char16_t unit) { return Between(unit, u'｡', u'ﾟ'); }

char16_t Moved(char16_t unit, int distance) { return static_cast<char16_t>(unit + distance); }

char16_t HiraganaOf(char16_t unit) {
    const bool maps = Between(unit, u'ァ', u'ン') || unit == u'ヽ' || unit == u'ヾ';
    return maps ? Moved(unit, -kKanaOffset) : unit;
}

char16_t KatakanaOf(char16_t unit) {
    const bool maps = Between(unit, u'ぁ', u'\u3096') || unit == u'ゝ' || unit == u'ゞ';
    return maps ? Moved(unit, kKanaOffset) : unit;
}

// Greek has its accented letters scattered before the plain ones.
char16_t UpperGreek(char16_t unit) {
    switch (unit) {
        case u'ά': return u'Ά';
        case u'έ':
        case u'ή':
        case u'ί': return Moved(unit, -37);
        case u'ό': return u'Ό';
        case u'ύ':
        case u'ώ': return Moved(unit, -63);
        case u'ς': return u'Σ';
        default: return Between(unit, u'α', u'ϋ') ? Moved(unit, -32) : unit;
    }
}

char16_t LowerGreek(char16_t unit) {
    switch (unit) {
        case u'Ά': return u'ά';
        case u'Έ':
        case u'Ή':
        case u'Ί': return Moved(unit, 37);
        case u'Ό': return u'ό';
        case u'Ύ':
        case u'Ώ': return Moved(unit, 63);
        default: {
            const bool unassigned = unit == u'\u03A2';
            return Between(unit, u'Α', u'Ϋ') && !unassigned ? Moved(unit, 32) : unit;
        }
    }
}

// From here on no letter has a case up to the full-width Latin: kana, kanji.
constexpr char16_t kFirstWithoutCase = u'\u0500';
bool HasNoCase(char16_t unit) { return Between(unit, kFirstWithoutCase, u'\uFEFF'); }

char16_t UpperOf(char16_t unit) {
    if (HasNoCase(unit)) return unit;
    if (unit < 0x80) return Between(unit, u'a', u'z') ? Moved(unit, -32) : unit;
    if (unit < 0x100) {
        if (unit == u'ÿ') return u'Ÿ';
        return Between(unit, u'à', u'þ') && unit != u'÷' ? Moved(unit, -32) : unit;
    }
    if (Between(unit, u'ά', u'ώ')) return UpperGreek(unit);
    if (Between(unit, u'а', u'я')) return Moved(unit, -32);
    if (Between(unit, u'ѐ', u'џ')) return Moved(unit, -80);
    return Between(unit, u'ａ', u'ｚ') ? Moved(unit, -32) : unit;
}

char16_t LowerOf(char16_t unit) {
    if (HasNoCase(unit)) return unit;
    if (unit < 0x80) return Between(unit, u'A', u'Z') ? Moved(unit, 32) : unit;
    if (unit < 0x100) {
        return Between(unit, u'À', u'Þ') && unit != u'×' ? Moved(unit, 32) : unit;
    }
    if (unit == u'Ÿ') return u'ÿ';
    if (Between(unit, u'Ά', u'Ϋ')) return LowerGreek(unit);
    if (Between(unit, u'А', u'Я')) return Moved(unit, 32);
    if (Between(unit, u'Ѐ', u'Џ')) return Moved(unit, 80);
    return Between(unit, u'Ａ', u'Ｚ') ? Moved(unit, 32) : unit;
}

template <typename Map>
void MapInPlace(std::u16string& text, Map map) {
    for (char16_t& unit : text) unit = map(unit);
}

template <typename Map>
std::u16string MapUnits(std::u16string_view text, Map map) {
    std::u16string result(text);
    MapInPlace(result, map);
    return result;
}

// The key form takes letters and signs half-width, kana and their punctuation full-width.
char16_t FoldedUnit(char16_t unit) {
    if (unit < 0x80) return UpperOf(unit);
    if (Between(unit, u'\u3001', u'\uD7FF')) return unit;
    if (IsHalfKana(unit)) return FullFormOf(unit);
    if (unit == u'¥') return u'\\';
    return UpperOf(HalfFormOf(unit).letter);
}

bool IsVoicingMark(char16_t unit) { return unit == u'゛' || unit == u'゜'; }

// Where folding first changes something; the length of the name where it never does.
std::size_t FirstFolded(std::u16string_view name) {
    std::size_t at = 0;
    while (at < name.size() && FoldedUnit(name[at]) == name[at] && !IsVoicingMark(name[at])) ++at;
    return at;
}

}  // namespace

std::u16string ToFullWidth(std::u16string_view text) {
    std::u16string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        char16_t full = FullFormOf(text[i]);
        if (IsHalfKana(text[i]) && i + 1 < text.size() && IsHalfKana(text[i + 1])) {
            if (const char16_t voiced = VoicedLetter(full, text[i + 1]); voiced != 0) {
                full = voiced;
                ++i;
            }
        }
        result.push_back(full);
    }
    return result;
}

std::u16string ToHalfWidth(std::u16string_view text) {
    std::u16string result;
    result.reserve(text.size());
    for (const char16_t unit : text) {
        const HalfForm half = HalfFormOf(unit);
        result.push_back(half.letter);
        if (half.mark != 0) result.push_back(half.mark);
    }
    return result;
}

std::u16string ToHiragana(std::u16string_view text) { return MapUnits(text, HiraganaOf); }

std::u16string ToKatakana(std::u16string_view text) { return MapUnits(text, KatakanaOf); }

std::u16string ToUpper(std::u16string_view text) { return MapUnits(text, UpperOf); }

std::u16string ToLower(std::u16string_view text) { return MapUnits(text, LowerOf); }

void MakeUpper(std::u16string& text) { MapInPlace(text, UpperOf); }

void MakeLower(std::u16string& text) { MapInPlace(text, LowerOf); }

std::u16string FoldName(std::u16string_view name) {
    std::size_t at = FirstFolded(name);
    std::u16string key(name.substr(0, at));
    for (; at < name.size(); ++at) {
        const char16_t unit = FoldedUnit(name[at]);
        // The mark joins whichever width it has: the half-width form of カ゛ is a pair too.
        const char16_t voiced =
            IsVoicingMark(unit) && !key.empty() ? VoicedLetter(key.back(), unit) : char16_t{0};
        if (voiced != 0) {
            key.back() = voiced;
        } else {
            key.push_back(unit);
        }
    }
    return key;
}

bool SameName(std::u16string_view left, std::u16string_view right) {
    return left == right || FoldName(left) == FoldName(right);
}

}  // namespace velm
