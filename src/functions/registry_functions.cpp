// See registry_functions.h.
#include "functions/registry_functions.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/diagnostics.h"
#include "core/eval.h"
#include "core/registry.h"
#include "core/registry_names.h"
#include "core/setting_place.h"
#include "core/stored_settings.h"
#include "data/lists.h"
#include "data/text.h"
#include "platform/settings_store.h"

namespace velm {

namespace {

constexpr int kBadKey = 32;
constexpr int kMissingParts = 35;

using ListNames = std::vector<std::u16string> (*)(const StorePath& path);

// The names that a list gives below the key of the argument; each one escaped, numbers too.
void ListBelow(Value& result, const Arguments& arguments, ListNames list) {
    std::u16string path;
    arguments.Split(path);
    const std::size_t backslash = path.find(u'\\');
    if (backslash == kNotFound) {
        RaiseError(kBadKey, kIconWarning, path, u"", -1);
        return;
    }
    const std::int32_t root = RootKeyFromName(std::u16string_view(path).substr(0, backslash));
    if (root == 0) return;
    std::vector<std::u16string> names = list({root, path.substr(backslash + 1)});
    for (std::u16string& name : names) name = EscapeItem(name);
    result = Value(Join(names, u","));
}

std::u16string ReadFromRegistry(const SettingPlace& place, const std::u16string& defaultText) {
    const RegistryPlace cut = CutRegistryPath(place.Part(1));
    const std::int32_t root = RootKeyFromName(cut.root);
    bool found = false;
    return root == 0 ? std::u16string()
                     : ReadRegistry({root, cut.key}, cut.name, defaultText, found);
}

std::u16string ReadFromFile(const SettingPlace& place, const std::u16string& defaultText) {
    return ReadSettingsFile(place.Part(1), place.Part(2)).value_or(defaultText);
}

std::u16string ReadOfUser(const SettingPlace& place, const std::u16string& defaultText) {
    const std::u16string section = std::u16string(kScriptSection) + place.Part(0);
    return FindUserSetting(section, place.Part(1)).value_or(defaultText);
}

}  // namespace

void FnRegistrySubkeys(Value& result, Arguments& arguments) {
    ListBelow(result, arguments, StoredSubkeys);
}

void FnRegistryValues(Value& result, Arguments& arguments) {
    ListBelow(result, arguments, StoredValueNames);
}

void FnSetting(Value& result, Arguments& arguments) {
    Word where;
    Word otherwise;
    arguments.SplitRaw(where, otherwise);
    const SettingPlace place = CutSettingPlace(where);
    if (place.parts.size() < 2) {
        RaiseError(kMissingParts, kIconStop, u"", u"", -1);
        return;
    }
    const std::u16string defaultText = EvalWord(otherwise).Text();
    switch (place.store) {
        case SettingStore::kRegistry: result = Value(ReadFromRegistry(place, defaultText)); break;
        case SettingStore::kFile: result = Value(ReadFromFile(place, defaultText)); break;
        case SettingStore::kUser: result = Value(ReadOfUser(place, defaultText)); break;
    }
}

}  // namespace velm
