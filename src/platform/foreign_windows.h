// The windows of all programs as targets: bringing one to the front, and typing as if at the keyboard. The
// face puts its own in; without one everything fails as an unknown member.
#pragma once

#include <cstdint>
#include <string_view>

namespace velm {

class ForeignWindows {
  public:
    virtual ~ForeignWindows() = default;

    // All throw Failure(438) where the desktop doesn't let one program reach another.

    // Brings a window of a process to the front; 5 when it has none.
    virtual void ActivateProcess(std::int32_t processId);
    // Brings the window with a title to the front: the very title, else one that begins with the text,
    // else one that contains it; letter case is ignored. 5 when there is none, or for an empty text.
    virtual void ActivateTitle(std::u16string_view title);
    // Types into what has the focus. The text has the grammar of data/key_strokes.h, whose failures it
    // throws before anything is typed.
    virtual void TypeKeys(std::u16string_view keys);
    // The same with each character standing for itself, one after the other.
    virtual void TypeCharacters(std::u16string_view text);
};

// The ones in force; nullptr brings back those that can do nothing. They must outlive their use.
ForeignWindows& TheForeignWindows();
void SetForeignWindows(ForeignWindows* windows);

}  // namespace velm
