// Any text as a number: the readers and the writer must agree with one another.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

#include "data/failure.h"
#include "data/numbers.h"
#include "fuzz_input.h"

namespace {

using velm::fuzz::Require;

void CheckText(std::u16string_view text) {
    const std::optional<double> parsed = velm::ParseNumber(text);
    Require(velm::IsNumeric(text) == parsed.has_value());
    double canonical = 0;
    if (velm::IsCanonicalNumber(text, canonical)) {
        Require(parsed == canonical && velm::FormatNumber(canonical) == text);
    } else if (parsed) {
        Require(velm::FormatNumber(*parsed) != text);
    }
    try {
        const double prefix = velm::TextToNumber(text);
        Require(std::isfinite(prefix) && (!parsed || prefix == *parsed));
        Require(std::isfinite(velm::NumericPrefix(text)));
    } catch (const velm::Failure& failed) {
        Require(failed.Number() == velm::failure::kOverflow);
    }
    velm::ParseInt32(text);
}

void CheckNumber(double number) {
    const std::optional<double> back = velm::ParseNumber(velm::FormatNumber(number));
    if (back && std::isfinite(number)) Require(velm::RoundToText(number) == *back);
    velm::RoundPlaces15(number);
    velm::TryInt32(number);
    float single = 0;
    std::memcpy(&single, &number, sizeof single);
    Require(!velm::FormatSingle(single).empty());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::u16string text = velm::fuzz::Units(velm::fuzz::Bytes(data, size));
    CheckText(text);
    // The same bytes as ASCII reach the number forms far more often.
    CheckText(std::u16string(data, data + size));
    double number = 0;
    if (size >= sizeof number) {
        std::memcpy(&number, data, sizeof number);
        CheckNumber(number);
    }
    return 0;
}
