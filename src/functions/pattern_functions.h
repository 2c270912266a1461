// The function that replaces by a regular expression: パターン置き換え. Bound by the function table.
#pragma once

namespace velm {

class Arguments;
class Value;

void FnPatternReplace(Value& result, Arguments& arguments);

}  // namespace velm
