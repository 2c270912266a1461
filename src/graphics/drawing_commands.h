// The commands that draw and lead the turtle. Without a drawing surface they draw nothing.
#pragma once

#include "core/execute.h"
#include "core/statement.h"

namespace velm {

void CmdTurnRight(Statement& statement, Context& context);
void CmdTurnLeft(Statement& statement, Context& context);
void CmdForward(Statement& statement, Context& context);
void CmdBack(Statement& statement, Context& context);
void CmdTree(Statement& statement, Context& context);
void CmdShowTurtle(Statement& statement, Context& context);
void CmdHideTurtle(Statement& statement, Context& context);
void CmdPenUp(Statement& statement, Context& context);
void CmdPenDown(Statement& statement, Context& context);

void CmdEllipse(Statement& statement, Context& context);
void CmdLine(Statement& statement, Context& context);
void CmdBox(Statement& statement, Context& context);
void CmdDot(Statement& statement, Context& context);
void CmdWrite(Statement& statement, Context& context);
void CmdStamp(Statement& statement, Context& context);
void CmdScaledStamp(Statement& statement, Context& context);
void CmdFill(Statement& statement, Context& context);

}  // namespace velm
