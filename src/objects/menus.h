// Menus of windows: made by sentences, level by level; the choice of an entry is a procedure that is
// named after the entry's path.
#pragma once

#include <cstdint>
#include <string_view>

#include "core/execute.h"
#include "core/statement.h"
#include "objects/object.h"
#include "objects/properties.h"

namespace velm {

// メニュー and サブメニュー of 作れ, on CurrentWindow; the text is the word behind it.
void AddMenu(std::u16string_view text);
void AddSubMenu(std::u16string_view text);

// The object word メニュー with the path behind it in record.Name.
Value MenuProperty(bool isGet, const PropertyRecord& record);

// An entry was chosen.
void MenuClick(std::int32_t id, Window& window);

// Shows what was changed of the menus; called before events are waited for, and by the pump.
void RefreshMenus();
// Menu state that begins anew with a run or a window.
void ResetMenus();

void CmdPopUpMenu(Statement& statement, Context& context);

}  // namespace velm
