// The registry as scripts see it: a tree of keys under seven roots. The commands 設定, 関連づけ and 削除
// and the functions that read come here; the tree itself is kept by platform/settings_store.h, the
// names of its roots are in core/registry_names.h.
#pragma once

#include <string>
#include <string_view>

#include "platform/settings_store.h"

namespace velm {

// ROOT\key\value cut at its first and its last backslash.
struct RegistryPlace {
    std::u16string root;
    std::u16string key;
    std::u16string name;
    int backslashes = 0;  // 0, 1, or 2 for more than one
};
RegistryPlace CutRegistryPath(std::u16string_view path);

// A value as text: strings up to their NUL, a number as eight hexadecimal digits, anything else as a list
// of its bytes in hexadecimal up to the first zero; of the data the first 256 bytes are read. The default
// when there is no such value, and found is then false.
std::u16string ReadRegistry(const StorePath& key, std::u16string_view name,
                            std::u16string_view defaultText, bool& found);

// Writes a string value, when the protection settings allow it. A failure is reported (26, 99). Returns
// whether it was written.
bool WriteRegistryString(const StorePath& key, std::u16string_view name, std::u16string_view value);
// The same for a caller who has asked the protection settings.
bool WriteAllowedRegistryString(const StorePath& key, std::u16string_view name,
                                std::u16string_view value);

}  // namespace velm
