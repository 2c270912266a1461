// Drives: what the file system of a drive tells about itself.
#pragma once

#include <cstdint>
#include <string>

namespace velm {

enum class DriveKind : std::uint8_t {
    kUnknown = 0,
    kRemovable = 1,
    kFixed = 2,
    kNetwork = 3,
    kDisc = 4,  // CD or DVD
    kMemory = 5,
};

struct DriveInfo {
    std::int64_t totalBytes = 0;
    std::int64_t freeBytes = 0;  // for this user
    std::u16string label;        // empty when it has none, or nobody may know it
    std::u16string fileSystem;   // as the system names it: ext4, tmpfs …
    DriveKind kind = DriveKind::kUnknown;
};

// What a drive tells now. letter: A to Z. Throws Failure(68) for a drive that isn't there; only C is.
DriveInfo ReadDrive(char16_t letter);

}  // namespace velm
