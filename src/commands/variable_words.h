// Words that name the variable which a command reads, and often writes back: a name, or a name with
// an index. Called by the commands that compute, sort and search.
#pragma once

#include "core/word.h"
#include "data/value.h"

namespace velm {

// The value of the variable, or of the element, that a word names. found tells whether there is such a
// variable; the value is empty when there is none.
Value ReadVariableWord(const Word& word, bool& found);

}  // namespace velm
