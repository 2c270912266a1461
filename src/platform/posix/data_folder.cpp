// See data_folder.h.
#include "platform/posix/data_folder.h"

#include <sys/stat.h>

#include <cerrno>
#include <string_view>

#include "data/failure.h"
#include "platform/posix/native_files.h"
#include "platform/system_info.h"

namespace velm::native {

namespace {

constexpr mode_t kForUserOnly = 0700;

// A base folder counts when it is absolute.
std::string BaseFolder(std::string_view variable, std::string_view inHome) {
    std::string chosen = EnvironmentValue(variable).value_or("");
    if (chosen.starts_with('/')) return chosen;
    const std::string home = EnvironmentValue("HOME").value_or("");
    if (home.empty()) throw Failure(failure::kPermissionDenied);
    return home + std::string(inHome);
}

}  // namespace

std::string UserDataHome() { return BaseFolder("XDG_DATA_HOME", "/.local/share"); }

std::string UserConfigHome() { return BaseFolder("XDG_CONFIG_HOME", "/.config"); }

std::string DataFolder() { return UserDataHome() + "/velmscript"; }

void MakeFolders(const std::string& path) {
    for (std::size_t at = path.find('/', 1); at != std::string::npos; at = path.find('/', at + 1)) {
        mkdir(path.substr(0, at).c_str(), kForUserOnly);
    }
    if (mkdir(path.c_str(), kForUserOnly) == 0) return;
    const int error = errno;
    struct stat info;
    if (stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode)) return;
    Fail(error, path, Deed::kWrite);
}

void MakeDataFolder() { MakeFolders(DataFolder()); }

}  // namespace velm::native
