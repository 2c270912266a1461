// See encodings.h.
#include "data/encodings.h"

#include <algorithm>
#include <optional>

#include "data/ascii_run.h"
#include "data/code_page_932.h"
#include "data/text.h"

namespace velm {

namespace {

constexpr std::string_view kBase64Alphabet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::size_t kBase64LineLength = 72;
constexpr std::size_t kBase64PumpInterval = 100;

constexpr std::string_view kKanjiEscape = "\x1B$B";
constexpr std::string_view kSingleByteEscape = "\x1B(B";
constexpr char kEscape = '\x1B';
constexpr std::size_t kEscapeLength = 3;
constexpr char kEucKatakanaPrefix = '\x8E';
constexpr std::string_view kUnassignedPair = "\x81\x45";  // "・"
constexpr char kNoPlace = '?';

constexpr int kScrambleBase = 0x96;

std::uint8_t ByteAt(std::string_view bytes, std::size_t position) {
    return static_cast<std::uint8_t>(bytes[position]);
}

bool IsBetween(int value, int low, int high) { return value >= low && value <= high; }

// --- Base64

std::string Base64Characters(std::string_view bytes) {
    std::string text;
    text.reserve((bytes.size() + 2) / 3 * 4 + 2);
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        const std::size_t count = std::min<std::size_t>(bytes.size() - i, 3);
        unsigned group = 0;
        for (std::size_t k = 0; k < 3; ++k) {
            group = group << 8 | (k < count ? ByteAt(bytes, i + k) : 0U);
        }
        for (std::size_t k = 0; k <= count; ++k) {
            text += kBase64Alphabet[group >> (18 - 6 * k) & 0x3F];
        }
    }
    return text;
}

std::optional<unsigned> Base64Value(char16_t unit) {
    if (IsBetween(unit, u'A', u'Z')) {
        return unit - u'A';
    }
    if (IsBetween(unit, u'a', u'z')) {
        return unit - u'a' + 26U;
    }
    if (IsBetween(unit, u'0', u'9')) {
        return unit - u'0' + 52U;
    }
    if (unit == u'+' || unit == u'/') {
        return unit == u'+' ? 62U : 63U;
    }
    return std::nullopt;
}

// --- JIS X 0208 arithmetic, with the area behind row 94 counted on as Shift JIS does

struct BytePair {
    int first;
    int second;
};

BytePair ShiftJisToJis(std::uint8_t lead, std::uint8_t trail) {
    const bool evenRow = trail >= 0x9F;
    const int first = (lead - (lead <= 0x9F ? 0x81 : 0xC1)) * 2 + (evenRow ? 0x22 : 0x21);
    const int second = trail - (evenRow ? 0x7E : trail > 0x7F ? 0x20 : 0x1F);
    return {first, second};
}

std::optional<BytePair> JisToShiftJis(int first, int second) {
    constexpr int kLastRow = 0x98;
    if (!IsBetween(first, 0x21, kLastRow) || !IsBetween(second, 0x21, 0x7E)) {
        return std::nullopt;
    }
    const int row = (first - 0x21) / 2;
    const int lead = row + (row < 0x1F ? 0x81 : 0xC1);
    if (first % 2 == 0) {
        return BytePair{lead, second + 0x7E};
    }
    return BytePair{lead, second + (second < 0x60 ? 0x1F : 0x20)};
}

void AppendJisPair(int first, int second, std::string& bytes) {
    if (const auto pair = JisToShiftJis(first, second)) {
        bytes += {static_cast<char>(pair->first), static_cast<char>(pair->second)};
    } else {
        bytes += kUnassignedPair;
    }
}

// Kept: a LF becomes CR LF even behind a CR: such files come from systems that end lines with LF.
void AppendSingleByte(char byte, std::string& bytes) {
    if (byte == '\n') {
        bytes += '\r';
    }
    bytes += byte;
}

// The EUC form of a double-byte code, or "?" for one that lies outside of EUC's 94 rows.
void AppendEucPair(std::uint8_t lead, std::uint8_t trail, std::string& result) {
    const bool inRows = IsBetween(lead, 0x81, 0x9F) || IsBetween(lead, 0xE0, 0xEF);
    if (!inRows || trail > 0xFC) {
        result += kNoPlace;
        return;
    }
    const BytePair jis = ShiftJisToJis(lead, trail);
    result += {static_cast<char>(jis.first + 0x80), static_cast<char>(jis.second + 0x80)};
}

// --- UTF-8

bool IsContinuation(std::string_view bytes, std::size_t position) {
    return position < bytes.size() && IsBetween(ByteAt(bytes, position), 0x80, 0xBF);
}

// Length of the sequence at the head of `bytes`, 0 if there is none. Kept: neither overlong
// three-byte forms nor surrogates are refused, since TextToUtf8 writes surrogates.
std::size_t Utf8SequenceLength(std::string_view bytes) {
    const std::uint8_t lead = ByteAt(bytes, 0);
    if (lead <= 0x7F) {
        return 1;
    }
    if (IsBetween(lead, 0xC2, 0xDF)) {
        return IsContinuation(bytes, 1) ? 2 : 0;
    }
    const bool three = IsBetween(lead, 0xE0, 0xEF);
    return three && IsContinuation(bytes, 1) && IsContinuation(bytes, 2) ? 3 : 0;
}

char16_t Utf8Unit(std::string_view sequence) {
    const auto bits = [sequence](std::size_t i) { return ByteAt(sequence, i) & 0x3F; };
    if (sequence.size() == 1) {
        return ByteAt(sequence, 0);
    }
    if (sequence.size() == 2) {
        return static_cast<char16_t>((ByteAt(sequence, 0) & 0x1F) << 6 | bits(1));
    }
    return static_cast<char16_t>((ByteAt(sequence, 0) & 0x0F) << 12 | bits(1) << 6 | bits(2));
}

// --- URL form

bool IsPlainInUrl(std::uint8_t byte) {
    // Kept: "@" stays plain, as the range of the capitals begins with it.
    return IsBetween(byte, 0x40, 0x5A) || IsBetween(byte, 0x61, 0x7A) ||
           IsBetween(byte, 0x30, 0x39) || byte == '*' || byte == '-' || byte == '.' || byte == '_';
}

// The value of a hexadecimal digit, -1 for any other unit.
int HexValue(char16_t unit) {
    if (IsBetween(unit, u'0', u'9')) return unit - u'0';
    if (IsBetween(unit, u'A', u'F')) return unit - u'A' + 10;
    return IsBetween(unit, u'a', u'f') ? unit - u'a' + 10 : -1;
}

void AppendPercent(std::uint8_t byte, std::u16string& text) {
    constexpr std::u16string_view kDigits = u"0123456789ABCDEF";
    text += {u'%', kDigits[byte >> 4], kDigits[byte & 0x0F]};
}

// --- Scrambling

char16_t UnitOfCode(std::uint16_t code) {
    const auto low = static_cast<std::uint8_t>(code & 0xFF);
    return code > 0xFF ? DecodePair932(static_cast<std::uint8_t>(code >> 8), low)
                       : DecodeByte932(low);
}

// Whether the code stands for a character that is written by that very code.
bool IsOwnCode(std::uint16_t code) { return EncodeUnit932(UnitOfCode(code)) == code; }

bool HasOwnCode(char16_t unit) {
    const int code = EncodeUnit932(unit);
    return code >= 0 && UnitOfCode(static_cast<std::uint16_t>(code)) == unit;
}

// The code page gives a value to some characters only, and the scrambled values are mostly values of
// no character (already CR and LF fall on lead bytes). For the text to come back, every UTF-16 unit
// needs a value and every value a unit. The assignment of the code page is one to one where it is
// defined; following it backwards from a unit without a code ends at a value without a character,
// and forwards the same way back, so these two are taken for each other.
std::uint16_t ScrambleValue(char16_t unit) {
    if (HasOwnCode(unit)) {
        return static_cast<std::uint16_t>(EncodeUnit932(unit));
    }
    std::uint16_t value = unit;
    while (IsOwnCode(value)) {
        value = UnitOfCode(value);
    }
    return value;
}

char16_t UnitOfScrambleValue(std::uint16_t value) {
    if (IsOwnCode(value)) {
        return UnitOfCode(value);
    }
    char16_t unit = value;
    while (HasOwnCode(unit)) {
        unit = static_cast<char16_t>(EncodeUnit932(unit));
    }
    return unit;
}

}  // namespace

