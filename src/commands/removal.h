// What 削除 removes beside files: keys of the registry, entries of settings files, file associations. The
// stores themselves are elsewhere and put their functions here.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace velm {

struct Statement;

// A store that isn't connected refuses everything. Results of the registry are 0 when all is well.
struct RemovalStores {
    // Removes a key without subkeys, and a key with all below it. The root is its number.
    std::int32_t (*RegDeleteKey)(std::int32_t root, std::u16string_view path) = nullptr;
    std::int32_t (*SHDeleteKey)(std::int32_t root, std::u16string_view path) = nullptr;
    // The default value of a key; nothing when there is none.
    std::optional<std::u16string> (*ReadDefault)(std::int32_t root,
                                                 std::u16string_view path) = nullptr;
    // Removes an entry of a settings file, a whole section where the key is empty.
    bool (*RemoveSetting)(std::u16string_view file, std::u16string_view section,
                          std::u16string_view key) = nullptr;
};

extern RemovalStores removalStores;

// Carries the sentence of 削除 out when its を word has one of these forms.
bool RemoveByForm(Statement& statement);

}  // namespace velm
