// What words tell of the turtle.
#pragma once

#include "core/arguments.h"
#include "data/value.h"

namespace velm {

void FnTurtleColor(Value& result, Arguments& arguments);

}  // namespace velm