std::u16string EncodeBase64(std::string_view bytes) {
    std::string flat = Base64Characters(bytes);
    // Kept: the padding goes by three, not by four, so three bytes end in "==" as well. The decoder
    // stops at the first "=" and reads such a text correctly.
    const std::size_t over = flat.size() % 3;
    flat.append(over == 0 ? 0 : 3 - over, '=');
    std::u16string text;
    text.reserve(flat.size() + flat.size() / kBase64LineLength * 2);
    for (std::size_t start = 0; start < flat.size(); start += kBase64LineLength) {
        const auto line = std::string_view(flat).substr(start, kBase64LineLength);
        text += start == 0 ? std::u16string_view() : kCrLf;
        text.append(line.begin(), line.end());
    }
    return text;
}

std::string DecodeBase64(std::u16string_view text, const std::function<void()>& onHundred) {
    std::string bytes;
    bytes.reserve(text.size() / 4 * 3 + 2);
    unsigned kept = 0;  // bits of the byte that isn't complete yet
    int step = 0;
    for (std::size_t i = 0; i < text.size() && text[i] != u'='; ++i) {
        if (const auto value = Base64Value(text[i])) {
            kept = (kept << 6 | *value) & 0xFFFU;
            if (step != 0) {
                bytes += static_cast<char>(kept >> (6 - 2 * step) & 0xFFU);
            }
            step = (step + 1) % 4;
        }
        if (onHundred && (i + 1) % kBase64PumpInterval == 0) {
            onHundred();
        }
    }
    return bytes;
}

