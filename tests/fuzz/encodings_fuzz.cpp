// The encodings that scripts name: each way there and back, where there is a way back.
#include "data/encodings.h"

#include "data/code_page_932.h"
#include "fuzz_input.h"

using namespace velm;

namespace {

void CheckBase64(std::string_view bytes, std::u16string_view text) {
    fuzz::Require(DecodeBase64(EncodeBase64(bytes)) == bytes);
    std::size_t calls = 0;
    const std::string decoded = DecodeBase64(text, [&calls] { ++calls; });
    fuzz::Require(decoded.size() <= text.size() / 4 * 3 + 2);
    fuzz::Require(calls <= text.size() / 100);
}

void CheckJapaneseForms(std::string_view bytes) {
    const std::u16string fromEuc = EucToText(bytes);
    fuzz::Require(fromEuc.find(u'\0') == std::u16string::npos);
    fuzz::Require(FitsCodePage932(fromEuc));

    const std::u16string fromJis = JisToText(bytes);
    fuzz::Require(FitsCodePage932(fromJis));
    if (fromJis.find(u'\n') == std::u16string::npos) {
        fuzz::Require(JisToText(TextToJis(fromJis)) == fromJis);
    }
    fuzz::Require(TextToEuc(bytes).size() <= bytes.size() * 2);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes = fuzz::Bytes(data, size);
    const std::u16string text = fuzz::Units(bytes);
    const std::u16string latin(data, data + size);
    CheckBase64(bytes, latin);
    CheckJapaneseForms(bytes);
    fuzz::Require(UrlDecode(UrlEncode(bytes)) == bytes);
    fuzz::Require(UrlDecode(latin).size() <= latin.size() * 2);
    fuzz::Require(Utf8ToText(TextToUtf8(text)) == text);
    fuzz::Require(Utf8ToText(bytes).size() <= Utf8ToText(bytes, u"??").size());
    TextToJis(text);
    const auto key = static_cast<std::int16_t>(text.empty() ? 0 : text[0]);
    fuzz::Require(ScrambleText(ScrambleText(text, key), key) == text);
    return 0;
}
