// Commands that start programs, wait, end the session and run more script.
#pragma once

#include "core/execute.h"
#include "core/statement.h"

namespace velm {

void CmdStart(Statement& statement, Context& context);
void CmdStartAndWait(Statement& statement, Context& context);
void CmdRestart(Statement& statement, Context& context);
void CmdLogOff(Statement& statement, Context& context);
void CmdForceEnd(Statement& statement, Context& context);
void CmdStandby(Statement& statement, Context& context);
void CmdWait(Statement& statement, Context& context);
void CmdRest(Statement& statement, Context& context);
void CmdStandBy(Statement& statement, Context& context);
void CmdOrder(Statement& statement, Context& context);
void CmdProcessText(Statement& statement, Context& context);
void CmdRunFile(Statement& statement, Context& context);
void CmdRefer(Statement& statement, Context& context);
void CmdReport(Statement& statement, Context& context);
void CmdEnd(Statement& statement, Context& context);

// Waits for events until the run ends: what 待機 does behind its menus.
void WaitForEvents();

}  // namespace velm
