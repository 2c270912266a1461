// What a member of a window, control or other outside object holds: nothing, a truth value, a number or
// a text. Members are reached by name at run time, so the types are told apart at run time as well.
#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace velm {

using MemberValue = std::variant<std::monostate, bool, double, std::u16string>;
using MemberArguments = std::vector<MemberValue>;

// The conversions of a member that has one type when a value of another is put into it. A text that is
// no number throws Failure(13); a number beyond the target's range Failure(6).
bool MemberToBool(const MemberValue& value);
double MemberToNumber(const MemberValue& value);
std::int32_t MemberToInt(const MemberValue& value);
// A truth value is "True" or "False", nothing is the empty text.
std::u16string MemberToText(const MemberValue& value);

}  // namespace velm
