// The member surface of a drive: what a script asks ドライブC.
#pragma once

#include <memory>
#include <string_view>

#include "platform/toolkit.h"

namespace velm {

// The drive of a letter, in whatever width and case, with or without a colon. Throws Failure(68) for a
// drive that isn't there.
std::unique_ptr<MemberSurface> MakeDrive(std::u16string_view letter);

}  // namespace velm
