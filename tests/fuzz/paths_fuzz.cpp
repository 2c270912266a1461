// Paths and packed scripts: any name of the file system comes back to itself through its script path, a
// mask that is a name matches it, and packed bytes of any kind unpack.
#include "core/script_file.h"
#include "data/code_page_932.h"
#include "fuzz_input.h"
#include "platform/files.h"

using namespace velm;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes = fuzz::Bytes(data, size);
    const bool isName =
        !bytes.empty() && bytes.find('/') == bytes.npos && bytes.find('\0') == bytes.npos;
    if (isName) {
        const std::string path = "/velm none/" + std::string(bytes);
        fuzz::Require(NativePath(ScriptPath(path)) == path);
    }
    const std::u16string name = fuzz::Units(bytes);
    const bool plain = name.find_first_of(u"*?") == name.npos;
    fuzz::Require(!plain || MatchesMask(name, name));
    fuzz::Require(MatchesMask(name, name + u"*"));
    // "*." has a meaning of its own.
    fuzz::Require(name == u"." || MatchesMask(name, u"*" + name));

    const std::string unpacked = UnpackBytes(bytes);
    fuzz::Require(unpacked.size() == size - size % 4 + 1);
    ExpandPackedText(DecodeCodePage932(unpacked));
    return 0;
}
