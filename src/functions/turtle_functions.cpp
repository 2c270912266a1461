// What words tell of the turtle.
#include "functions/turtle_functions.h"

#include "core/settings_state.h"
#include "core/word_lists.h"

namespace velm {

void FnTurtleColor(Value& result, Arguments& /*arguments*/) {
    result = Value(ColorToText(settings.TurtleColor));
}

}  // namespace velm
