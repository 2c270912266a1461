// See utf.h. Sequences are checked by the standard's table of well-formed byte sequences: the lead
// byte fixes the length and the range of the second byte, all others are 80 to BF.
#include "data/utf.h"

#include <cstdint>

#include "data/ascii_run.h"

namespace velm {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

// One non-ASCII sequence at the head of a text. A bad one tells how many bytes one U+FFFD stands for.
struct Sequence {
    char32_t point;
    std::size_t length;
    bool valid;
};

struct LeadRule {
    std::size_t length;  // 0: no lead byte
    std::uint8_t low;    // range of the second byte
    std::uint8_t high;
};

LeadRule RuleOf(std::uint8_t lead) {
    if (lead < 0xC2 || lead > 0xF4) {
        return {0, 0, 0};
    }
    if (lead < 0xE0) {
        return {2, 0x80, 0xBF};
    }
    if (lead < 0xF0) {
        return {3, static_cast<std::uint8_t>(lead == 0xE0 ? 0xA0 : 0x80),
                static_cast<std::uint8_t>(lead == 0xED ? 0x9F : 0xBF)};
    }
    return {4, static_cast<std::uint8_t>(lead == 0xF0 ? 0x90 : 0x80),
            static_cast<std::uint8_t>(lead == 0xF4 ? 0x8F : 0xBF)};
}

Sequence ReadSequence(std::string_view bytes) {
    const auto lead = static_cast<std::uint8_t>(bytes[0]);
    const LeadRule rule = RuleOf(lead);
    if (rule.length == 0) {
        return {kReplacement, 1, false};
    }
    char32_t point = lead & (0x7FU >> rule.length);
    for (std::size_t i = 1; i < rule.length; ++i) {
        const auto byte = static_cast<std::uint8_t>(i < bytes.size() ? bytes[i] : '\0');
        if (byte < (i == 1 ? rule.low : 0x80) || byte > (i == 1 ? rule.high : 0xBF)) {
            return {kReplacement, i, false};
        }
        point = point << 6 | (byte & 0x3FU);
    }
    return {point, rule.length, true};
}

char16_t* WriteUtf16(char32_t point, char16_t* to) {
    if (point < 0x10000) {
        *to++ = static_cast<char16_t>(point);
        return to;
    }
    *to++ = static_cast<char16_t>(0xD7C0 + (point >> 10));
    *to++ = static_cast<char16_t>(0xDC00 + (point & 0x3FF));
    return to;
}

void AppendUtf8(char32_t point, std::string& bytes) {
    const auto continuation = [point](unsigned shift) {
        return static_cast<char>(0x80 | (point >> shift & 0x3F));
    };
    if (point < 0x800) {
        bytes += {static_cast<char>(0xC0 | point >> 6), continuation(0)};
    } else if (point < 0x10000) {
        bytes += {static_cast<char>(0xE0 | point >> 12), continuation(6), continuation(0)};
    } else {
        bytes += {static_cast<char>(0xF0 | point >> 18), continuation(12), continuation(6),
                  continuation(0)};
    }
}

bool IsHighSurrogate(char16_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }

bool IsLowSurrogate(char16_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

// Takes the code point at the head of a text that isn't empty; a lone surrogate is U+FFFD.
char32_t TakePoint(std::u16string_view& text) {
    const char16_t unit = text[0];
    if (IsHighSurrogate(unit) && text.size() > 1 && IsLowSurrogate(text[1])) {
        const char16_t low = text[1];
        text.remove_prefix(2);
        return 0x10000U + ((unit & 0x3FFU) << 10) + (low & 0x3FFU);
    }
    text.remove_prefix(1);
    return IsHighSurrogate(unit) || IsLowSurrogate(unit) ? kReplacement : unit;
}

}  // namespace

std::u16string Utf8ToUtf16(std::string_view bytes) {
    std::u16string text(bytes.size(), u'\0');
    char16_t* to = text.data();
    while (!bytes.empty()) {
        const std::size_t run = AsciiPrefix(bytes);
        to = CopyAscii(bytes.substr(0, run), to);
        bytes.remove_prefix(run);
        if (!bytes.empty()) {
            const Sequence sequence = ReadSequence(bytes);
            to = WriteUtf16(sequence.point, to);
            bytes.remove_prefix(sequence.length);
        }
    }
    text.resize(static_cast<std::size_t>(to - text.data()));
    return text;
}

std::string Utf16ToUtf8(std::u16string_view text) {
    std::string bytes;
    const std::size_t head = AsciiPrefix(text);
    bytes.reserve(head + (text.size() - head) * 3);
    while (!text.empty()) {
        const std::size_t run = AsciiPrefix(text);
        const std::size_t size = bytes.size();
        bytes.resize(size + run);
        CopyAscii(text.substr(0, run), bytes.data() + size);
        text.remove_prefix(run);
        if (!text.empty()) {
            AppendUtf8(TakePoint(text), bytes);
        }
    }
    return bytes;
}

bool IsValidUtf8(std::string_view bytes) {
    while (!bytes.empty()) {
        bytes.remove_prefix(AsciiPrefix(bytes));
        if (bytes.empty()) {
            break;
        }
        const Sequence sequence = ReadSequence(bytes);
        if (!sequence.valid) {
            return false;
        }
        bytes.remove_prefix(sequence.length);
    }
    return true;
}

}  // namespace velm
