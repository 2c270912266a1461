// Making and removing objects.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "objects/object.h"

namespace velm {

// The object system's state as a run starts with it: all windows but the first are unloaded, the first
// one is made anew.
void InitObjectSystem();
// The end of a run: every window is taken off the screen.
void CloseObjectSystem();

// Makes ウィンドウ０ anew, as a record; it takes the place of what the state holds of none.
void LoadFirstWindow();

// 作れ, 使う and 表示: makes a window, menu entry or control from a word. show: it becomes visible. False
// when nothing was made, which has been reported.
bool MakeObject(std::u16string_view word, std::u16string_view alias, bool show);

WindowPtr CreateWindowObject(std::u16string_view word, std::u16string_view alias, bool show);

// Makes a control on CurrentWindow and enters its name if asked; nullptr when the name is no kind's, which
// is reported (103).
ObjectPtr NewObject(std::u16string_view name, std::u16string_view alias, bool doRegister);

// Loads an element of a control array on a window, in the look of its template, hidden. isNew tells
// whether it wasn't there before.
ObjectPtr LoadElement(const WindowPtr& window, std::u16string_view array, std::int32_t index,
                      bool& isNew);
// The lowest number from 1 that an array of a window hasn't used.
std::int32_t NextFreeElement(const Window& window, std::u16string_view array);

// 消せ: takes a control out of its window's tables and unloads it; a window is closed.
void RemoveObject(const ObjectPtr& object);

// Closes a window as the script does it: its closing procedure runs, then it goes, with its controls and
// names. When it is the last one that was shown, the run is stopped.
void CloseWindow(const WindowPtr& window, bool byUser);

// Gives `fresh` the name, container, place, font, tool tip and background of `old`, which is then
// unloaded; fresh becomes ThatObject, and この where old was it.
void ReplaceControl(const ObjectPtr& old, const ObjectPtr& fresh);

}  // namespace velm
