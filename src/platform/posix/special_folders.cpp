// The desktop's folders, by the XDG base directory and user directory conventions:
// https://specifications.freedesktop.org/basedir-spec/
// https://www.freedesktop.org/wiki/Software/xdg-user-dirs/
#include "platform/special_folders.h"

#include <algorithm>
#include <optional>
#include <string_view>

#include "data/failure.h"
#include "platform/files.h"
#include "platform/system_info.h"

namespace velm {

namespace {

constexpr std::string_view kHomeInChoice = "$HOME";

std::string Variable(std::string_view name) { return EnvironmentValue(name).value_or(""); }

std::string Home() {
    std::string home = Variable("HOME");
    if (home.empty()) throw Failure(failure::kNoSuchMember);
    return home;
}

// A base folder: the variable's value, which must be absolute, or the default within the home folder.
std::string BaseFolder(std::string_view variable, std::string_view inHome) {
    std::string chosen = Variable(variable);
    if (chosen.starts_with('/')) return chosen;
    return Home() + "/" + std::string(inHome);
}

// The text between the quotes of a line NAME="VALUE", with "\" taken off what it protects; nothing when
// the line is about another name.
std::optional<std::string> ChoiceOfLine(std::string_view line, std::string_view name) {
    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
    if (!line.starts_with(name)) return std::nullopt;
    line.remove_prefix(name.size());
    if (!line.starts_with("=\"")) return std::nullopt;
    line.remove_prefix(2);
    std::string value;
    for (std::size_t i = 0; i < line.size() && line[i] != '"'; ++i) {
        if (line[i] == '\\' && i + 1 < line.size()) ++i;
        value += line[i];
    }
    return value;
}

// A choice counts when it is absolute or begins with the home folder.
std::optional<std::string> FullChoice(const std::string& choice) {
    if (choice.starts_with('/')) return choice;
    if (!choice.starts_with(kHomeInChoice)) return std::nullopt;
    const std::string rest = choice.substr(kHomeInChoice.size());
    if (!rest.empty() && rest.front() != '/') return std::nullopt;
    return Home() + rest;
}

std::string ReadChoices() {
    const std::u16string path =
        ScriptPath(BaseFolder("XDG_CONFIG_HOME", ".config") + "/user-dirs.dirs");
    std::string text;
    if (IsPlainFile(path)) {
        try {
            text = ReadFileBytes(path);
        } catch (const Failure&) {
            text.clear();  // choices that can't be read are none
        }
    }
    return text;
}

// A folder of the user: the last line about it that counts, else the default within the home folder.
std::string UserFolder(std::string_view name, std::string_view inHome) {
    std::string folder = Home() + "/" + std::string(inHome);
    const std::string choices = ReadChoices();
    std::string_view rest = choices;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        if (const auto choice = ChoiceOfLine(rest.substr(0, end), name)) {
            folder = FullChoice(*choice).value_or(folder);
        }
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return folder;
}

std::string NativeFolder(SpecialFolder folder) {
    switch (folder) {
        case SpecialFolder::kTemporary: {
            const std::string chosen = Variable("TMPDIR");
            return chosen.starts_with('/') ? chosen : "/tmp";
        }
        case SpecialFolder::kDesktop: return UserFolder("XDG_DESKTOP_DIR", "Desktop");
        case SpecialFolder::kDocuments: return UserFolder("XDG_DOCUMENTS_DIR", "Documents");
        case SpecialFolder::kMenu:
            return BaseFolder("XDG_DATA_HOME", ".local/share") + "/applications";
        case SpecialFolder::kAutostart:
            return BaseFolder("XDG_CONFIG_HOME", ".config") + "/autostart";
    }
    throw Failure(failure::kNoSuchMember);
}

}  // namespace

std::u16string FolderOfPurpose(SpecialFolder folder) {
    std::string path = NativeFolder(folder);
    while (path.size() > 1 && path.back() == '/') path.pop_back();
    return ScriptPath(path);
}

}  // namespace velm
