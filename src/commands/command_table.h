// The command table: the verbs of the language, one row each. Row order is behaviour: a verb that isn't
// a keyword itself is bound to the first row whose keyword it contains.
#pragma once

#include <cstdint>

#include "core/names.h"

namespace velm {

struct CommandRow {
    const char16_t* keywords;  // joined by commas; each becomes an entry of its own
    std::int32_t argumentCount;
    const char16_t* particles;
    CommandHandler handler;  // nullptr: known, but carried out by a later part of the system
};

}  // namespace velm
