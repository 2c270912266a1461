// The names of the registry's roots.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace velm {

// The number of a root, letter case ignored, as a 32-bit value with its high bit set. An unknown name is
// reported (32) and gives 0.
std::int32_t RootKeyFromName(std::u16string_view name);

// The name of a root by its number; empty for any other number.
std::u16string RootName(std::int32_t root);

}  // namespace velm
