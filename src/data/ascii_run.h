// Runs of ASCII at the head of a text: what every converter passes through at full speed.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace velm {

// Number of bytes below 0x80 at the head of `bytes`. Looks at eight bytes a step.
inline std::size_t AsciiPrefix(std::string_view bytes) {
    constexpr std::uint64_t kHighBits = 0x8080808080808080U;
    std::size_t count = 0;
    while (bytes.size() - count >= sizeof(std::uint64_t)) {
        std::uint64_t chunk = 0;
        std::memcpy(&chunk, bytes.data() + count, sizeof chunk);
        if ((chunk & kHighBits) != 0) {
            break;
        }
        count += sizeof chunk;
    }
    while (count < bytes.size() && static_cast<unsigned char>(bytes[count]) < 0x80) {
        ++count;
    }
    return count;
}

// Number of UTF-16 units below 0x80 at the head of `text`. Looks at four units a step.
inline std::size_t AsciiPrefix(std::u16string_view text) {
    constexpr std::uint64_t kHighBits = 0xFF80FF80FF80FF80U;
    constexpr std::size_t kStep = sizeof(std::uint64_t) / sizeof(char16_t);
    std::size_t count = 0;
    while (text.size() - count >= kStep) {
        std::uint64_t chunk = 0;
        std::memcpy(&chunk, text.data() + count, sizeof chunk);
        if ((chunk & kHighBits) != 0) {
            break;
        }
        count += kStep;
    }
    while (count < text.size() && text[count] < 0x80) {
        ++count;
    }
    return count;
}

// Writes ASCII `bytes` as UTF-16 units to `to`; returns the place behind the last one.
inline char16_t* CopyAscii(std::string_view bytes, char16_t* to) {
    return std::transform(bytes.begin(), bytes.end(), to,
                          [](char byte) { return static_cast<char16_t>(byte); });
}

// Writes ASCII `text` as bytes to `to`; returns the place behind the last one.
inline char* CopyAscii(std::u16string_view text, char* to) {
    return std::transform(text.begin(), text.end(), to,
                          [](char16_t unit) { return static_cast<char>(unit); });
}

}  // namespace velm
