// Events: what happened to a control becomes the name of a procedure (ボタン1をクリック), which runs when
// there is one, in the middle of whatever the script was doing. Nothing is queued.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "objects/object.h"

namespace velm {

// What a toolkit told of an object; its answer as ControlListener::OnEvent has it.
bool DispatchEvent(const ObjectPtr& object, const ControlEvent& event);

// The three tries of a control's event. Return whether the last one found a procedure.
bool RunEvent(Window& window, std::u16string_view kind, std::int32_t index,
              std::u16string_view suffix, const ObjectPtr& object);
bool RunEventEx(Window& window, std::u16string_view kind, std::u16string_view suffix,
                const ObjectPtr& object);
// An event of the window itself. Does nothing when the run has been stopped.
bool WindowEvent(Window& window, std::u16string_view suffix);

// Runs the procedure of a name as an event of an object: ThisObject and ThatObject are set meanwhile.
// False when there is no such procedure.
bool CallObjectProcedure(std::u16string_view name, const ObjectPtr& object);

// The word for a key with its modifiers, such as コントロール＋A; see shift_state.
std::u16string KeyName(std::int32_t code, std::int32_t shift);

}  // namespace velm
