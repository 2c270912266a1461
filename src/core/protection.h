// The protection gate: what the user's settings forbid to scripts. Every command that can harm the system
// asks here first and returns at once when it is refused.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace velm {

// What a command is about to touch.
enum class Protected : std::uint8_t {
    kRegistry = 0,
    kFiles = 1,
    kSystem = 2,         // programs, file associations, the session
    kExternalCalls = 3,  // code in libraries; refused with kSystem too
};

// One switch a level, and the last one: ask before each such command.
inline constexpr std::size_t kAskLevel = 4;
extern std::array<bool, 5> ProtectionLevels;

// Reads one of the user's own settings, empty when there is none: from the settings store, unless a test
// puts another source in. Without one no level is set.
extern std::u16string (*ReadUserSetting)(std::u16string_view section, std::u16string_view key);

// Sets the levels from the user's settings. A setting whose check digits don't agree is reported.
void LoadProtection();

// Whether the running sentence may go on. A refusal has then been reported (99).
bool CheckProtection(Protected what);

// The levels alone: whether they refuse this, with nobody asked and nothing reported.
bool IsProtected(Protected what);

}  // namespace velm
