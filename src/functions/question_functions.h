// The functions that ask the user something, and the answer register. Bound by the
// function table.
#pragma once

namespace velm {

class Arguments;
class Value;

void FnAnswer(Value& result, Arguments& arguments);
void FnAsk(Value& result, Arguments& arguments);
void FnAskText(Value& result, Arguments& arguments);

}  // namespace velm
