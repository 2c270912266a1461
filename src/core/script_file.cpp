// See script_file.h.
#include "core/script_file.h"

#include <cstdint>

#include "core/diagnostics.h"
#include "data/code_page_932.h"
#include "data/failure.h"
#include "data/script_source.h"
#include "data/text.h"
#include "platform/files.h"

namespace velm {

namespace {

constexpr char16_t kPackedLineEnd = 0x11;

// What a control character of a packed line stands for; empty for one that stands for itself.
std::u16string_view PackedWord(char16_t unit) {
    switch (unit) {
        case 0x05: return u"メニュー";
        case 0x0E: return u"（";
        case 0x0F: return u"）";
        case 0x12: return u"に";
        case 0x13: return u"の";
        case 0x14: return u"終わり";
        case 0x15: return u"手順は";
        case 0x17: return u"\u3000";
        case 0x18: return u"「";
        case 0x19: return u"を";
        case 0x1A: return u"し";
        case 0x1B: return u"変え";
        case 0x1D: return u"」";
        default: return {};
    }
}

}  // namespace

std::u16string ReadScriptFile(std::u16string_view path) {
    if (!IsPlainFile(path)) throw Failure(failure::kFileNotFound);
    return DecodeScriptSource(ReadFileBytes(path));
}

std::string UnpackBytes(std::string_view packed) {
    const std::size_t length = packed.size() - packed.size() % 4;
    std::string bytes(length + 1, '\0');
    for (std::size_t i = 0; i <= length; ++i) {
        const auto byte = static_cast<std::uint8_t>(i < packed.size() ? packed[i] : '\0');
        bytes[length - i] = static_cast<char>(i % 2 == 0 ? 0xFF - byte : byte);
    }
    return bytes;
}

std::u16string ExpandPackedText(std::u16string_view text) {
    const std::u16string packed = ReplaceAll(text, std::u16string_view(u"\0", 1), u"");
    std::u16string source;
    for (std::u16string_view line : Split(packed, std::u16string_view(&kPackedLineEnd, 1))) {
        if (line.data() != packed.data()) source += kCrLf;
        for (; !line.empty(); line.remove_suffix(1)) {
            const std::u16string_view word = PackedWord(line.back());
            if (word.empty()) {
                source += line.back();
            } else {
                source += word;
            }
        }
    }
    return source;
}

std::u16string ReadPackedFile(std::u16string_view path) {
    std::u16string source;
    const bool isRead = Attempt([&] {
        if (!IsPlainFile(path)) throw Failure(failure::kFileNotFound);
        source = ExpandPackedText(DecodeCodePage932(UnpackBytes(ReadFileBytes(path))));
        RemoveFile(path);
    });
    // A file that could be read but not removed counts as read.
    if (!isRead && source.empty()) RaiseError(201, kIconStop, path, u"", -1);
    return source;
}

}  // namespace velm
