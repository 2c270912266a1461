// See registry_names.h.
#include "core/registry_names.h"

#include <iterator>

#include "core/diagnostics.h"
#include "data/width.h"

namespace velm {

namespace {

constexpr int kBadKey = 32;
constexpr std::uint32_t kFirstRoot = 0x80000000;

// In the order of their numbers.
constexpr std::u16string_view kRoots[] = {
    u"HKEY_CLASSES_ROOT",     u"HKEY_CURRENT_USER",   u"HKEY_LOCAL_MACHINE", u"HKEY_USERS",
    u"HKEY_PERFORMANCE_DATA", u"HKEY_CURRENT_CONFIG", u"HKEY_DYN_DATA",
};

}  // namespace

std::int32_t RootKeyFromName(std::u16string_view name) {
    const std::u16string upper = ToUpper(name);
    std::uint32_t number = kFirstRoot;
    for (const std::u16string_view root : kRoots) {
        if (upper == root) return static_cast<std::int32_t>(number);
        ++number;
    }
    RaiseError(kBadKey, kIconStop, name, u"", -1);
    return 0;
}

std::u16string RootName(std::int32_t root) {
    const std::uint32_t index = static_cast<std::uint32_t>(root) - kFirstRoot;
    return index < std::size(kRoots) ? std::u16string(kRoots[index]) : std::u16string();
}

}  // namespace velm
