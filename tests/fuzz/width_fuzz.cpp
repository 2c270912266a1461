// Any text through the width, kana and case maps: each is settled after one pass, and none makes
// another name of it but the kana maps.
#include <cstddef>
#include <cstdint>
#include <string>

#include "data/width.h"
#include "fuzz_input.h"

namespace {

using Map = std::u16string (*)(std::u16string_view);

using velm::fuzz::Require;

void RequireSettled(Map map, std::u16string_view text) {
    const std::u16string once = map(text);
    Require(map(once) == once);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::u16string text = velm::fuzz::Units(velm::fuzz::Bytes(data, size));
    for (const Map map : {velm::ToFullWidth, velm::ToHalfWidth, velm::ToUpper, velm::ToLower}) {
        RequireSettled(map, text);
        Require(velm::SameName(text, map(text)));
    }
    for (const Map map : {velm::ToHiragana, velm::ToKatakana, velm::FoldName}) {
        RequireSettled(map, text);
    }
    Require(velm::ToHiragana(text).size() == text.size());
    Require(velm::FoldName(text).size() <= text.size());
    return 0;
}
