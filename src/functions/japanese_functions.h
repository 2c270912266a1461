// The functions on Japanese text: width, kana, readings, and the inline decision 判別. The maps are
// in data/width.h, the readings come from platform/readings.h. Bound by the function table.
#pragma once

namespace velm {

class Arguments;
class Value;

void FnFullWidth(Value& result, Arguments& arguments);
void FnHalfWidth(Value& result, Arguments& arguments);
void FnHiragana(Value& result, Arguments& arguments);
void FnKatakana(Value& result, Arguments& arguments);
void FnReading(Value& result, Arguments& arguments);
void FnDecide(Value& result, Arguments& arguments);

}  // namespace velm
