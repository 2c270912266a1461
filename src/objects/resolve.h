// Names of objects: from the word in a sentence to the object, and back.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "objects/object.h"

namespace velm {

// The object that a name means; nullptr when there is none. quiet: looks only, creates and reports
// nothing. Otherwise a control that doesn't exist yet is made, and an unknown name is reported (104, or
// 105 for an empty one). What was found becomes ThatObject.
ObjectPtr ResolveObject(std::u16string_view name, bool quiet);

// The plug-in object that a name means, or one that a word of the plug-in table makes; nullptr for any
// other object. Reports そ and こ names whose object isn't set (90), unless quiet.
ObjectPtr FindPluginObject(std::u16string_view name, bool quiet);

// The window of a window word and its number, which becomes CurrentWindow and ThatObject; nullptr when
// there is none. quiet: as above.
WindowPtr WindowByName(std::u16string_view name, bool quiet = false);

// The number that a name has behind its kind word; 0 for what is no number, or none of 16 bits. quiet:
// nothing is reported, and no procedure of the script runs.
std::int32_t NumberBehind(std::u16string_view rest, bool quiet);

// Cuts a window word and the rest; kind -1 when the name begins with none.
struct WindowName {
    std::int32_t kind = -1;
    std::u16string_view word;
    std::u16string_view rest;
};
WindowName SplitWindowName(std::u16string_view name);

// Enters a control in a window under a name; no object takes the name out.
void RegisterName(Window& window, const ObjectPtr& object, std::u16string_view name);
// Adds to ObjectTable; a name that is there stays what it is.
void RegisterGlobalName(const ObjectPtr& object, std::u16string_view name);

// A control of a window by its name; nullptr when there is none.
ObjectPtr FindControl(const Window& window, std::u16string_view name);
// A window, or what a host has registered; nullptr when there is none.
ObjectPtr FindGlobal(std::u16string_view name);

// The name by which a script knows the object, in full-width letters.
std::u16string ObjectKindName(Object& object);
// The value of オブジェクト数.
std::u16string ObjectCount(Object& object);

// Splits a name at its first の outside brackets, or its last; false when there is none.
bool CutAtOf(std::u16string_view name, std::u16string_view& front, std::u16string_view& back);
bool CutAtLastOf(std::u16string_view name, std::u16string_view& front, std::u16string_view& back);

}  // namespace velm
