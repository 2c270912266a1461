// Reading the embedded text resources.
#include "data/resources.h"

#include <map>

#include "data/embedded_resources.h"
#include "data/numbers.h"
#include "data/text.h"
#include "data/utf.h"

namespace velm {

namespace {

using Entries = std::vector<std::pair<std::u16string, std::u16string>>;

std::u16string LoadText(int id) {
    const std::string name = Utf16ToUtf8(FormatNumber(id));
    for (std::size_t i = 0; i < kEmbeddedResourceCount; ++i) {
        if (kEmbeddedResources[i].name != name) continue;
        const std::u16string text = Utf8ToUtf16(kEmbeddedResources[i].bytes);
        return u"\r\n" + ReplaceAll(text, u"\n", kCrLf);
    }
    return u"\r\n\r\n";
}

Entries ParseEntries(std::u16string_view text) {
    Entries entries;
    for (const std::u16string_view line : SplitLines(text)) {
        const std::size_t equals = line.find(u'=');
        if (equals == kNotFound) continue;
        entries.emplace_back(line.substr(0, equals), line.substr(equals + 1));
    }
    return entries;
}

}  // namespace

const std::u16string& ResourceText(int id) {
    static std::map<int, std::u16string> texts;
    const auto found = texts.find(id);
    return found != texts.end() ? found->second : texts.emplace(id, LoadText(id)).first->second;
}

const Entries& ResourceEntries(int id) {
    static std::map<int, Entries> all;
    const auto found = all.find(id);
    if (found != all.end()) return found->second;
    return all.emplace(id, ParseEntries(ResourceText(id))).first->second;
}

std::u16string ResourceValue(int id, std::u16string_view key) {
    std::u16string head(kCrLf);
    head.append(key) += u'=';
    const std::u16string_view text = ResourceText(id);
    const std::size_t hit = text.find(head);
    if (hit == kNotFound) return {};
    const std::size_t from = hit + head.size();
    return std::u16string(text.substr(from, text.find(kCrLf, from) - from));
}

std::int32_t ResourceNumber(int id, std::u16string_view key) {
    const std::u16string value = ResourceValue(id, key);
    return ParseInt32(value).value_or(-1);
}

}  // namespace velm
