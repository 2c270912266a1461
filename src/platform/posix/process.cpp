// Processes and the session on a POSIX desktop.
#include "platform/process.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <ctime>
#include <string>
#include <vector>

#include "data/failure.h"
#include "data/text.h"
#include "data/utf.h"
#include "data/width.h"
#include "platform/files.h"

extern char** environ;

namespace velm {

namespace {

// The home platform's programs and those of this desktop that do their work, the first one that is
// installed.
struct KnownProgram {
    std::u16string_view name;
    std::array<const char*, 6> candidates;
};

constexpr KnownProgram kKnownPrograms[] = {
    {u"notepad.exe", {"gnome-text-editor", "gedit", "mousepad", "kwrite", "xed", "featherpad"}},
    {u"calc.exe",
     {"gnome-calculator", "kcalc", "mate-calc", "galculator", "qalculate-gtk", "xcalc"}},
    {u"explorer.exe", {"nautilus", "dolphin", "thunar", "nemo", "caja", "pcmanfm"}},
    {u"pbrush.exe", {"kolourpaint", "drawing", "pinta", "mtpaint", "gimp", "krita"}},
    {u"cdplayer.exe", {"vlc", "rhythmbox", "audacious", "mpv", "clementine", "totem"}},
    {u"defrag.exe",
     {"gnome-disks", "partitionmanager", "gparted", "baobab", "filelight", "qdirstat"}},
    {u"scandskw.exe",
     {"gnome-disks", "partitionmanager", "gparted", "baobab", "filelight", "qdirstat"}},
};

bool IsRegularFile(const std::string& path) {
    struct stat info = {};
    return stat(path.c_str(), &info) == 0 && S_ISREG(info.st_mode);
}

bool IsExecutable(const std::string& path) {
    return IsRegularFile(path) && access(path.c_str(), X_OK) == 0;
}

// A program without a folder, sought in the folders of PATH; empty if it isn't there.
std::string FindOnPath(const std::string& name) {
    const char* path = std::getenv("PATH");
    std::string folders = path == nullptr ? "/usr/local/bin:/usr/bin:/bin" : path;
    folders += ':';
    std::size_t from = 0;
    for (std::size_t end = folders.find(':'); end != std::string::npos;
         end = folders.find(':', from)) {
        const std::string candidate = folders.substr(from, end - from) + "/" + name;
        if (IsExecutable(candidate)) return candidate;
        from = end + 1;
    }
    return {};
}

std::string FindKnown(std::u16string_view name) {
    for (const KnownProgram& known : kKnownPrograms) {
        if (!SameName(known.name, name)) continue;
        for (const char* candidate : known.candidates) {
            std::string found = FindOnPath(candidate);
            if (!found.empty()) return found;
        }
    }
    return {};
}

std::string FindProgram(std::u16string_view name) {
    if (name.find_first_of(u"\\/:") == kNotFound) {
        std::string found = FindOnPath(Utf16ToUtf8(name));
        if (found.empty()) found = FindKnown(name);
        if (!found.empty()) return found;
    }
    std::string path = NativePath(name);
    if (!IsRegularFile(path)) throw Failure(failure::kFileNotFound);
    if (!IsExecutable(path)) throw Failure(failure::kBadCall);
    return path;
}

// The words of a command line: cut at blanks outside double quotes.
std::vector<std::u16string> CutCommandLine(std::u16string_view line) {
    std::vector<std::u16string> words;
    std::u16string word;
    bool quoted = false;
    bool started = false;
    for (const char16_t unit : line) {
        if (unit == u'"') {
            quoted = !quoted;
            started = true;
        } else if (unit == u' ' && !quoted) {
            if (started) words.push_back(std::exchange(word, {}));
            started = false;
        } else {
            word += unit;
            started = true;
        }
    }
    if (started) words.push_back(word);
    return words;
}

// A word that is a path in the script's way of writing is handed on in the system's.
std::string NativeWord(const std::u16string& word) {
    const bool path = Contains(word, u"\\") || (word.size() > 2 && word[1] == u':');
    return path ? NativePath(word) : Utf16ToUtf8(word);
}

std::int64_t Spawn(const std::string& program, std::vector<std::string> words) {
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (std::string& word : words) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    pid_t child = 0;
    const int result =
        posix_spawn(&child, program.c_str(), nullptr, nullptr, arguments.data(), environ);
    if (result == ENOEXEC || result == EACCES) throw Failure(failure::kBadCall);
    if (result != 0) throw Failure(failure::kFileNotFound);
    return child;
}

// Runs a program of the session manager and waits for its answer.
void RunQuietly(const std::string& name, std::vector<std::string> words) {
    const std::string program = FindOnPath(name);
    if (program.empty()) return;
    words.insert(words.begin(), name);
    Attempt([&] {
        int status = 0;
        waitpid(static_cast<pid_t>(Spawn(program, std::move(words))), &status, 0);
    });
    pendingFailure.Clear();
}

}  // namespace

std::int64_t StartProgram(std::u16string_view commandLine) {
    const std::vector<std::u16string> line = CutCommandLine(commandLine);
    if (line.empty()) throw Failure(failure::kFileNotFound);
    const std::string program = FindProgram(line[0]);
    std::vector<std::string> words = {program};
    for (std::size_t i = 1; i < line.size(); ++i) words.push_back(NativeWord(line[i]));
    return Spawn(program, std::move(words));
}

bool IsProgramRunning(std::int64_t processId) {
    int status = 0;
    return waitpid(static_cast<pid_t>(processId), &status, WNOHANG) == 0;
}

void EndSession(int flags) {
    constexpr int kReboot = 2;
    if ((flags & kReboot) != 0) {
        RunQuietly("systemctl", {"reboot"});
        return;
    }
    const char* session = std::getenv("XDG_SESSION_ID");
    if (session != nullptr) RunQuietly("loginctl", {"terminate-session", session});
}

void SleepMilliseconds(int milliseconds) {
    timespec time = {milliseconds / 1000, (milliseconds % 1000) * 1'000'000L};
    nanosleep(&time, nullptr);
}

}  // namespace velm
