// The drive C, which is the root of the file system.
#include "platform/drives.h"

#include <sys/stat.h>
#include <sys/statvfs.h>
#include <sys/sysmacros.h>

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

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

// The parts of a line between its blanks.
std::vector<std::string_view> FieldsOf(std::string_view line) {
    std::vector<std::string_view> fields;
    while (!line.empty()) {
        const std::size_t end = std::min(line.find(' '), line.size());
        if (end != 0) fields.push_back(line.substr(0, end));
        line.remove_prefix(std::min(end + 1, line.size()));
    }
    return fields;
}

// A line of the table: four fields, the mount point, options, "-", type, source. The last one for the
// root lies on top of the others.
Mount RootMount() {
    constexpr std::size_t kPoint = 4;
    std::ifstream table(kMounts);
    Mount root;
    for (std::string line; std::getline(table, line);) {
        const std::vector<std::string_view> fields = FieldsOf(line);
        const auto mark = std::find(fields.begin(), fields.end(), "-");
        const bool isRoot = fields.size() > kPoint && fields[kPoint] == kRoot;
        if (isRoot && fields.end() - mark > 2) root = {std::string(mark[1]), std::string(mark[2])};
    }
    return root;
}

// Names in the folder of labels write blanks and others as \x20.
std::string Unescaped(std::string_view name) {
    constexpr std::size_t kEscape = 4;
    std::string text;
    for (std::size_t i = 0; i < name.size(); ++i) {
        unsigned char byte = 0;
        const std::string_view rest = name.substr(i, kEscape);
        const bool isEscape =
            rest.starts_with("\\x") && rest.size() == kEscape &&
            std::from_chars(rest.data() + 2, rest.data() + kEscape, byte, 16).ec == std::errc();
        text += isEscape ? static_cast<char>(byte) : name[i];
        if (isEscape) i += kEscape - 1;
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
