// The drive C, which is the root of the file system.
#include "platform/drives.h"

#include <sys/stat.h>
#include <sys/statvfs.h>
#include <sys/sysmacros.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <string_view>
#include <system_error>

#include "data/failure.h"
#include "data/utf.h"

namespace velm {

namespace {

constexpr const char* kRoot = "/";
constexpr const char* kMounts = "/proc/self/mountinfo";
constexpr const char* kLabels = "/dev/disk/by-label";
constexpr const char* kBlockDevices = "/sys/dev/block/";

// What is mounted at the root.
struct Mount {
    std::string type;
    std::string source;
};

// A line of the table: fields up to the mount point, options, "-", type, source.
Mount RootMount() {
    std::ifstream table(kMounts);
    Mount root;
    for (std::string line; std::getline(table, line);) {
        std::istringstream fields(line);
        std::string id, parent, device, inside, point, field;
        fields >> id >> parent >> device >> inside >> point;
        if (point != kRoot) continue;
        while (fields >> field && field != "-") {
        }
        fields >> root.type >> root.source;
    }
    return root;
}

// Names in the table of labels write blanks and others as \x20.
std::string Unescaped(std::string_view name) {
    std::string text;
    for (std::size_t i = 0; i < name.size(); ++i) {
        const bool isEscape = name[i] == '\\' && i + 3 < name.size() && name[i + 1] == 'x';
        text += isEscape
                    ? static_cast<char>(std::stoi(std::string(name.substr(i + 2, 2)), nullptr, 16))
                    : name[i];
        if (isEscape) i += 3;
    }
    return text;
}

std::string LabelOf(const std::string& source) {
    std::error_code problem;
    const std::filesystem::path device = std::filesystem::canonical(source, problem);
    if (problem) return {};
    for (std::filesystem::directory_iterator it(kLabels, problem), end; !problem && it != end;
         it.increment(problem)) {
        std::error_code unread;
        if (std::filesystem::canonical(it->path(), unread) == device && !unread) {
            return Unescaped(it->path().filename().native());
        }
    }
    return {};
}

// Whether the system says that the disk under the root can be taken out.
bool IsRemovable() {
    struct stat info;
    if (stat(kRoot, &info) != 0) return false;
    const std::string device = kBlockDevices + std::to_string(major(info.st_dev)) + ":" +
                               std::to_string(minor(info.st_dev));
    for (const char* const place : {"/removable", "/../removable"}) {
        std::ifstream file(device + place);
        if (char flag = 0; file >> flag) return flag == '1';
    }
    return false;
}

DriveKind KindOf(std::string_view type) {
    constexpr std::string_view kNetworks[] = {"nfs", "nfs4", "cifs", "smb3", "9p", "fuse.sshfs"};
    constexpr std::string_view kDiscs[] = {"iso9660", "udf"};
    constexpr std::string_view kMemories[] = {"tmpfs", "ramfs", "rootfs"};
    const auto isIn = [type](const auto& types) {
        return std::find(std::begin(types), std::end(types), type) != std::end(types);
    };
    if (isIn(kNetworks)) return DriveKind::kNetwork;
    if (isIn(kDiscs)) return DriveKind::kDisc;
    if (isIn(kMemories)) return DriveKind::kMemory;
    return IsRemovable() ? DriveKind::kRemovable : DriveKind::kFixed;
}

}  // namespace

DriveInfo ReadDrive(char16_t letter) {
    struct statvfs info;
    if (letter != u'C' || statvfs(kRoot, &info) != 0) throw Failure(failure::kDeviceUnavailable);
    const Mount mount = RootMount();
    const auto block = static_cast<std::int64_t>(info.f_frsize);
    DriveInfo drive;
    drive.totalBytes = block * static_cast<std::int64_t>(info.f_blocks);
    drive.freeBytes = block * static_cast<std::int64_t>(info.f_bavail);
    drive.label = Utf8ToUtf16(LabelOf(mount.source));
    drive.fileSystem = Utf8ToUtf16(mount.type);
    drive.kind = KindOf(mount.type);
    return drive;
}

}  // namespace velm
