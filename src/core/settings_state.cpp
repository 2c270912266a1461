// The start values of the settings.
#include "core/settings_state.h"

namespace velm {

SettingsState settings;

void ResetSettings() { settings = SettingsState(); }

}  // namespace velm
