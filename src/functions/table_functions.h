// The functions that count, search and build tables, lists and dictionaries. Positions count from 1.
// Those that change a table are in functions/table_edit_functions.h, those that compute in
// functions/table_statistics.h. Bound by the function table.
#pragma once

namespace velm {

class Arguments;
class Value;

void FnTableCount(Value& result, Arguments& arguments);
void FnTableSearch(Value& result, Arguments& arguments);
void FnTableSelect(Value& result, Arguments& arguments);
void FnTableTest(Value& result, Arguments& arguments);
void FnTakeColumn(Value& result, Arguments& arguments);
void FnSplit(Value& result, Arguments& arguments);
void FnJoin(Value& result, Arguments& arguments);
void FnDictionaryEntry(Value& result, Arguments& arguments);
void FnDictionaryKeys(Value& result, Arguments& arguments);

}  // namespace velm
