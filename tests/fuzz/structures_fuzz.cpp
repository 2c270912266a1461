// Structure dictionaries of any text: memory is as large as it must be, and reading it back leaves a
// dictionary that gives the same memory.
#include "data/structures.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "data/code_page_932.h"
#include "data/failure.h"
#include "fuzz_input.h"

using velm::fuzz::Require;

namespace {

constexpr std::size_t kMostBytes = 1U << 16;

void CheckBlock(const std::u16string& dictionary) {
    const std::string block = velm::BuildBlock(dictionary);
    if (block.size() > kMostBytes) return;
    const std::u16string read = velm::ReadBlock(dictionary, block);
    velm::ReadBlock(dictionary, std::string(block.size(), '\xFF'));
    velm::ReadBlock(dictionary, std::string_view(block).substr(0, block.size() / 2));
    velm::BuildBlock(read);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input = velm::fuzz::Bytes(data, size);
    const std::size_t cut = std::min(input.find('\xFF'), input.size());
    const std::u16string definitions = velm::DecodeCodePage932(input.substr(0, cut));
    const std::u16string dictionary = velm::DecodeCodePage932(input.substr(cut));
    try {
        const std::u16string defined = velm::DefineStructure(dictionary, definitions);
        Require(defined.size() >= std::u16string_view(u"__Total=0").size());
        CheckBlock(defined);
        CheckBlock(dictionary);
    } catch (const velm::Failure&) {
        return 0;
    }
    return 0;
}
