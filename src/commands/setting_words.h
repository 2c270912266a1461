// The settings words: nouns that a script assigns to with a sentence such as 色は 赤. The value word
// stands in WoArg.
#pragma once

#include "core/execute.h"
#include "core/statement.h"

namespace velm {

void SetColor(Statement& statement, Context& context);
void SetShape(Statement& statement, Context& context);
void SetBackground(Statement& statement, Context& context);
void SetTitle(Statement& statement, Context& context);
void SetTurtlePosition(Statement& statement, Context& context);
void SetCanvas(Statement& statement, Context& context);
void SetHeading(Statement& statement, Context& context);
void SetLineWidth(Statement& statement, Context& context);
void SetErrorMode(Statement& statement, Context& context);
void SetProgress(Statement& statement, Context& context);
void SetMousePointer(Statement& statement, Context& context);
void SetWorkFolder(Statement& statement, Context& context);
void SetInstrument(Statement& statement, Context& context);
void SetTempo(Statement& statement, Context& context);
void SetJpegProgressive(Statement& statement, Context& context);
void SetJpegQuality(Statement& statement, Context& context);
void SetStartLine(Statement& statement, Context& context);
void SetSettingsFile(Statement& statement, Context& context);
void SetLocals(Statement& statement, Context& context);

}  // namespace velm
