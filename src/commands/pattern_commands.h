// Commands that search by a regular expression: パターン検索, パターンサブマッチ. Bound by the command
// table.
#pragma once

namespace velm {

struct Context;
struct Statement;

void CmdPatternSearch(Statement& statement, Context& context);
void CmdPatternGroups(Statement& statement, Context& context);

}  // namespace velm
