// The mapping between the paths of scripts and native ones. See files.h.
#include <dirent.h>
#include <sys/stat.h>
#include <sys/xattr.h>

#include <algorithm>
#include <cstdint>
#include <memory>

#include "data/failure.h"
#include "data/text.h"
#include "data/utf.h"
#include "data/width.h"
#include "platform/files.h"
#include "platform/posix/native_files.h"

namespace velm {

namespace {

// A byte that text can't hold stands at this place in the low surrogates, where no text has a lone unit.
constexpr char16_t kByteUnits = 0xDC00;
constexpr char kSeparator = '/';

bool IsSeparator(char16_t unit) { return unit == u'\\' || unit == u'/'; }

bool IsLetter(char16_t unit) {
    return (unit >= u'A' && unit <= u'Z') || (unit >= u'a' && unit <= u'z');
}

bool IsHighSurrogate(char16_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }

bool IsByteUnit(char16_t unit) {
    return unit == kByteUnits + '\\' || (unit >= kByteUnits + 0x80 && unit <= kByteUnits + 0xFF);
}

// The number of bytes at the head of the text that are one well-formed character; 0 when none are.
std::size_t WellFormedHead(std::string_view bytes) {
    for (std::size_t length = 1; length <= std::min<std::size_t>(4, bytes.size()); ++length) {
        if (IsValidUtf8(bytes.substr(0, length))) return length;
    }
    return 0;
}

// Cuts the drive off. Throws for one that isn't there.
std::u16string_view WithoutDrive(std::u16string_view path) {
    if (path.empty() || path.find(u'\0') != path.npos) throw Failure(failure::kBadFileName);
    if (path.starts_with(u"\\\\")) throw Failure(failure::kPathNotFound);
    if (path.size() < 2 || path[1] != u':' || !IsLetter(path[0])) return path;
    if (path[0] != u'C' && path[0] != u'c') throw Failure(failure::kPathNotFound);
    return path.substr(2);
}

// The path with native separators, each once; nothing is looked up.
std::string PlainPath(std::u16string_view scriptPath) {
    std::u16string_view rest = WithoutDrive(scriptPath);
    std::string path;
    while (!rest.empty()) {
        if (IsSeparator(rest[0])) {
            if (!path.ends_with(kSeparator)) path += kSeparator;
            rest.remove_prefix(1);
            continue;
        }
        const auto end = std::find_if(rest.begin(), rest.end(), IsSeparator);
        const auto length = static_cast<std::size_t>(end - rest.begin());
        path += native::NameToBytes(rest.substr(0, length));
        rest.remove_prefix(length);
    }
    return path.empty() ? "." : path;
}

bool IsThere(const std::string& path) {
    struct stat info;
    return lstat(path.c_str(), &info) == 0;
}

// The names of a folder's entries in byte order; none when it can't be read.
std::vector<std::string> NamesIn(const std::string& folder) {
    std::vector<std::string> names;
    const std::unique_ptr<DIR, int (*)(DIR*)> stream(opendir(folder.c_str()), closedir);
    if (!stream) return names;
    while (const dirent* entry = readdir(stream.get())) names.emplace_back(entry->d_name);
    std::sort(names.begin(), names.end());
    return names;
}

std::string FindIgnoringCase(const std::string& folder, const std::string& name) {
    const std::u16string wanted = ToLower(native::NameToText(name));
    for (std::string& entry : NamesIn(folder)) {
        if (ToLower(native::NameToText(entry)) == wanted) return std::move(entry);
    }
    return {};
}

// The entry that a name stands for when no entry has it; empty when there is none.
std::string FindOtherForm(const std::string& folder, const std::string& name) {
    std::string found = FindIgnoringCase(folder, name);
    if (!found.empty()) return found;
    const std::string hidden = FindIgnoringCase(folder, "." + name);
    if (!hidden.empty() &&
        native::ExtraAttributes(native::Join(folder, hidden)) & attribute::kHidden) {
        return hidden;
    }
    if (ExtensionOf(native::NameToText(name)) != u"lnk") return {};
    return FindIgnoringCase(folder, name.substr(0, name.size() - 3) + "desktop");
}

// The path as its entries are really called, up to the first that isn't there.
std::string FindPath(const std::string& path) {
    if (IsThere(path)) return path;
    std::string found = path.starts_with(kSeparator) ? "/" : "";
    std::size_t from = found.size();
    while (from < path.size()) {
        const std::size_t end = std::min(path.find(kSeparator, from), path.size());
        std::string name = path.substr(from, end - from);
        if (!IsThere(found + name)) name = FindOtherForm(found.empty() ? "." : found, name);
        if (name.empty()) return found + path.substr(from);
        found += name;
        if (end < path.size()) found += kSeparator;
        from = end + 1;
    }
    return found;
}

}  // namespace

std::u16string native::NameToText(std::string_view name) {
    if (IsValidUtf8(name) && name.find('\\') == name.npos) return Utf8ToUtf16(name);
    std::u16string text;
    while (!name.empty()) {
        const std::size_t length = name[0] == '\\' ? 0 : WellFormedHead(name);
        if (length == 0) {
            text += static_cast<char16_t>(kByteUnits + static_cast<std::uint8_t>(name[0]));
        } else {
            text += Utf8ToUtf16(name.substr(0, length));
        }
        name.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return text;
}

std::string native::NameToBytes(std::u16string_view text) {
    std::string bytes;
    std::size_t from = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (IsHighSurrogate(text[i])) {
            ++i;  // its partner is no byte
        } else if (IsByteUnit(text[i])) {
            bytes += Utf16ToUtf8(text.substr(from, i - from));
            bytes += static_cast<char>(text[i] - kByteUnits);
            from = i + 1;
        }
    }
    return bytes + Utf16ToUtf8(text.substr(from));
}

std::string NativePath(std::u16string_view scriptPath) { return FindPath(PlainPath(scriptPath)); }

std::string NativePathAsWritten(std::u16string_view scriptPath) {
    const std::string plain = PlainPath(scriptPath);
    const std::size_t cut = plain.find_last_of(kSeparator);
    if (cut == plain.npos || cut + 1 == plain.size()) return plain;
    return FindPath(plain.substr(0, cut + 1)) + plain.substr(cut + 1);
}

std::u16string ScriptPath(std::string_view nativePath) {
    std::u16string path = nativePath.starts_with(kSeparator) ? u"C:" : u"";
    while (!nativePath.empty()) {
        if (nativePath[0] == kSeparator) {
            if (!path.ends_with(u'\\')) path += u'\\';
            nativePath.remove_prefix(1);
            continue;
        }
        const std::size_t end = std::min(nativePath.find(kSeparator), nativePath.size());
        path += native::NameToText(nativePath.substr(0, end));
        nativePath.remove_prefix(end);
    }
    return path;
}

}  // namespace velm