std::u16string EucToText(std::string_view bytes) {
    std::string codePageBytes;
    codePageBytes.reserve(bytes.size());
    for (std::size_t i = 0; i < bytes.size() && bytes[i] != '\0'; ++i) {
        const std::uint8_t byte = ByteAt(bytes, i);
        if (byte < 0x80) {
            AppendSingleByte(bytes[i], codePageBytes);
        } else if (++i < bytes.size()) {
            // Kept: the prefix of half-width katakana counts as the first byte of a pair like any
            // other, so they don't come back.
            AppendJisPair(byte - 0x80, ByteAt(bytes, i) - 0x80, codePageBytes);
        }
    }
    return DecodeCodePage932(codePageBytes);
}

std::u16string JisToText(std::string_view bytes) {
    bytes = bytes.substr(0, bytes.find('\0'));
    std::string codePageBytes;
    codePageBytes.reserve(bytes.size());
    bool kanji = false;
    while (!bytes.empty()) {
        std::size_t taken = 1;
        if (bytes[0] == kEscape) {
            kanji = bytes.size() > 1 && bytes[1] == '$';
            taken = kEscapeLength;
        } else if (!kanji) {
            AppendSingleByte(bytes[0], codePageBytes);
        } else if (bytes.size() > 1) {
            AppendJisPair(ByteAt(bytes, 0), ByteAt(bytes, 1), codePageBytes);
            taken = 2;
        }
        bytes.remove_prefix(std::min(taken, bytes.size()));
    }
    return DecodeCodePage932(codePageBytes);
}

std::u16string Utf8ToText(std::string_view bytes, std::u16string_view replacement) {
    std::u16string text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        const std::size_t run = AsciiPrefix(bytes);
        const std::size_t size = text.size();
        text.resize(size + run);
        CopyAscii(bytes.substr(0, run), text.data() + size);
        bytes.remove_prefix(run);
        if (bytes.empty()) {
            break;
        }
        const std::size_t length = Utf8SequenceLength(bytes);
        if (length == 0) {
            text += replacement;
        } else {
            text += Utf8Unit(bytes.substr(0, length));
        }
        bytes.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return text;
}

