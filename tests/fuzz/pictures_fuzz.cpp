// Any value in any picture: never a crash, and never another failure than that of a number that is no
// date. The first line is the value, the rest the picture.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "data/failure.h"
#include "data/number_pictures.h"
#include "data/numbers.h"
#include "data/pictures.h"
#include "data/utf.h"
#include "fuzz_input.h"

namespace {

using velm::fuzz::Require;

// What a picture of so many units may give: the whole number in front of the point, a name for each
// code, the value itself.
std::size_t LongestText(std::u16string_view value, std::u16string_view picture) {
    constexpr std::size_t kLongestNumber = 1000;
    constexpr std::size_t kLongestCode = 20;
    return value.size() + kLongestNumber + (picture.size() + 1) * kLongestCode;
}

void Check(std::u16string_view value, std::u16string_view picture) {
    try {
        const std::u16string text = velm::FormatPicture(value, picture);
        Require(text.size() <= LongestText(value, picture));
        Require(!picture.empty() || text == value);
    } catch (const velm::Failure& failed) {
        Require(failed.Number() == velm::failure::kOverflow);
    }
}

// Two decimals: the text is a number again, near the first one. Larger numbers are first cut to their 15
// digits, and may go further.
void CheckFixed(std::u16string_view value) {
    const std::optional<double> number = velm::ParseNumber(value);
    if (!number || std::abs(*number) > 1e9) return;
    const std::u16string fixed = velm::FormatNumberPicture(*number, u"0.00");
    const std::optional<double> back = velm::ParseNumber(fixed);
    Require(back && std::abs(*back - *number) <= 0.0051);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::u16string text = velm::Utf8ToUtf16(velm::fuzz::Bytes(data, size));
    const std::size_t line = std::min(text.find(u'\n'), text.size());
    const std::u16string_view value = std::u16string_view(text).substr(0, line);
    const std::u16string_view rest = std::u16string_view(text).substr(line);
    Check(value, rest.empty() ? rest : rest.substr(1));
    CheckFixed(value);
    return 0;
}
