// Prints what the runtime's code page 932 makes of every code and every UTF-16 unit, for
// tests/code_page_932_check.py, which compares it with a second table.
//
// One line each: "b BYTE UNITS", "p PAIR UNITS" and "u UNIT BYTES", all hexadecimal. The pairs are
// those of a lead byte with any byte but NUL behind it.

#include <cstdint>
#include <iostream>
#include <string>
#include <string_view>

#include "data/code_page_932.h"

namespace {

std::string Hex(unsigned value, int digits) {
    std::string text;
    for (int shift = (digits - 1) * 4; shift >= 0; shift -= 4) {
        text += "0123456789abcdef"[value >> shift & 0xFU];
    }
    return text;
}

std::string HexUnits(std::u16string_view units) {
    std::string text;
    for (const char16_t unit : units) {
        text += Hex(unit, 4);
    }
    return text;
}

std::string HexBytes(std::string_view bytes) {
    std::string text;
    for (const char byte : bytes) {
        text += Hex(static_cast<unsigned char>(byte), 2);
    }
    return text;
}

void DumpDecoding() {
    for (unsigned lead = 0; lead < 0x100; ++lead) {
        const std::string byte(1, static_cast<char>(lead));
        std::cout << "b " << HexBytes(byte) << ' ' << HexUnits(velm::DecodeCodePage932(byte))
                  << '\n';
        if (!velm::IsLeadByte932(static_cast<std::uint8_t>(lead))) {
            continue;
        }
        for (unsigned trail = 1; trail < 0x100; ++trail) {
            const std::string pair = byte + static_cast<char>(trail);
            std::cout << "p " << HexBytes(pair) << ' ' << HexUnits(velm::DecodeCodePage932(pair))
                      << '\n';
        }
    }
}

void DumpEncoding() {
    for (unsigned unit = 0; unit < 0x10000; ++unit) {
        const auto code = static_cast<char16_t>(unit);
        std::cout << "u " << Hex(unit, 4) << ' '
                  << HexBytes(velm::EncodeCodePage932(std::u16string_view(&code, 1))) << '\n';
    }
}

}  // namespace

int main() {
    std::ios::sync_with_stdio(false);
    DumpDecoding();
    DumpEncoding();
    return std::cout.flush() ? 0 : 1;
}
