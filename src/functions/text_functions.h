// The functions that make a text from a text: cutting, replacing, repeating, letter case. What
// only measures or searches a text is in text_search_functions.h; width and kana are in
// japanese_functions.h. Bound by the function table.
#pragma once

namespace velm {

class Arguments;
class Value;

void FnLeft(Value& result, Arguments& arguments);
void FnRight(Value& result, Arguments& arguments);
void FnMiddle(Value& result, Arguments& arguments);
void FnWithoutLast(Value& result, Arguments& arguments);
void FnReplace(Value& result, Arguments& arguments);
void FnBetween(Value& result, Arguments& arguments);
void FnField(Value& result, Arguments& arguments);
void FnLine(Value& result, Arguments& arguments);
void FnTrim(Value& result, Arguments& arguments);
void FnTrimLeft(Value& result, Arguments& arguments);
void FnTrimRight(Value& result, Arguments& arguments);
void FnCharacter(Value& result, Arguments& arguments);
void FnUpper(Value& result, Arguments& arguments);
void FnLower(Value& result, Arguments& arguments);
void FnRepeat(Value& result, Arguments& arguments);
void FnBlanks(Value& result, Arguments& arguments);
void FnLineEnd(Value& result, Arguments& arguments);
void FnTab(Value& result, Arguments& arguments);

}  // namespace velm
