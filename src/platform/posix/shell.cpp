// Opening by the desktop's own tools, and desktop entries (the freedesktop.org Desktop Entry
// specification, https://specifications.freedesktop.org/desktop-entry-spec/).
#include "platform/shell.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "data/failure.h"
#include "data/text.h"
#include "data/utf.h"
#include "data/width.h"
#include "platform/files.h"
#include "platform/posix/native_files.h"

extern char** environ;

namespace velm {

namespace {

constexpr std::string_view kLinkType = "Type=Link";
constexpr std::string_view kUrlKey = "URL=";

bool Start(std::vector<std::string> words) {
    std::vector<char*> arguments;
    for (std::string& word : words) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    posix_spawnattr_t settings;
    posix_spawnattr_init(&settings);
    // What is opened outlives the runtime and its terminal.
    posix_spawnattr_setflags(&settings, POSIX_SPAWN_SETSID);
    pid_t child = 0;
    const int result =
        posix_spawnp(&child, arguments[0], nullptr, &settings, arguments.data(), environ);
    posix_spawnattr_destroy(&settings);
    return result == 0;
}

int Result(bool started) { return started ? shell::kStarted : shell::kNoProgram; }

// "http:", "mailto:" and the like; a single letter is a drive.
bool IsUrl(std::u16string_view name) {
    const std::size_t colon = name.find(u':');
    if (colon == kNotFound || colon < 2) return false;
    for (const char16_t unit : ToLower(name.substr(0, colon))) {
        if ((unit < u'a' || unit > u'z') && unit != u'+' && unit != u'-') return false;
    }
    return true;
}

std::string FirstBytes(const std::string& path, std::size_t count) {
    std::string bytes(count, '\0');
    const native::File file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    const ssize_t got = file.Descriptor() < 0 ? 0 : read(file.Descriptor(), bytes.data(), count);
    bytes.resize(got < 0 ? 0 : static_cast<std::size_t>(got));
    return bytes;
}

// Permission alone tells little: some file systems give it to every file.
bool IsProgram(const std::string& path) {
    struct stat info;
    if (stat(path.c_str(), &info) != 0 || !S_ISREG(info.st_mode)) return false;
    if (access(path.c_str(), X_OK) != 0) return false;
    const std::string head = FirstBytes(path, 4);
    return head ==
               "\x7F"
               "ELF" ||
           head.starts_with("#!");
}

int OpenByDesktop(const std::string& target) {
    return Result(Start({"xdg-open", target}) || Start({"gio", "open", target}));
}

std::string LineOf(std::string_view text, std::string_view key) {
    const std::size_t at = text.find("\n" + std::string(key));
    if (at == text.npos) return {};
    const std::size_t from = at + 1 + key.size();
    return std::string(text.substr(from, text.find('\n', from) - from));
}

int OpenDesktopEntry(const std::string& path) {
    constexpr std::size_t kMostBytes = 65536;
    const std::string text = FirstBytes(path, kMostBytes);
    if (text.find(kLinkType) == text.npos) return Result(Start({"gio", "launch", path}));
    const std::string url = LineOf(text, kUrlKey);
    return url.empty() ? shell::kNoProgram : OpenByDesktop(url);
}

std::string FileUrl(const std::string& path) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string url = "file://";
    for (const char byte : path) {
        const auto value = static_cast<std::uint8_t>(byte);
        if (value > 0x20 && value < 0x7F &&
            std::string_view("%\"\\<>#?`{}").find(byte) == std::string_view::npos) {
            url += byte;
        } else {
            url += {'%', kDigits[value / 16], kDigits[value % 16]};
        }
    }
    return url;
}

// A value of a desktop entry, whose lines can hold no line break and no bare backslash.
std::string EntryText(std::string_view text) {
    std::string value;
    for (const char byte : text) {
        switch (byte) {
            case '\\': value += "\\\\"; break;
            case '\n': value += "\\n"; break;
            case '\r': value += "\\r"; break;
            default: value += byte;
        }
    }
    return value;
}

// One word of a command line in a desktop entry.
std::string ExecWord(std::string_view word) {
    std::string quoted = "\"";
    for (const char byte : word) {
        if (std::string_view("\"`$\\").find(byte) != std::string_view::npos) quoted += '\\';
        quoted += byte;
        if (byte == '%') quoted += '%';
    }
    return quoted + '"';
}

std::string ExecLine(const std::string& program, std::u16string_view arguments) {
    std::string line = ExecWord(program);
    std::u16string word;
    bool quoted = false;
    for (const char16_t unit : std::u16string(arguments) + u" ") {
        if (unit == u'"') quoted = !quoted;
        if (unit != u' ' || quoted) {
            if (unit != u'"') word += unit;
        } else if (!word.empty()) {
            line += " " + ExecWord(Utf16ToUtf8(std::exchange(word, {})));
        }
    }
    if (!word.empty()) line += " " + ExecWord(Utf16ToUtf8(word));
    return line;
}

std::string AbsoluteTarget(std::u16string_view target) {
    const std::string native = NativePath(target);
    if (native.starts_with('/')) return native;
    const std::unique_ptr<char, decltype(&std::free)> folder(getcwd(nullptr, 0), &std::free);
    return folder ? native::Join(folder.get(), native) : native;
}

std::u16string DesktopName(std::u16string_view link) {
    if (ExtensionOf(link) != u"lnk") return std::u16string(link);
    return std::u16string(link.substr(0, link.size() - 3)) + u"desktop";
}

}  // namespace

int ShellExecute(std::u16string_view verb, std::u16string_view file) {
    const std::u16string deed = ToLower(verb);
    if (deed != u"open" && deed != u"explore" && deed != u"edit" && deed != u"print") {
        return shell::kNoProgram;
    }
    if (IsUrl(file)) return OpenByDesktop(Utf16ToUtf8(file));
    if (!StatFile(file)) return shell::kNotFound;
    const std::string target = AbsoluteTarget(file);
    if (deed == u"print") return Result(Start({"lp", "--", target}));
    if (target.ends_with(".desktop")) return OpenDesktopEntry(target);
    if (deed == u"open" && IsProgram(target) && Start({target})) return shell::kStarted;
    return OpenByDesktop(target);
}

void WriteShortcut(std::u16string_view link, std::u16string_view target,
                   std::u16string_view arguments) {
    if (link.empty() || target.empty()) return;
    const std::string name = Utf16ToUtf8(FileNameOf(link.substr(0, link.rfind(u'.'))));
    std::string entry = "[Desktop Entry]\nVersion=1.5\nName=" + EntryText(name) + "\n";
    const bool url = IsUrl(target);
    const std::string path = url ? Utf16ToUtf8(target) : AbsoluteTarget(target);
    const bool starts = !url && (!arguments.empty() || IsProgram(path));
    const std::u16string file = DesktopName(link);
    if (starts) {
        const std::string folder = native::Folder(AbsoluteTarget(file));
        entry += "Type=Application\nExec=" + EntryText(ExecLine(path, arguments)) +
                 "\nPath=" + EntryText(folder) + "\nIcon=" + EntryText(path) + "\n";
    } else {
        entry += "Type=Link\nURL=" + EntryText(url ? path : FileUrl(path)) + "\n";
    }
    WriteFileBytes(file, entry);
    // Desktops start only what may be executed.
    if (starts) chmod(NativePath(file).c_str(), 0755);
}

}  // namespace velm
