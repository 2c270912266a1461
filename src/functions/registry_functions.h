// Functions that read the registry and the settings of scripts.
#pragma once

#include "core/arguments.h"
#include "data/value.h"

namespace velm {

// レジストリのサブキー一覧, レジストリの値一覧: the names below ROOT\key, as a list.
void FnRegistrySubkeys(Value& result, Arguments& arguments);
void FnRegistryValues(Value& result, Arguments& arguments);

// 設定（place、default）.
void FnSetting(Value& result, Arguments& arguments);

}  // namespace velm
