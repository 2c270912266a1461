// Commands that compute: 計算, 足せ, 引け and their kana forms. Bound by the command table.
#pragma once

namespace velm {

struct Context;
struct Statement;

void CmdCalculate(Statement& statement, Context& context);
void CmdAdd(Statement& statement, Context& context);
void CmdSubtract(Statement& statement, Context& context);

}  // namespace velm
