// The command that sorts a row or a table: 並び替え. Bound by the command table.
#pragma once

namespace velm {

struct Context;
struct Statement;

void CmdSort(Statement& statement, Context& context);

}  // namespace velm
