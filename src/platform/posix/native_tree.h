// What the trash shares with the operations on trees. Only for platform/posix/.
#pragma once

#include <string>

namespace velm::native {

// Removes a file or a folder with all that is in it.
void RemoveEntry(const std::string& path);
// Moves to another file system, to where nothing is; without success in copying nothing is left there.
void CopyAndRemove(const std::string& from, const std::string& to);
// Throws for the root, "." and "..", which nobody means to lose.
void RefuseRoot(const std::string& path);

}  // namespace velm::native
