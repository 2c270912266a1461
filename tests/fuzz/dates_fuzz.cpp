// Any text as a date: what reads as one must be one, and its general text must read back as it.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>

#include "data/dates.h"
#include "data/utf.h"
#include "fuzz_input.h"

namespace {

using velm::fuzz::Require;

// A general text without a date has day 0, so that a date of that day shows as a time alone.
void CheckDate(double date) {
    const velm::Moment moment = velm::MomentOf(date);
    Require(moment.second >= 0 && moment.second < velm::kSecondsInDay);
    Require(velm::IsCivilDay(velm::CivilOfDay(moment.day)));
    Require(velm::DayOfCivil(velm::CivilOfDay(moment.day)) == moment.day);
    const int weekday = velm::WeekdayOfDay(moment.day);
    Require(weekday >= 1 && weekday <= 7);
    const std::optional<double> back = velm::ParseDate(velm::FormatDate(date));
    Require(back && velm::MomentOf(*back).day == moment.day);
    Require(velm::MomentOf(*back).second == moment.second);
}

void CheckText(std::u16string_view text) {
    const std::optional<double> date = velm::ParseDate(text);
    if (!date) return;
    Require(velm::IsDate(*date));
    CheckDate(*date);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // UTF-8 first: its kanji are found more easily than any two bytes.
    CheckText(velm::Utf8ToUtf16(velm::fuzz::Bytes(data, size)));
    CheckText(velm::fuzz::Units(velm::fuzz::Bytes(data, size)));
    double number = 0;
    if (size >= sizeof number) {
        std::memcpy(&number, data, sizeof number);
        if (velm::IsDate(number)) CheckDate(number);
    }
    return 0;
}
