// The font of an object, member by member.
#pragma once

#include <functional>
#include <string_view>

#include "objects/object.h"

namespace velm {

using MemberSetter = std::function<void(std::u16string_view member, const MemberValue& value)>;

// Gives a control the font of another; a member that either hasn't is passed over.
void CopyFont(Object& from, Object& to);
// The same to the dialogs or the printer, whose members `set` writes.
void CopyFontOutside(Object& from, const MemberSetter& set);

}  // namespace velm
