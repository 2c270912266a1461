// Script sources: every byte string is one; UTF-8 sources come out with full line ends only.
#include "data/script_source.h"

#include "data/code_page_932.h"
#include "data/utf.h"
#include "fuzz_input.h"

using namespace velm;

namespace {

bool HasLoneLineFeed(std::u16string_view text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == u'\n' && (i == 0 || text[i - 1] != u'\r')) {
            return true;
        }
    }
    return false;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes = fuzz::Bytes(data, size);
    const std::string mark = "\xEF\xBB\xBF";
    const std::u16string text = DecodeScriptSource(bytes);
    fuzz::Require(!text.starts_with(u"#!"));

    const std::u16string marked = DecodeScriptSource(mark + std::string(bytes));
    fuzz::Require(!HasLoneLineFeed(marked));
    fuzz::Require(DecodeScriptSource(mark + Utf16ToUtf8(marked)) == marked);
    if (IsValidUtf8(bytes) && !bytes.starts_with(mark) && !HasLoneLineFeed(text)) {
        fuzz::Require(text == marked);
    } else if (!IsValidUtf8(bytes) && !bytes.starts_with(mark) && !bytes.starts_with("#!")) {
        fuzz::Require(text == DecodeCodePage932(bytes));
    }
    return 0;
}
