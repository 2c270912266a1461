// The desktop's shell: opening files as the desktop would, and shortcuts to them.
#pragma once

#include <string_view>

namespace velm {

// What ShellExecute returns; above 32 all is well.
namespace shell {
constexpr int kNotFound = 2;
constexpr int kNoProgram = 31;  // nothing on this machine opens it, or the verb has no counterpart
constexpr int kStarted = 42;
}  // namespace shell

// Hands a file, a folder or a URL over and doesn't wait. Verbs, letter case ignored: open, explore and
// edit start the program that the desktop has for it, and run what is a program itself; print goes to
// the default printer. A missing file or folder on the way is kNotFound.
int ShellExecute(std::u16string_view verb, std::u16string_view file);

// Writes a shortcut as a desktop entry; a link name that ends in ".lnk" gets ".desktop" instead, and is
// found by its own name all the same. A program, and any target with arguments, becomes an entry that
// starts it in the link's folder, anything else one that leads to it. Arguments are words cut at blanks
// outside double quotes. An empty target or link name does nothing. Throws Failure.
void WriteShortcut(std::u16string_view link, std::u16string_view target,
                   std::u16string_view arguments);

}  // namespace velm
