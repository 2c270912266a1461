// Functions that show a value: 書式, パーセント, 通貨形式. The pictures themselves are in data/pictures.h.
#pragma once

#include "core/names.h"

namespace velm {

void FnFormat(Value& result, Arguments& arguments);
void FnPercent(Value& result, Arguments& arguments);
void FnCurrency(Value& result, Arguments& arguments);

}  // namespace velm
