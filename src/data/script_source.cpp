// See script_source.h.
#include "data/script_source.h"

#include <algorithm>

#include "data/ascii_run.h"
#include "data/code_page_932.h"
#include "data/text.h"
#include "data/utf.h"

namespace velm {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kInterpreterMark = "#!";

bool IsUtf8Source(std::string_view bytes) {
    return AsciiPrefix(bytes) < bytes.size() && IsValidUtf8(bytes);
}

// Cuts a first line that names an interpreter down to its line end. The system that reads such a
// line ends it at the first LF, in either encoding, so the same is done here: in a file of code
// page 932 with LF the comment would else swallow what follows. Returns whether a line was cut.
bool CutInterpreterLine(std::string_view& bytes) {
    if (!bytes.starts_with(kInterpreterMark)) {
        return false;
    }
    const std::size_t end = bytes.find('\n');
    bytes.remove_prefix(end == std::string_view::npos ? bytes.size() : end + 1);
    return end != std::string_view::npos;
}

std::u16string WithFullLineEnds(std::u16string text) {
    const auto lines = std::count(text.begin(), text.end(), u'\n');
    if (lines == 0) {
        return text;
    }
    std::u16string result;
    result.reserve(text.size() + static_cast<std::size_t>(lines));
    char16_t before = 0;
    for (const char16_t unit : text) {
        if (unit == u'\n' && before != u'\r') {
            result += u'\r';
        }
        result += unit;
        before = unit;
    }
    return result;
}

}  // namespace

std::u16string DecodeScriptSource(std::string_view bytes) {
    const bool marked = bytes.starts_with(kByteOrderMark);
    const bool utf8 = marked || IsUtf8Source(bytes);
    if (marked) {
        bytes.remove_prefix(kByteOrderMark.size());
    }
    std::u16string text(CutInterpreterLine(bytes) ? kCrLf : std::u16string_view());
    text += utf8 ? WithFullLineEnds(Utf8ToUtf16(bytes)) : DecodeCodePage932(bytes);
    return text;
}

}  // namespace velm
