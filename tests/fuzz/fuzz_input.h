// What the fuzzers share: the input as bytes or as UTF-16, and a check that stays in every build.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace velm::fuzz {

// Ends the fuzzer's run, which keeps the input, when something that must hold doesn't.
inline void Require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

inline std::string_view Bytes(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

// Two bytes a unit, so that every text is reached, lone surrogates too. A last odd byte is left out.
inline std::u16string Units(std::string_view bytes) {
    std::u16string text;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        const auto low = static_cast<unsigned char>(bytes[i]);
        const auto high = static_cast<unsigned char>(bytes[i + 1]);
        text += static_cast<char16_t>(high << 8 | low);
    }
    return text;
}

}  // namespace velm::fuzz
