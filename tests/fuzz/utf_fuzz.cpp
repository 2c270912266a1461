// UTF-8: bytes come back just if they are well-formed; what is written always is.
#include "data/utf.h"

#include "fuzz_input.h"

using namespace velm;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes = fuzz::Bytes(data, size);
    const std::u16string decoded = Utf8ToUtf16(bytes);
    fuzz::Require(decoded.size() <= bytes.size());
    fuzz::Require((Utf16ToUtf8(decoded) == bytes) == IsValidUtf8(bytes));

    const std::u16string text = fuzz::Units(bytes);
    const std::string encoded = Utf16ToUtf8(text);
    fuzz::Require(IsValidUtf8(encoded));
    fuzz::Require(Utf8ToUtf16(encoded).size() == text.size());
    return 0;
}
