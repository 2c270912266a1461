// Lists of words and colour words.
#include "core/word_lists.h"

#include <array>
#include <optional>
#include <utility>

#include "core/eval.h"
#include "data/brackets.h"
#include "data/failure.h"
#include "data/lists.h"
#include "data/numbers.h"
#include "data/resources.h"
#include "data/text.h"
#include "data/width.h"

namespace velm {

std::vector<std::u16string> SplitOutsideBrackets(std::u16string_view text,
                                                 std::u16string_view needle, bool evaluate) {
    std::u16string joined;
    std::size_t from = 0;
    while (true) {
        const std::size_t hit = FindOutsideBrackets(text, needle, from + 1);
        const std::size_t end = hit == 0 ? text.size() : hit - 1;
        const std::u16string_view part = text.substr(from, end - from);
        joined.append(evaluate ? EvalText(part).Text() : std::u16string(part));
        if (hit == 0) break;
        joined += u'\t';
        from = end + needle.size();
    }
    const std::vector<std::u16string_view> parts = Split(joined, u"\t");
    return {parts.begin(), parts.end()};
}

std::vector<std::u16string> SplitList(std::u16string_view text, bool evaluate) {
    const std::u16string normalised = NormaliseCommas(text);
    std::vector<std::u16string> items;
    for (const std::u16string_view piece : CutAtCommas(normalised)) {
        items.push_back(
            EscapeItem(evaluate ? EvalText(piece).Text() : std::u16string(Trim(piece))));
    }
    if (items.size() == 1) items[0] = UnescapeItem(items[0]);
    return items;
}

namespace {

// The 16 colours of the palette, as 0xBBGGRR.
constexpr std::array<std::int32_t, 16> kPalette = {
    0x000000, 0x800000, 0x008000, 0x808000, 0x000080, 0x800080, 0x008080, 0xC0C0C0,
    0x808080, 0xFF0000, 0x00FF00, 0xFFFF00, 0x0000FF, 0xFF00FF, 0x00FFFF, 0xFFFFFF,
};

// The colours of the desktop, numbers 16 to 22.
constexpr std::array<std::uint32_t, 7> kSystemColors = {
    0x8000000F, 0x80000008, 0x80000001, 0x80000018, 0x80000002, 0x80000003, 0x8000000D,
};

// What the table says for a word, tried as it is and without 色 or いろ behind it.
std::u16string LookUpColor(const std::u16string& word) {
    std::u16string found = ResourceValue(kColorWords, word);
    if (found.empty() && word.ends_with(u'色')) {
        found = ResourceValue(kColorWords, TrimRight(word, 1));
    }
    if (found.empty() && word.ends_with(u"いろ")) {
        found = ResourceValue(kColorWords, TrimRight(word, 2));
    }
    return found.empty() ? word : found;
}

std::int32_t HexPair(std::u16string_view text, std::size_t at) {
    if (at >= text.size()) return 0;
    return ParseInt32(u"&h" + std::u16string(text.substr(at, 2))).value_or(0);
}

std::int32_t ColorOfHex(const std::u16string& text) {
    constexpr std::size_t kFullLength = 10;
    if (text.size() == kFullLength) return ParseInt32(text).value_or(0);
    return HexPair(text, 2) | HexPair(text, 4) << 8 | HexPair(text, 6) << 16;
}

std::int32_t ColorOfNumber(std::int32_t number) {
    constexpr std::int32_t kFirstSystem = 16;
    if (number >= kFirstSystem && number <= 22) {
        return static_cast<std::int32_t>(
            kSystemColors[static_cast<std::size_t>(number - kFirstSystem)]);
    }
    if (number < 0 || number >= kFirstSystem) throw Failure(failure::kBadCall);
    return kPalette[static_cast<std::size_t>(number)];
}

// No word dictionary is in force while a colour word is evaluated, nor afterwards.
Value EvalWithoutWords(const Word& word) {
    wordDictionary = nullptr;
    return EvalWord(word);
}

}  // namespace

std::int32_t ParseColor(const Word& word) {
    const Value value = EvalWithoutWords(word);
    std::u16string text = value.Text();
    if (!value.IsNumeric()) text = LookUpColor(text);
    text = Trim(std::u16string(text));
    if (ToLower(std::u16string_view(text).substr(0, 2)) == u"&h") return ColorOfHex(text);
    if (text.starts_with(u'#')) {
        return ParseInt32(std::u16string_view(text).substr(1)).value_or(0);
    }
    const std::optional<double> number = ParseNumber(text);
    if (!number) throw Failure(failure::kTypeMismatch);
    return ColorOfNumber(ToInt32(*number));
}

std::u16string ColorToText(std::int32_t color) {
    constexpr std::u16string_view kDigits = u"0123456789ABCDEF";
    const auto bits = static_cast<std::uint32_t>(color);
    std::u16string text = u"&h";
    if (color < 0) {
        for (int shift = 28; shift >= 0; shift -= 4) text += kDigits[(bits >> shift) & 0xF];
        return text;
    }
    for (const int shift : {4, 0, 12, 8, 20, 16}) text += kDigits[(bits >> shift) & 0xF];
    return text;
}

}  // namespace velm
