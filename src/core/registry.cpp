// See registry.h.
#include "core/registry.h"

#include <optional>
#include <vector>

#include "core/diagnostics.h"
#include "core/protection.h"
#include "core/registry_names.h"
#include "data/code_page_932.h"
#include "data/failure.h"
#include "data/lists.h"
#include "data/text.h"

namespace velm {

namespace {

constexpr int kWriteFailed = 26;
constexpr std::size_t kMostBytes = 256;
constexpr std::size_t kNumberBytes = 4;

void AppendHex(std::u16string& text, char byte) {
    constexpr std::u16string_view kDigits = u"0123456789ABCDEF";
    const auto value = static_cast<unsigned char>(byte);
    text += kDigits[value >> 4U];
    text += kDigits[value & 0xFU];
}

std::u16string NumberText(const std::string& bytes) {
    std::u16string text;
    for (std::size_t i = kNumberBytes; i-- > 0;)
        AppendHex(text, i < bytes.size() ? bytes[i] : '\0');
    return text;
}

std::u16string ByteText(const std::string& bytes) {
    std::vector<std::u16string> items;
    for (const char byte : bytes) {
        if (byte == '\0') break;
        AppendHex(items.emplace_back(), byte);
    }
    return JoinList(items, u",");
}

std::u16string TextOf(const StoredValue& value) {
    const std::string bytes = value.bytes.substr(0, kMostBytes);
    switch (value.type) {
        case store_type::kString:
        case store_type::kExpandString: return std::u16string(BeforeNul(DecodeCodePage932(bytes)));
        case store_type::kNumber: return NumberText(bytes);
        default: return ByteText(bytes);
    }
}

}  // namespace

RegistryPlace CutRegistryPath(std::u16string_view path) {
    RegistryPlace place;
    const std::size_t first = path.find(u'\\');
    place.root = path.substr(0, first);
    if (first == kNotFound) return place;
    const std::size_t last = path.rfind(u'\\');
    place.backslashes = last == first ? 1 : 2;
    if (last != first) place.key = path.substr(first + 1, last - first - 1);
    place.name = path.substr(last + 1);
    return place;
}

std::u16string ReadRegistry(const StorePath& key, std::u16string_view name,
                            std::u16string_view defaultText, bool& found) {
    const std::optional<StoredValue> value = ReadStoredValue(key, BeforeNul(name));
    found = value.has_value();
    return found ? TextOf(*value) : std::u16string(defaultText);
}

bool WriteRegistryString(const StorePath& key, std::u16string_view name,
                         std::u16string_view value) {
    return CheckProtection(Protected::kRegistry) && WriteAllowedRegistryString(key, name, value);
}

bool WriteAllowedRegistryString(const StorePath& key, std::u16string_view name,
                                std::u16string_view value) {
    StoredValue stored;
    stored.bytes = EncodeCodePage932(value) + '\0';
    const StorePath cut = {key.root, std::u16string(BeforeNul(key.key))};
    if (Attempt([&] { WriteStoredValue(cut, BeforeNul(name), stored); })) return true;
    const std::u16string path = RootName(key.root) + u"\\" + key.key + u"\\" + std::u16string(name);
    RaiseError(kWriteFailed, kIconWarning, path, u"", -1);
    return false;
}

}  // namespace velm
