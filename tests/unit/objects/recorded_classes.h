// The members that each class of control has, with the values that they start with.
#pragma once

#include <map>
#include <string>
#include <string_view>

#include "platform/toolkit.h"

namespace velm {

// The name of a class in the notes of a recording toolkit.
std::u16string_view RecordedClassName(ControlClass which);
// Its members with their first values, in upper case.
std::map<std::u16string, MemberValue> RecordedDefaults(ControlClass which);
// Whether it can be called by this name, in upper case.
bool IsRecordedCall(ControlClass which, std::u16string_view member);

}  // namespace velm
