// See removal.h.
#include "commands/removal.h"

#include "core/diagnostics.h"
#include "core/eval.h"
#include "core/protection.h"
#include "core/registry.h"
#include "core/registry_names.h"
#include "core/statement.h"
#include "core/stored_settings.h"
#include "data/brackets.h"
#include "data/failure.h"
#include "data/text.h"
#include "platform/associations.h"
#include "platform/files.h"
#include "platform/settings_store.h"

namespace velm {

namespace {

constexpr int kCannotDeleteKey = 30;
constexpr int kBadFolder = 211;

constexpr std::u16string_view kFolder = u"フォルダ";
constexpr std::u16string_view kRegistry = u"レジストリの";
constexpr std::u16string_view kSettingsFile = u"設定ファイルの";
constexpr std::u16string_view kOf = u"の";
constexpr std::u16string_view kWholly = u"完全";
constexpr std::size_t kFolderWordLength = 5;
constexpr std::size_t kAssociationLength = 4;

std::u16string ValueOf(std::u16string_view text) { return EvalText(text).Text(); }

void RemoveNamedFolder(std::u16string_view word) {
    const std::u16string folder = ValueOf(word);
    if (Attempt([&] { RemoveFolder(folder); })) return;
    const std::u16string detail = pendingFailure.description + std::u16string(kCrLf) + folder;
    RaiseError(kBadFolder, kIconStop, detail, folder, -1);
    pendingFailure.Clear();
}

bool DeleteKey(std::int32_t root, const std::u16string& path, bool wholly) {
    bool deleted = false;
    Attempt([&] { deleted = DeleteStoredKey({root, path}, wholly); });
    pendingFailure.Clear();
    return deleted;
}

// Only whole trees are guarded: a key directly under a root holds what the system lives on.
void RemoveKey(std::u16string_view word, bool wholly) {
    const std::u16string key = ValueOf(word);
    const std::size_t cut = key.find(u'\\');
    const std::int32_t root = RootKeyFromName(std::u16string_view(key).substr(0, cut));
    if (root == 0) return;
    const std::u16string path = cut == kNotFound ? std::u16string() : key.substr(cut + 1);
    if (wholly && !Contains(path, u"\\")) {
        RaiseMessage(u"このキーはシステムに影響を及ぼすため削除できません。\\n%1", 0, kIconStop,
                     key, u"", -1);
    } else if (!DeleteKey(root, path, wholly)) {
        RaiseError(kCannotDeleteKey, kIconStop, key, u"", -1);
    }
}

void RemoveSetting(std::u16string_view word) {
    const std::size_t cut = FindOutsideBrackets(word, kOf);
    const std::u16string section = ValueOf(cut == 0 ? word : word.substr(0, cut - 1));
    if (cut == 0) {
        RemoveSettingsFileSection(section);
    } else {
        RemoveFromSettingsFile(section, ValueOf(word.substr(cut)));
    }
}

// Kept: the key of the extension itself stays, and so does a file type with subkeys. On the desktop the
// association ends.
void RemoveAssociation(std::u16string_view word) {
    if (!CheckProtection(Protected::kSystem)) return;
    const std::size_t cut = FindOutsideBrackets(word, kOf);
    std::u16string extension = ValueOf(cut == 0 ? word : word.substr(0, cut - 1));
    if (!extension.starts_with(u'.')) extension.insert(0, u".");
    bool found = false;
    const std::u16string type =
        ReadRegistry({store_root::kClassesRoot, extension}, u"", u"", found);
    if (!type.empty()) DeleteKey(store_root::kClassesRoot, type, false);
    EndDesktopAssociation(std::u16string_view(extension).substr(1));
}

}  // namespace

bool RemoveByForm(Statement& statement) {
    const std::u16string word = statement.WoArg.Text();
    const std::u16string_view text = word;
    const std::u16string_view ending =
        text.substr(text.size() - std::min(text.size(), kAssociationLength));
    if (Trim(text.substr(0, kFolderWordLength)) == kFolder) {
        RemoveNamedFolder(text.substr(std::min(text.size(), kFolderWordLength)));
    } else if (text.starts_with(kRegistry)) {
        RemoveKey(text.substr(kRegistry.size()), statement.HeArg.Text() == kWholly);
    } else if (text.starts_with(kSettingsFile)) {
        RemoveSetting(text.substr(kSettingsFile.size()));
    } else if (ending == u"関連付け" || ending == u"関連づけ") {
        RemoveAssociation(text);
    } else {
        return false;
    }
    return true;
}

}  // namespace velm
