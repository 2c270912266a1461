// The place of a setting as sentences and the function 設定 write it: レジストリのROOT\key\value,
// 設定ファイルのsection の key, or group の key.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace velm {

enum class SettingStore : std::uint8_t { kRegistry, kFile, kUser };

struct SettingPlace {
    SettingStore store = SettingStore::kUser;
    std::vector<std::u16string> parts;  // evaluated; the first names the store or is the group

    std::u16string Part(std::size_t index) const {
        return index < parts.size() ? parts[index] : std::u16string();
    }
};

// Cuts a word at の outside brackets. The store is told by the first part as written or as it evaluates:
// 設定ファイル is a function too, whose value is the file's path.
SettingPlace CutSettingPlace(std::u16string_view word);

// Whether 設定ファイル has named a file.
bool HasSettingsFile();

}  // namespace velm
