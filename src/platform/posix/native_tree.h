// What the trash shares with the operations on trees. Only for platform/posix/.
#pragma once

#include <string>
#include <string_view>

namespace velm::native {

// The native path of an entry without a separator at its end, with which a link would be what it leads to.
std::string EntryPath(std::u16string_view path);
// Removes a file or a folder with all that is in it.
void RemoveEntry(const std::string& path);
// Moves to another file system, to where nothing is; without success in copying nothing is left there.
void CopyAndRemove(const std::string& from, const std::string& to);
// Throws for the root, "." and "..", which nobody means to lose.
void RefuseRoot(const std::string& path);

}  // namespace velm::native
