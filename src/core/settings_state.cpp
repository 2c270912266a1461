// The start values of the settings.
#include "core/settings_state.h"

#include <cmath>
#include <cstdlib>

#include "data/failure.h"

namespace velm {

SettingsState settings;

float TurtleDirectionOf(double degrees) {
    constexpr int kCircle = 360;
    const auto direction = static_cast<float>(degrees);
    if (!std::isfinite(direction)) throw Failure(failure::kOverflow);
    if (direction >= 0) return direction;
    const auto whole = static_cast<int>(std::trunc(std::fmod(direction, float{kCircle})));
    return static_cast<float>(std::abs(whole + kCircle));
}

void ResetSettings() { settings = SettingsState(); }

}  // namespace velm
