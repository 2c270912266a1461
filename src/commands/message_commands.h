// 表示, and storing a word in a variable.
#pragma once

#include "core/execute.h"
#include "core/statement.h"

namespace velm {

void CmdShow(Statement& statement, Context& context);
void CmdPut(Statement& statement, Context& context);

}  // namespace velm
