// Commands that search and change variables and text objects: 検索, 置き換え, 交換. Bound by the command
// table.
#pragma once

namespace velm {

struct Context;
struct Statement;

void CmdSearch(Statement& statement, Context& context);
void CmdReplace(Statement& statement, Context& context);
void CmdExchange(Statement& statement, Context& context);

}  // namespace velm
