// Settings and file associations.
#include "commands/settings_commands.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "core/diagnostics.h"
#include "core/eval.h"
#include "core/protection.h"
#include "core/registry.h"
#include "core/registry_names.h"
#include "core/sentence.h"
#include "core/setting_place.h"
#include "core/stored_settings.h"
#include "data/width.h"
#include "platform/associations.h"
#include "platform/settings_store.h"

namespace velm {

namespace {

constexpr int kBadKey = 32;
constexpr int kMissingParts = 90;
constexpr std::u16string_view kMissingPartsText = u"設定に必要な情報が不足しています。";

void StoreInRegistry(const SettingPlace& place, std::u16string_view value) {
    const std::u16string path = place.Part(1);
    const RegistryPlace cut = CutRegistryPath(path);
    if (cut.backslashes < 2) {
        RaiseError(kBadKey, kIconWarning, path, u"", -1);
        return;
    }
    const std::int32_t root = RootKeyFromName(cut.root);
    if (root != 0) WriteRegistryString({root, cut.key}, cut.name, value);
}

void StoreInFile(const SettingPlace& place, std::u16string_view value) {
    if (place.parts.size() != 3 || !HasSettingsFile()) {
        RaiseMessage(kMissingPartsText, kMissingParts, kIconStop, u"", u"", -1);
        return;
    }
    WriteSettingsFile(place.parts[1], place.parts[2], value);
}

// Failures are passed over: they are those of the store's file and of a setting that isn't there.
void StoreForUser(const SettingPlace& place, std::u16string_view value) {
    const std::u16string section = std::u16string(kScriptSection) + place.Part(0);
    const std::u16string key = place.Part(1);
    if (!value.empty()) {
        SaveUserSetting(section, key, value);
    } else if (!key.empty()) {
        DeleteUserSetting(section, key);
    } else {
        DeleteUserSection(section);
    }
}

std::u16string WithDot(const std::u16string& extension) {
    return extension.starts_with(u'.') ? extension : u"." + extension;
}

StorePath ClassKey(std::u16string_view key) {
    return {store_root::kClassesRoot, std::u16string(key)};
}

// The name of the file type that an extension has; empty when it has none.
std::u16string FileTypeOf(const std::u16string& extension) {
    bool found = false;
    return ReadRegistry(ClassKey(extension), u"", u"", found);
}

struct Association {
    std::u16string extension;
    std::u16string description;
    std::u16string command;
    std::u16string icon;
};

bool WriteAssociation(const Association& made) {
    std::u16string type = FileTypeOf(made.extension);
    if (type.empty()) {
        type = ToUpper(made.extension.substr(1)) + u"File";
        if (!WriteAllowedRegistryString(ClassKey(made.extension), u"", type)) return false;
    }
    return WriteAllowedRegistryString(ClassKey(type), u"", made.description) &&
           WriteAllowedRegistryString(ClassKey(type + u"\\shell\\open\\command"), u"",
                                      made.command) &&
           WriteAllowedRegistryString(ClassKey(type + u"\\DefaultIcon"), u"", made.icon);
}

}  // namespace

void CmdStoreSetting(Statement& statement, Context& /*context*/) {
    const std::u16string value = statement.HeArg.Text();
    const SettingPlace place = CutSettingPlace(statement.WoArg);
    switch (place.store) {
        case SettingStore::kRegistry: StoreInRegistry(place, value); break;
        case SettingStore::kFile: StoreInFile(place, value); break;
        case SettingStore::kUser: StoreForUser(place, value); break;
    }
}

void CmdAssociate(Statement& statement, Context& /*context*/) {
    if (!CheckProtection(Protected::kRegistry)) return;
    const auto [description, icon] = GetWords(statement, u"として", u"で");
    Association made;
    made.extension = WithDot(EvalWord(statement.WoArg).Text());
    made.command = EvalWord(statement.HeArg).Text();
    made.description = EvalWord(description).Text();
    made.icon = EvalWord(icon).Text();
    if (made.icon.empty()) made.icon = made.command;
    if (!WriteAssociation(made)) return;
    AssociateOnDesktop({made.extension.substr(1), made.command, made.description, made.icon});
}

}  // namespace velm
