// The store that stands for the home platform's registry and keeps the settings of scripts: a tree of
// keys with named values, in one SQLite file in the user's data folder. The file is opened at its first
// use and made at the first write; several processes may use it at once. A write that has returned
// survives a crash of the process or the machine.
//
// Names of keys and values keep their letter case and are found without regard to it. Paths are cut at
// "\"; empty parts are passed over. Who may write is asked elsewhere (core/protection.h).
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velm {

// The roots of the tree: seven of the registry, by the home platform's numbers as 32-bit values with their
// high bit set, and one for the settings of scripts.
namespace store_root {
constexpr std::int32_t kClassesRoot = -0x7FFFFFFF - 1;
constexpr std::int32_t kCurrentUser = -0x7FFFFFFF - 1 + 1;
constexpr std::int32_t kLocalMachine = -0x7FFFFFFF - 1 + 2;
constexpr std::int32_t kUsers = -0x7FFFFFFF - 1 + 3;
constexpr std::int32_t kPerformanceData = -0x7FFFFFFF - 1 + 4;
constexpr std::int32_t kCurrentConfig = -0x7FFFFFFF - 1 + 5;
constexpr std::int32_t kDynData = -0x7FFFFFFF - 1 + 6;
constexpr std::int32_t kUserSettings = 1;
}  // namespace store_root

// Types of values, by the home platform's numbers.
namespace store_type {
constexpr std::int32_t kString = 1;        // text in the system code page, with a NUL
constexpr std::int32_t kExpandString = 2;  // the same, with variables in it
constexpr std::int32_t kBinary = 3;
constexpr std::int32_t kNumber = 4;  // 32 bits, low byte first
}  // namespace store_type

struct StoredValue {
    std::int32_t type = store_type::kString;
    std::string bytes;
};

// A key, or with a name a value of it; an empty name is the key's default value.
struct StorePath {
    std::int32_t root = 0;
    std::u16string key;
};

// Reading; whatever can't be read, be it a missing or a damaged file, is not there.
std::optional<StoredValue> ReadStoredValue(const StorePath& path, std::u16string_view name);
bool HasStoredKey(const StorePath& path);
// Names in the order of their letters, and of values in the order in which they were first written.
std::vector<std::u16string> StoredSubkeys(const StorePath& path);
std::vector<std::u16string> StoredValueNames(const StorePath& path);

// Writes a value; the keys on the way are made. Throws Failure: 70 where the file may not be written, 61
// on a full disk, 57 for a damaged file, 55 when other processes hold it too long.
void WriteStoredValue(const StorePath& path, std::u16string_view name, const StoredValue& value);

// Removes a value; false when there is none. Throws as writing does.
bool DeleteStoredValue(const StorePath& path, std::u16string_view name);
// Removes a key with its values. False when there is no such key, when it is a root, and when it has
// subkeys that are not to go with it. Throws as writing does.
bool DeleteStoredKey(const StorePath& path, bool withSubkeys);

// Closes the file; the next use opens it anew. For tests, which change the user's data folder.
void CloseSettingsStore();

}  // namespace velm
