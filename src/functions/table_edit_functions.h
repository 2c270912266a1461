// The functions that give a table with something added, taken out or changed: 配列挿入, 配列削除,
// 配列処理. Bound by the function table.
#pragma once

namespace velm {

class Arguments;
class Value;

void FnTableInsert(Value& result, Arguments& arguments);
void FnTableDelete(Value& result, Arguments& arguments);
void FnTableMap(Value& result, Arguments& arguments);

}  // namespace velm
