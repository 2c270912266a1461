// The width table: which characters have a half-width and a full-width form.
// Sources of the facts: the Unicode chart "Halfwidth and Fullwidth Forms" (U+FF00 to U+FFEF), and
// the repertoire of code page 932, which decides what is left out.
#include "data/width_table.h"

#include <array>
#include <cstddef>
#include <string_view>

namespace velm {
namespace {

constexpr char16_t kFirstAscii = 0x21;
constexpr char16_t kLastAscii = 0x7E;
constexpr char16_t kFullOffset = 0xFEE0;
constexpr char16_t kFirstHalfKana = 0xFF61;
constexpr char16_t kLastHalfKana = 0xFF9F;
constexpr char16_t kFirstFullKana = 0x3001;
constexpr char16_t kLastFullKana = 0x30FF;
constexpr char16_t kVoicedMark = u'ﾞ';
constexpr char16_t kSemiVoicedMark = u'ﾟ';

struct WidthPair {
    char16_t half;
    char16_t full;
};

// Pairs that are not told by the offset between ASCII and its full-width forms. The first five go
// by the Japanese partner: code page 932 has no full-width straight quotes of its own, and shows
// the backslash as a yen sign.
constexpr WidthPair kPairs[] = {
    {u' ', u'\u3000'},      {u'"', u'\u201D'},      {u'\'', u'\u2019'},     {u'`', u'\u2018'},
    {u'\\', u'\uFFE5'},     {u'\u00A2', u'\uFFE0'}, {u'\u00A3', u'\uFFE1'}, {u'\u00AC', u'\uFFE2'},
    {u'\u00AF', u'\uFFE3'}, {u'\u00A6', u'\uFFE4'}, {u'\u20A9', u'\uFFE6'},
};

// One way only: forms that meet a character whose partner is another one.
constexpr WidthPair kNarrowOnly[] = {{u'"', u'\u201C'}};
constexpr WidthPair kWidenOnly[] = {{u'\u00A5', u'\uFFE5'}};

// The full-width forms of U+FF61 to U+FF9F.
constexpr std::u16string_view kKana =
    u"。「」、・ヲァィゥェォャュョッーアイウエオカキクケコサシスセソタチツテトナニヌネノハヒフヘホ"
    u"マミムメモヤユヨラリルレロワン゛゜";
static_assert(kKana.size() == kLastHalfKana - kFirstHalfKana + 1);

struct VoicedPair {
    char16_t plain;
    char16_t mark;
    char16_t voiced;
};

// ヷ and ヺ are left out: code page 932 does not have them.
constexpr VoicedPair kVoiced[] = {
    {u'ウ', u'ﾞ', u'ヴ'}, {u'カ', u'ﾞ', u'ガ'}, {u'キ', u'ﾞ', u'ギ'}, {u'ク', u'ﾞ', u'グ'},
    {u'ケ', u'ﾞ', u'ゲ'}, {u'コ', u'ﾞ', u'ゴ'}, {u'サ', u'ﾞ', u'ザ'}, {u'シ', u'ﾞ', u'ジ'},
    {u'ス', u'ﾞ', u'ズ'}, {u'セ', u'ﾞ', u'ゼ'}, {u'ソ', u'ﾞ', u'ゾ'}, {u'タ', u'ﾞ', u'ダ'},
    {u'チ', u'ﾞ', u'ヂ'}, {u'ツ', u'ﾞ', u'ヅ'}, {u'テ', u'ﾞ', u'デ'}, {u'ト', u'ﾞ', u'ド'},
    {u'ハ', u'ﾞ', u'バ'}, {u'ヒ', u'ﾞ', u'ビ'}, {u'フ', u'ﾞ', u'ブ'}, {u'ヘ', u'ﾞ', u'ベ'},
    {u'ホ', u'ﾞ', u'ボ'}, {u'ハ', u'ﾟ', u'パ'}, {u'ヒ', u'ﾟ', u'ピ'}, {u'フ', u'ﾟ', u'プ'},
    {u'ヘ', u'ﾟ', u'ペ'}, {u'ホ', u'ﾟ', u'ポ'},
};

// The Japanese punctuation and kana block, from full to half: written out once, so that a lookup is
// one step. A letter of 0 stands for no half-width form.
using KanaForms = std::array<HalfForm, kLastFullKana - kFirstFullKana + 1>;

constexpr std::size_t KanaIndex(char16_t unit) {
    return static_cast<std::size_t>(unit - kFirstFullKana);
}

constexpr KanaForms MakeKanaForms() {
    KanaForms forms{};
    char16_t half = kFirstHalfKana;
    for (const char16_t full : kKana) forms[KanaIndex(full)] = {half++, 0};
    for (const VoicedPair& pair : kVoiced) {
        forms[KanaIndex(pair.voiced)] = {forms[KanaIndex(pair.plain)].letter, pair.mark};
    }
    return forms;
}

constexpr KanaForms kKanaForms = MakeKanaForms();

}  // namespace

char16_t FullFormOf(char16_t unit) {
    if (unit >= kFirstHalfKana && unit <= kLastHalfKana) {
        return kKana[static_cast<std::size_t>(unit - kFirstHalfKana)];
    }
    if (unit > u'\u20A9') return unit;
    for (const WidthPair& pair : kPairs) {
        if (pair.half == unit) return pair.full;
    }
    for (const WidthPair& pair : kWidenOnly) {
        if (pair.half == unit) return pair.full;
    }
    if (unit < kFirstAscii || unit > kLastAscii) return unit;
    return static_cast<char16_t>(unit + kFullOffset);
}

HalfForm HalfFormOf(char16_t unit) {
    if (unit >= kFirstFullKana && unit <= kLastFullKana) {
        const HalfForm form = kKanaForms[KanaIndex(unit)];
        return form.letter != 0 ? form : HalfForm{unit, 0};
    }
    if (unit >= kFirstAscii + kFullOffset && unit <= kLastAscii + kFullOffset) {
        return {static_cast<char16_t>(unit - kFullOffset), 0};
    }
    if (unit < u'\u2018' || (unit > u'\u3000' && unit < u'\uFFE0')) return {unit, 0};
    for (const WidthPair& pair : kPairs) {
        if (pair.full == unit) return {pair.half, 0};
    }
    for (const WidthPair& pair : kNarrowOnly) {
        if (pair.full == unit) return {pair.half, 0};
    }
    return {unit, 0};
}

char16_t VoicedLetter(char16_t letter, char16_t mark) {
    const char16_t half = mark == u'゛' ? kVoicedMark : mark == u'゜' ? kSemiVoicedMark : mark;
    if (half != kVoicedMark && half != kSemiVoicedMark) return 0;
    for (const VoicedPair& pair : kVoiced) {
        if (pair.plain == letter && pair.mark == half) return pair.voiced;
    }
    return 0;
}

}  // namespace velm