std::string TextToEuc(std::string_view codePageBytes) {
    std::string result;
    result.reserve(codePageBytes.size() + 1);
    for (std::size_t i = 0; i < codePageBytes.size(); ++i) {
        const std::uint8_t byte = ByteAt(codePageBytes, i);
        if (i + 1 == codePageBytes.size()) {
            // Kept: a last byte that is no half of a pair is copied, whatever it is, and a NUL
            // follows it.
            result += {codePageBytes[i], '\0'};
        } else if (IsBetween(byte, 0xA0, 0xDF)) {
            // Kept: 0xA0 counts as a half-width katakana.
            result += {kEucKatakanaPrefix, codePageBytes[i]};
        } else if (byte >= 0x81 && ByteAt(codePageBytes, i + 1) >= 0x40) {
            AppendEucPair(byte, ByteAt(codePageBytes, ++i), result);
        } else {
            result += codePageBytes[i];
        }
    }
    return result;
}

std::string TextToJis(std::u16string_view text) {
    std::string result;
    result.reserve(text.size() * 2 + kEscapeLength);
    std::string_view mode;
    const auto enter = [&](std::string_view escape) {
        if (mode != escape) {
            mode = escape;
            result += escape;
        }
    };
    for (const char16_t unit : BeforeNul(text)) {
        const int code = EncodeUnit932(unit);
        if (code > 0xFF) {
            enter(kKanjiEscape);
            const BytePair jis = ShiftJisToJis(static_cast<std::uint8_t>(code >> 8),
                                               static_cast<std::uint8_t>(code & 0xFF));
            result += {static_cast<char>(jis.first), static_cast<char>(jis.second)};
        } else {
            enter(kSingleByteEscape);
            result += code < 0 ? kNoPlace : static_cast<char>(code);
        }
    }
    // Kept: no return to single-byte mode at the end.
    return result;
}

std::string TextToUtf8(std::u16string_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (const char16_t unit : text) {
        const auto last = static_cast<char>(0x80 | (unit & 0x3F));
        if (unit < 0x80) {
            bytes += static_cast<char>(unit);
        } else if (unit < 0x800) {
            bytes += {static_cast<char>(0xC0 | unit >> 6), last};
        } else {
            // Kept: the halves of a surrogate pair are written one by one.
            bytes += {static_cast<char>(0xE0 | unit >> 12),
                      static_cast<char>(0x80 | (unit >> 6 & 0x3F)), last};
        }
    }
    return bytes;
}

std::u16string UrlEncode(std::string_view bytes) {
    std::u16string text;
    text.reserve(bytes.size() * 3);
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const std::uint8_t byte = ByteAt(bytes, i);
        if (byte == ' ') {
            text += u'+';
        } else if (IsPlainInUrl(byte)) {
            text += static_cast<char16_t>(byte);
        } else {
            AppendPercent(byte, text);
            // Kept: the byte behind a high one is never plain, so that a double-byte character
            // stays whole ("ソ" is 83 5C).
            if (byte >= 0x80 && i + 1 < bytes.size()) {
                AppendPercent(ByteAt(bytes, ++i), text);
            }
        }
    }
    return text;
}

std::string UrlDecode(std::u16string_view text) {
    std::string bytes;
    std::size_t plain = 0;  // where the text begins that stands for itself
    const auto endPlain = [&](std::size_t end, std::size_t next) {
        bytes += EncodeCodePage932(text.substr(plain, end - plain));
        plain = next;
    };
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == u'+') {
            endPlain(i, i + 1);
            bytes += ' ';
        } else if (text[i] == u'%' && i + 2 < text.size()) {
            const int high = HexValue(text[i + 1]);
            const int low = HexValue(text[i + 2]);
            if (high < 0 || low < 0) continue;
            endPlain(i, i + 3);
            bytes += static_cast<char>(high * 16 + low);
            i += 2;
        }
    }
    endPlain(text.size(), text.size());
    return bytes;
}

std::u16string ScrambleText(std::u16string_view text, std::int16_t key) {
    std::u16string result(text.size(), u'\0');
    std::transform(text.begin(), text.end(), result.begin(), [key](char16_t unit) {
        const int value = kScrambleBase - ScrambleValue(unit) + key;
        return UnitOfScrambleValue(static_cast<std::uint16_t>(value & 0xFFFF));
    });
    return result;
}

}  // namespace velm
