// The functions that measure or search a text and give a number: lengths, counts, positions,
// character codes. Positions count from 1 in UTF-16 units. Bound by the function table.
#pragma once

namespace velm {

class Arguments;
class Value;

void FnCharacterCode(Value& result, Arguments& arguments);
void FnCountOf(Value& result, Arguments& arguments);
void FnLineCount(Value& result, Arguments& arguments);
void FnLength(Value& result, Arguments& arguments);
void FnByteLength(Value& result, Arguments& arguments);
void FnFind(Value& result, Arguments& arguments);
void FnFindLast(Value& result, Arguments& arguments);

}  // namespace velm
