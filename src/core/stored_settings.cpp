// See stored_settings.h.
#include "core/stored_settings.h"

#include "core/diagnostics.h"
#include "core/settings_state.h"
#include "data/failure.h"
#include "data/profile_text.h"
#include "data/text.h"
#include "data/utf.h"
#include "platform/files.h"
#include "platform/locked_file.h"
#include "platform/settings_store.h"

namespace velm {

namespace {

constexpr int kFileWriteFailed = 39;
constexpr std::u16string_view kApplication = u"Velmscript\\";

StorePath PathOf(std::u16string_view section) {
    return {store_root::kUserSettings, std::u16string(kApplication).append(section)};
}

void ChangeSettingsFile(const FileChange& change) {
    const bool done = Attempt([&] {
        if (settings.settingsFile.empty()) throw Failure(failure::kBadFileName);
        ChangeFile(settings.settingsFile, change);
    });
    if (!done) RaiseError(kFileWriteFailed, kIconStop, u"", u"", -1);
}

// The changed bytes; nothing when they are the old ones.
std::optional<std::string> IfOther(std::string changed, const std::string& old) {
    if (changed == old) return std::nullopt;
    return changed;
}

}  // namespace

std::optional<std::u16string> FindUserSetting(std::u16string_view section,
                                              std::u16string_view key) {
    const std::optional<StoredValue> value = ReadStoredValue(PathOf(section), key);
    if (!value) return std::nullopt;
    return Utf8ToUtf16(value->bytes);
}

std::u16string UserSetting(std::u16string_view section, std::u16string_view key) {
    return FindUserSetting(section, key).value_or(u"");
}

void SaveUserSetting(std::u16string_view section, std::u16string_view key,
                     std::u16string_view value) {
    if (key.empty()) throw Failure(failure::kBadCall);
    WriteStoredValue(PathOf(section), key, {store_type::kString, Utf16ToUtf8(value)});
}

void DeleteUserSetting(std::u16string_view section, std::u16string_view key) {
    if (!DeleteStoredValue(PathOf(section), key)) throw Failure(failure::kBadCall);
}

void DeleteUserSection(std::u16string_view section) {
    if (!DeleteStoredKey(PathOf(section), true)) throw Failure(failure::kBadCall);
}

std::optional<std::u16string> ReadSettingsFile(std::u16string_view section,
                                               std::u16string_view key) {
    if (settings.settingsFile.empty()) return std::nullopt;
    std::string bytes;
    if (!Attempt([&] { bytes = ReadFileBytes(settings.settingsFile); })) {
        pendingFailure.Clear();
        return std::nullopt;
    }
    return ProfileValue(bytes, section, key);
}

void WriteSettingsFile(std::u16string_view section, std::u16string_view key,
                       std::u16string_view value) {
    ChangeSettingsFile([&](const std::string& old) {
        if (!FitsProfile(section, key, value)) throw Failure(failure::kBadCall);
        return IfOther(SetProfileValue(old, section, key, value), old);
    });
}

void RemoveFromSettingsFile(std::u16string_view section, std::u16string_view key) {
    ChangeSettingsFile(
        [&](const std::string& old) { return IfOther(RemoveProfileKey(old, section, key), old); });
}

void RemoveSettingsFileSection(std::u16string_view section) {
    ChangeSettingsFile(
        [&](const std::string& old) { return IfOther(RemoveProfileSection(old, section), old); });
}

}  // namespace velm
