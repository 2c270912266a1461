// クリア: the error registers, the random numbers, and what the object system and the drawing surface
// clear.
#pragma once

#include "core/execute.h"
#include "core/statement.h"

namespace velm {

void CmdClear(Statement& statement, Context& context);

}  // namespace velm
