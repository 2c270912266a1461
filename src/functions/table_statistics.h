// The functions that compute over the items of a table: 合計, 平均, 偏差値. Bound by the function table.
#pragma once

namespace velm {

class Arguments;
class Value;

void FnSum(Value& result, Arguments& arguments);
void FnMean(Value& result, Arguments& arguments);
void FnStandardScores(Value& result, Arguments& arguments);

}  // namespace velm
