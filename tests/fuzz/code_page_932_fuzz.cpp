// Code page 932: decoded text always fits and comes back; other text comes back just if it fits.
#include "data/code_page_932.h"

#include "fuzz_input.h"

using namespace velm;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes = fuzz::Bytes(data, size);
    const std::u16string decoded = DecodeCodePage932(bytes);
    fuzz::Require(decoded.size() <= bytes.size());
    fuzz::Require(FitsCodePage932(decoded));
    fuzz::Require(DecodeCodePage932(EncodeCodePage932(decoded)) == decoded);

    const std::u16string text = fuzz::Units(bytes);
    const std::string encoded = EncodeCodePage932(text);
    fuzz::Require(encoded.size() <= text.size() * 2);
    fuzz::Require((DecodeCodePage932(encoded) == text) == FitsCodePage932(text));
    return 0;
}
