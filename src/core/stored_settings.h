// What scripts keep from run to run beside the registry: the user's settings, by group and key, and the
// settings file that 設定ファイル names. The commands 設定 and 削除, the function 設定 and the protection
// gate come here.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace velm {

// Sections of the user's settings: scripts write below the first, the protection gate reads the second.
inline constexpr std::u16string_view kScriptSection = u"AppSettings\\";
inline constexpr std::u16string_view kSecuritySection = u"Secure";

// One of the user's settings; nothing when there is none, or it can't be read.
std::optional<std::u16string> FindUserSetting(std::u16string_view section, std::u16string_view key);
// The same, empty when there is none.
std::u16string UserSetting(std::u16string_view section, std::u16string_view key);
// Saving and removing; they throw Failure: 5 for an empty key, 5 for one that isn't there to be removed,
// and what the store's file makes impossible.
void SaveUserSetting(std::u16string_view section, std::u16string_view key,
                     std::u16string_view value);
void DeleteUserSetting(std::u16string_view section, std::u16string_view key);
void DeleteUserSection(std::u16string_view section);

// An entry of the settings file; nothing when there is none, no file is named or it can't be read.
std::optional<std::u16string> ReadSettingsFile(std::u16string_view section,
                                               std::u16string_view key);
// Changing the settings file; a failure is reported (39). Removing what isn't there is no failure, and
// makes no file.
void WriteSettingsFile(std::u16string_view section, std::u16string_view key,
                       std::u16string_view value);
void RemoveFromSettingsFile(std::u16string_view section, std::u16string_view key);
void RemoveSettingsFileSection(std::u16string_view section);

}  // namespace velm
