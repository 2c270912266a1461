// File associations by the desktop conventions:
//   desktop entries      https://specifications.freedesktop.org/desktop-entry-spec/
//   types of files       https://specifications.freedesktop.org/shared-mime-info-spec/
//   default programs     https://specifications.freedesktop.org/mime-apps-spec/
#include "platform/associations.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <optional>
#include <vector>

#include "data/failure.h"
#include "data/profile_text.h"
#include "data/text.h"
#include "data/utf.h"
#include "platform/files.h"
#include "platform/locked_file.h"
#include "platform/posix/data_folder.h"
#include "platform/system_info.h"

namespace velm {

namespace {

constexpr std::string_view kSystemDataFolders = "/usr/local/share:/usr/share";
constexpr std::string_view kSystemPath = "/usr/local/bin:/usr/bin:/bin";
constexpr std::u16string_view kDefaults = u"Default Applications";
constexpr std::u16string_view kFileWord = u"%1";

using Names = std::vector<std::string>;

Names CutFolders(std::string_view folders) {
    Names names;
    while (!folders.empty()) {
        const std::size_t end = std::min(folders.find(':'), folders.size());
        if (end > 0) names.emplace_back(folders.substr(0, end));
        folders.remove_prefix(std::min(end + 1, folders.size()));
    }
    return names;
}

// ASCII letters in lower case; nothing for what is no plain extension.
std::optional<std::string> PlainExtension(std::u16string_view extension) {
    std::string plain;
    for (const char16_t unit : extension) {
        const bool upper = unit >= u'A' && unit <= u'Z';
        const char16_t lower = upper ? static_cast<char16_t>(unit + 32) : unit;
        const bool allowed = (lower >= u'a' && lower <= u'z') || (lower >= u'0' && lower <= u'9') ||
                             lower == u'_' || lower == u'-';
        if (!allowed) return std::nullopt;
        plain += static_cast<char>(lower);
    }
    if (plain.empty()) return std::nullopt;
    return plain;
}

std::string ReadOrEmpty(const std::string& path) {
    try {
        return ReadFileBytes(ScriptPath(path));
    } catch (const Failure&) {
        return {};
    }
}

// The type that a table of lines weight:type:pattern gives the extension; empty when it has none.
std::string TypeInTable(std::string_view table, const std::string& extension) {
    const std::string pattern = ":*." + extension;
    while (!table.empty()) {
        const std::size_t end = std::min(table.find('\n'), table.size());
        const std::string_view line = table.substr(0, end);
        const std::size_t colon = line.find(':');
        if (line.ends_with(pattern) && colon + pattern.size() < line.size()) {
            return std::string(line.substr(colon + 1, line.size() - pattern.size() - colon - 1));
        }
        table.remove_prefix(std::min(end + 1, table.size()));
    }
    return {};
}

std::string OwnType(const std::string& extension) {
    return "application/x-velmscript-" + extension;
}

// The type that the system knows for an extension, else one of our own.
std::string TypeOf(const std::string& extension) {
    const std::string folders =
        EnvironmentValue("XDG_DATA_DIRS").value_or(std::string(kSystemDataFolders));
    for (const std::string& folder : CutFolders(folders)) {
        std::string type = TypeInTable(ReadOrEmpty(folder + "/mime/globs2"), extension);
        if (!type.empty()) return type;
    }
    return OwnType(extension);
}

struct Command {
    std::string program;  // a native path
    std::u16string words;
};

bool IsProgram(const std::string& path) {
    return IsPlainFile(ScriptPath(path)) && access(path.c_str(), X_OK) == 0;
}

std::optional<std::string> FindProgram(const std::u16string& name) {
    if (name.find_first_of(u"\\/") != kNotFound) {
        std::string path = NativePath(name);
        if (!path.starts_with('/')) path = NativePath(CurrentFolder()) + "/" + path;
        if (IsProgram(path)) return path;
        return std::nullopt;
    }
    const std::string folders = EnvironmentValue("PATH").value_or(std::string(kSystemPath));
    for (const std::string& folder : CutFolders(folders)) {
        const std::string path = folder + "/" + Utf16ToUtf8(name);
        if (IsProgram(path)) return path;
    }
    return std::nullopt;
}

std::optional<Command> ReadCommand(std::u16string_view text) {
    text = Trim(text);
    const bool quoted = text.starts_with(u'"');
    if (quoted) text.remove_prefix(1);
    const std::size_t end = std::min(text.find(quoted ? u'"' : u' '), text.size());
    const std::u16string name(text.substr(0, end));
    if (name.empty()) return std::nullopt;
    const std::optional<std::string> program = FindProgram(name);
    if (!program) return std::nullopt;
    return Command{*program, std::u16string(Trim(text.substr(std::min(end + 1, text.size()))))};
}

// A word of an Exec line: in quotes, with what the quotes don't protect escaped.
std::string QuoteWord(std::string_view word) {
    std::string out = "\"";
    for (const char unit : word) {
        if (unit == '"' || unit == '`' || unit == '$') out += "\\\\";
        if (unit == '\\') out += "\\\\\\";
        if (unit == '%') out += '%';
        out += unit;
    }
    return out + '"';
}

// The file stands where "%1" does, or behind everything.
std::string ExecLine(const Command& command) {
    std::string line = QuoteWord(command.program);
    bool named = false;
    for (const std::u16string_view word : Split(command.words, u" ")) {
        const std::u16string_view bare = StripPair(word, u"\"", u"\"");
        if (bare.empty()) continue;
        line += ' ';
        if (bare == kFileWord) named = true;
        line += bare == kFileWord ? std::string("%f") : QuoteWord(Utf16ToUtf8(bare));
    }
    return named ? line : line + " %f";
}

// Text for a line of a desktop entry.
std::string EntryText(std::u16string_view text) {
    std::string out;
    for (const char unit : Utf16ToUtf8(text)) {
        if (unit == '\\') out += '\\';
        out += unit == '\n' || unit == '\r' ? ' ' : unit;
    }
    return out;
}

std::string XmlText(std::u16string_view text) {
    std::string out;
    for (const char unit : Utf16ToUtf8(text)) {
        switch (unit) {
            case '&': out += "&amp;"; break;
            case '<': out += "&lt;"; break;
            case '>': out += "&gt;"; break;
            default:
                if (static_cast<unsigned char>(unit) >= ' ') out += unit;
        }
    }
    return out;
}

std::string EntryName(const std::string& extension) {
    return "velmscript-" + extension + ".desktop";
}

std::string EntryPath(const std::string& extension) {
    return native::UserDataHome() + "/applications/" + EntryName(extension);
}

std::string MimeFolder() { return native::UserDataHome() + "/mime"; }

std::string PackagePath(const std::string& extension) {
    return MimeFolder() + "/packages/velmscript-" + extension + ".xml";
}

std::string DefaultsPath() { return native::UserConfigHome() + "/mimeapps.list"; }

void WriteEntry(const std::string& extension, const std::string& type, const Command& command,
                const DesktopAssociation& made) {
    std::string text = "[Desktop Entry]\nType=Application\nNoDisplay=true\nName=";
    text += EntryText(FileNameOf(ScriptPath(command.program)));
    text += "\nExec=" + ExecLine(command) + "\nMimeType=" + type + ";\n";
    if (IsPlainFile(made.icon)) {
        std::string icon = NativePath(made.icon);
        if (icon.starts_with('/')) text += "Icon=" + icon + "\n";
    }
    native::MakeFolders(native::UserDataHome() + "/applications");
    WriteFileBytes(ScriptPath(EntryPath(extension)), text);
}

// Lets the desktop's own tool take the new types in, where it is installed.
void RefreshTypes() {
    const std::optional<std::string> tool = FindProgram(u"update-mime-database");
    if (!tool) return;
    std::string name = *tool;
    std::string folder = MimeFolder();
    char* words[] = {name.data(), folder.data(), nullptr};
    pid_t child = 0;
    if (posix_spawn(&child, name.c_str(), nullptr, nullptr, words, environ) == 0) {
        waitpid(child, nullptr, 0);
    }
}

void WriteOwnType(const std::string& extension, const DesktopAssociation& made) {
    const std::string text =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<mime-info xmlns=\"http://www.freedesktop.org/standards/shared-mime-info\">\n"
        "  <mime-type type=\"" +
        OwnType(extension) + "\">\n    <comment>" + XmlText(made.description) +
        "</comment>\n    <glob pattern=\"*." + extension + "\"/>\n  </mime-type>\n</mime-info>\n";
    native::MakeFolders(MimeFolder() + "/packages");
    WriteFileBytes(ScriptPath(PackagePath(extension)), text);
    RefreshTypes();
}

void SetDefault(const std::string& extension, const std::string& type) {
    native::MakeFolders(native::UserConfigHome());
    ChangeFile(ScriptPath(DefaultsPath()), [&](const std::string& old) {
        // A new file gets the line ends of this system.
        const std::string base = old.empty() ? "[Default Applications]\n" : old;
        return SetProfileValue(base, kDefaults, Utf8ToUtf16(type),
                               Utf8ToUtf16(EntryName(extension)));
    });
}

void ClearDefault(const std::string& extension, const std::string& type) {
    const std::u16string path = ScriptPath(DefaultsPath());
    if (!IsPlainFile(path)) return;
    ChangeFile(path, [&](const std::string& old) -> std::optional<std::string> {
        const std::u16string key = Utf8ToUtf16(type);
        if (ProfileValue(old, kDefaults, key) != Utf8ToUtf16(EntryName(extension))) {
            return std::nullopt;
        }
        return RemoveProfileKey(old, kDefaults, key);
    });
}

}  // namespace

void AssociateOnDesktop(const DesktopAssociation& made) {
    Attempt([&] {
        const std::optional<std::string> extension = PlainExtension(made.extension);
        const std::optional<Command> command = ReadCommand(made.command);
        if (!extension || !command) return;
        const std::string type = TypeOf(*extension);
        WriteEntry(*extension, type, *command, made);
        if (type == OwnType(*extension)) WriteOwnType(*extension, made);
        SetDefault(*extension, type);
    });
    pendingFailure.Clear();
}

void EndDesktopAssociation(std::u16string_view extension) {
    Attempt([&] {
        const std::optional<std::string> plain = PlainExtension(extension);
        if (!plain || !IsPlainFile(ScriptPath(EntryPath(*plain)))) return;
        ClearDefault(*plain, TypeOf(*plain));
        RemoveFile(ScriptPath(EntryPath(*plain)));
        if (!IsPlainFile(ScriptPath(PackagePath(*plain)))) return;
        RemoveFile(ScriptPath(PackagePath(*plain)));
        RefreshTypes();
    });
    pendingFailure.Clear();
}

}  // namespace velm
