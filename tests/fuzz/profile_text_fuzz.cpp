// Settings files of any bytes: what is set reads back, what is removed is gone, and all other lines stay.
#include "data/profile_text.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

#include "data/code_page_932.h"
#include "fuzz_input.h"

using velm::fuzz::Require;

namespace {

// The bytes up to a separator, which is taken away from the input.
std::string_view Take(std::string_view& input) {
    const std::size_t end = std::min(input.find('\xFF'), input.size());
    const std::string_view part = input.substr(0, end);
    input.remove_prefix(std::min(end + 1, input.size()));
    return part;
}

// Whether a value is read as it was written: no blanks round it that are cut, no quotes.
bool IsPlain(std::u16string_view value) {
    return value.find_first_of(u" \t\"'") == std::u16string_view::npos;
}

void CheckSet(std::string_view file, const std::u16string& section, const std::u16string& key,
              const std::u16string& value) {
    const std::string once = velm::SetProfileValue(file, section, key, value);
    const std::optional<std::u16string> read = velm::ProfileValue(once, section, key);
    Require(read.has_value());
    const std::u16string kept = velm::DecodeCodePage932(velm::EncodeCodePage932(value));
    if (IsPlain(kept)) Require(*read == kept);
    Require(velm::SetProfileValue(once, section, key, value) == once);
    const std::string removed = velm::RemoveProfileKey(once, section, key);
    Require(removed.size() < once.size());
    Require(velm::RemoveProfileSection(once, section).size() < once.size());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view input = velm::fuzz::Bytes(data, size);
    const std::u16string section = velm::DecodeCodePage932(Take(input));
    const std::u16string key = velm::DecodeCodePage932(Take(input));
    const std::u16string value = velm::DecodeCodePage932(Take(input));
    velm::ProfileValue(input, section, key);
    velm::RemoveProfileKey(input, section, key);
    velm::RemoveProfileSection(input, section);
    if (velm::FitsProfile(section, key, value)) CheckSet(input, section, key, value);
    return 0;
}
