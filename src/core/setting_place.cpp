// See setting_place.h.
#include "core/setting_place.h"

#include "core/settings_state.h"
#include "core/word_lists.h"
#include "data/brackets.h"
#include "data/text.h"

namespace velm {

namespace {

constexpr std::u16string_view kOf = u"の";
constexpr std::u16string_view kRegistry = u"レジストリ";
constexpr std::u16string_view kSettingsFile = u"設定ファイル";

}  // namespace

SettingPlace CutSettingPlace(std::u16string_view word) {
    SettingPlace place;
    place.parts = SplitOutsideBrackets(word, kOf, true);
    const std::size_t of = FindOutsideBrackets(word, kOf);
    const std::u16string_view first = Trim(word.substr(0, of == 0 ? kNotFound : of - 1));
    const std::u16string value = place.Part(0);
    if (first == kRegistry || value == kRegistry) {
        place.store = SettingStore::kRegistry;
    } else if (first == kSettingsFile || value == kSettingsFile) {
        place.store = SettingStore::kFile;
    }
    return place;
}

bool HasSettingsFile() { return !settings.settingsFile.empty(); }

}  // namespace velm
