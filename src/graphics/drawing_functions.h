// What words tell of the drawing surface and of the turtle's place on it. All are empty without a surface.
#pragma once

#include "core/arguments.h"
#include "data/value.h"

namespace velm {

void FnPixelColor(Value& result, Arguments& arguments);
void FnTurtleX(Value& result, Arguments& arguments);
void FnTurtleY(Value& result, Arguments& arguments);
void FnSurfaceName(Value& result, Arguments& arguments);

}  // namespace velm
