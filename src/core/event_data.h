// What reached the runtime from outside: the last mouse and key event of a script window, the files that
// were dropped on one, the last message of another program. The object system and the channel between
// programs write it, functions read it.
#pragma once

#include <cstdint>
#include <string>

namespace velm {

struct EventData {
    std::u16string EventButton;
    std::u16string EventKey;
    // Where the mouse was, in the window's own unit.
    std::int16_t EventX = 0;
    std::int16_t EventY = 0;
    std::u16string DroppedFiles;  // joined by ","
    std::u16string Received;
};

extern EventData eventData;

}  // namespace velm
