// The function table: every built-in function of the language, one row each.
#pragma once

#include <cstdint>

#include "core/names.h"

namespace velm {

struct FunctionRow {
    const char16_t* names;  // the aliases of one function, joined by commas
    std::int32_t argumentCount;
    const char16_t* particles;
    FunctionHandler handler;  // nullptr: known, but answered by a later part of the system
};

}  // namespace velm
