// The system's answers, from uname, the environment and /proc.
#include "platform/system_info.h"

#include <dirent.h>
#include <sys/utsname.h>
#include <unistd.h>

#include <array>
#include <charconv>
#include <climits>
#include <memory>

extern char** environ;

namespace velm {

namespace {

constexpr const char* kProcesses = "/proc";

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

char FoldAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool SameButCase(std::string_view left, std::string_view right) {
    if (left.size() != right.size()) return false;
    for (std::size_t i = 0; i < left.size(); ++i) {
        if (FoldAscii(left[i]) != FoldAscii(right[i])) return false;
    }
    return true;
}

// The target of a symbolic link; empty on any failure.
std::string LinkTarget(const std::string& link) {
    std::array<char, PATH_MAX> buffer;
    const ssize_t length = readlink(link.c_str(), buffer.data(), buffer.size());
    return length < 0 ? std::string()
                      : std::string(buffer.data(), static_cast<std::size_t>(length));
}

struct CloseDirectory {
    void operator()(DIR* directory) const { closedir(directory); }
};

}  // namespace

SystemRelease ParseRelease(std::string_view release) {
    std::array<std::int32_t, 3> parts = {};
    const char* at = release.data();
    const char* const end = at + release.size();
    for (std::int32_t& part : parts) {
        const auto [next, problem] = std::from_chars(at, end, part);
        if (problem != std::errc()) break;
        at = next;
        if (at == end || *at != '.') break;
        ++at;
    }
    return {parts[0], parts[1], parts[2]};
}

SystemRelease TheSystemRelease() {
    utsname names = {};
    return uname(&names) == 0 ? ParseRelease(names.release) : SystemRelease{};
}

std::optional<std::string> EnvironmentValue(std::string_view name) {
    std::optional<std::string> alike;
    for (char** entry = environ; entry != nullptr && *entry != nullptr; ++entry) {
        const std::string_view text = *entry;
        const std::size_t equals = text.find('=');
        if (equals == std::string_view::npos) continue;
        const std::string_view key = text.substr(0, equals);
        if (key == name) return std::string(text.substr(equals + 1));
        if (!alike && SameButCase(key, name)) alike = std::string(text.substr(equals + 1));
    }
    return alike;
}

std::string ProgramFile() { return LinkTarget("/proc/self/exe"); }

bool OtherProcessRuns(const std::string& programFile) {
    if (programFile.empty()) return false;
    const std::unique_ptr<DIR, CloseDirectory> processes(opendir(kProcesses));
    if (!processes) return false;
    const std::string own = std::to_string(getpid());
    while (const dirent* entry = readdir(processes.get())) {
        const std::string id = entry->d_name;
        if (!IsDigit(id[0]) || id == own) continue;
        if (LinkTarget(std::string(kProcesses) + "/" + id + "/exe") == programFile) return true;
    }
    return false;
}

}  // namespace velm
