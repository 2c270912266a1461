// See code_page_932.h. What is regular in the code page (ASCII, half-width katakana, the
// user-defined area, the odd single bytes) is arithmetic here; the rest is looked up.
#include "data/code_page_932.h"

#include "data/ascii_run.h"
#include "data/code_page_932_table.h"

namespace velm {

namespace {

using code_page_932::kBlockBits;
using code_page_932::kDecoded;
using code_page_932::kEncodeBlocks;
using code_page_932::kEncoded;
using code_page_932::kLeadRows;
using code_page_932::kTrailCount;

constexpr char16_t kUnassigned = u'・';
constexpr char kUnmappable = '?';
constexpr std::uint8_t kNoRow = 255;

constexpr char16_t kKatakanaFirst = 0xFF61;
constexpr char16_t kKatakanaLast = 0xFF9F;
constexpr int kKatakanaByte = 0xA1;

constexpr char16_t kUserFirst = 0xE000;
constexpr char16_t kUserLast = 0xE757;
constexpr std::uint8_t kUserLead = 0xF0;
constexpr std::uint8_t kUserLeadLast = 0xF9;

// The platform keeps the three highest bytes apart in its private area.
constexpr char16_t kHighFirst = 0xF8F1;
constexpr char16_t kHighLast = 0xF8F3;
constexpr int kHighByte = 0xFD;

bool IsAscii(char byte) { return static_cast<unsigned char>(byte) < 0x80; }

bool IsTrailByte(std::uint8_t byte) { return byte >= 0x40 && byte <= 0xFC && byte != 0x7F; }

// Place of a trail byte in its row: 0x7F is no trail byte and has no place.
std::size_t TrailIndex(std::uint8_t trail) {
    return static_cast<std::size_t>(trail - (trail > 0x7F ? 0x41 : 0x40));
}

int EncodeUserDefined(char16_t unit) {
    const int offset = unit - kUserFirst;
    const int row = offset / static_cast<int>(kTrailCount);
    const int cell = offset % static_cast<int>(kTrailCount);
    return (kUserLead + row) * 0x100 + cell + (cell < 0x3F ? 0x40 : 0x41);
}

char* WriteUnit(char16_t unit, char* to) {
    const int code = EncodeUnit932(unit);
    if (code < 0) {
        *to++ = kUnmappable;
        return to;
    }
    if (code > 0xFF) {
        *to++ = static_cast<char>(code >> 8);
    }
    *to++ = static_cast<char>(code & 0xFF);
    return to;
}

bool SurvivesRoundTrip(char16_t unit) {
    const int code = EncodeUnit932(unit);
    if (code < 0) {
        return false;
    }
    const auto low = static_cast<std::uint8_t>(code & 0xFF);
    return unit == (code > 0xFF ? DecodePair932(static_cast<std::uint8_t>(code >> 8), low)
                                : DecodeByte932(low));
}

}  // namespace

bool IsLeadByte932(std::uint8_t byte) {
    return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
}

char16_t DecodeByte932(std::uint8_t byte) {
    if (byte >= kHighByte) {
        return static_cast<char16_t>(kHighFirst + (byte - kHighByte));
    }
    if (IsLeadByte932(byte)) {
        return kUnassigned;
    }
    if (byte >= kKatakanaByte) {
        return static_cast<char16_t>(kKatakanaFirst + (byte - kKatakanaByte));
    }
    return byte;
}

char16_t DecodePair932(std::uint8_t lead, std::uint8_t trail) {
    if (!IsTrailByte(trail)) {
        return kUnassigned;
    }
    if (lead >= kUserLead && lead <= kUserLeadLast) {
        const std::size_t row = static_cast<std::size_t>(lead - kUserLead);
        return static_cast<char16_t>(kUserFirst + row * kTrailCount + TrailIndex(trail));
    }
    if (kLeadRows[lead] == kNoRow) {
        return kUnassigned;
    }
    const char16_t unit = kDecoded[kLeadRows[lead] * kTrailCount + TrailIndex(trail)];
    return unit == 0 ? kUnassigned : unit;
}

int EncodeUnit932(char16_t unit) {
    if (unit <= 0x80 || unit == 0xA0) {
        return unit;
    }
    if (unit >= kKatakanaFirst && unit <= kKatakanaLast) {
        return kKatakanaByte + (unit - kKatakanaFirst);
    }
    if (unit >= kUserFirst && unit <= kUserLast) {
        return EncodeUserDefined(unit);
    }
    if (unit >= kHighFirst && unit <= kHighLast) {
        return kHighByte + (unit - kHighFirst);
    }
    const std::size_t block = kEncodeBlocks[unit >> kBlockBits];
    const std::size_t cell = unit & ((1U << kBlockBits) - 1U);
    const int code = kEncoded[(block << kBlockBits) + cell];
    return code == 0 ? -1 : code;
}

std::u16string DecodeCodePage932(std::string_view bytes) {
    std::u16string text(bytes.size(), u'\0');
    char16_t* to = text.data();
    while (!bytes.empty()) {
        const std::size_t run = AsciiPrefix(bytes);
        to = CopyAscii(bytes.substr(0, run), to);
        bytes.remove_prefix(run);
        while (!bytes.empty() && !IsAscii(bytes[0])) {
            const auto lead = static_cast<std::uint8_t>(bytes[0]);
            const bool pair = IsLeadByte932(lead) && bytes.size() > 1 && bytes[1] != '\0';
            *to++ = pair ? DecodePair932(lead, static_cast<std::uint8_t>(bytes[1]))
                         : DecodeByte932(lead);
            bytes.remove_prefix(pair ? 2 : 1);
        }
    }
    text.resize(static_cast<std::size_t>(to - text.data()));
    return text;
}

std::string EncodeCodePage932(std::u16string_view text) {
    const std::size_t head = AsciiPrefix(text);
    std::string bytes(head + (text.size() - head) * 2, '\0');
    char* to = bytes.data();
    while (!text.empty()) {
        const std::size_t run = AsciiPrefix(text);
        to = CopyAscii(text.substr(0, run), to);
        text.remove_prefix(run);
        for (; !text.empty() && text[0] >= 0x80; text.remove_prefix(1)) to = WriteUnit(text[0], to);
    }
    bytes.resize(static_cast<std::size_t>(to - bytes.data()));
    return bytes;
}

bool FitsCodePage932(std::u16string_view text) {
    text.remove_prefix(AsciiPrefix(text));
    return std::all_of(text.begin(), text.end(), SurvivesRoundTrip);
}

}  // namespace velm
