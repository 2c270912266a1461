// The commands that act on an object and are no property sentence.
#pragma once

#include <string>

#include "core/execute.h"
#include "core/statement.h"
#include "objects/object.h"

namespace velm {

// The name that として gives, with or without 「」.
std::u16string AliasWord(Statement& statement);

// Names and focus: object_names_commands.cpp.
void CmdUse(Statement& statement, Context& context);
void CmdAbout(Statement& statement, Context& context);
void CmdAboutEnd(Statement& statement, Context& context);
void CmdFocus(Statement& statement, Context& context);
void CmdToFront(Statement& statement, Context& context);
void CmdToBack(Statement& statement, Context& context);

// object_commands.cpp and its neighbours.
void CmdChange(Statement& statement, Context& context);
void CmdChoose(Statement& statement, Context& context);
void CmdClose(Statement& statement, Context& context);
void CmdKeepOpen(Statement& statement, Context& context);
void CmdRemove(Statement& statement, Context& context);
void CmdTypeKeys(Statement& statement, Context& context);
void CmdTypeKeysSingly(Statement& statement, Context& context);
void CmdActivate(Statement& statement, Context& context);
void CmdRedraw(Statement& statement, Context& context);
void CmdStartMove(Statement& statement, Context& context);
void CmdKeepOnTop(Statement& statement, Context& context);
void CmdGoBack(Statement& statement, Context& context);
void CmdPrint(Statement& statement, Context& context);
void CmdAddItem(Statement& statement, Context& context);
void CmdInsert(Statement& statement, Context& context);
void CmdAdvance(Statement& statement, Context& context);

// 選択ウィンドウ, made at its first use; nullptr without a toolkit. その stays what it is.
ObjectPtr DialogsObject();

// クリア of the surface, an object or all objects: the core's hook.
void ClearObject(Statement& statement);
// A list picks the item of a text: the core's hook of 検索.
bool SearchInObject(std::u16string_view name, const Value& text);

}  // namespace velm
