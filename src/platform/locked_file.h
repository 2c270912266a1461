// Changing a file that several processes may change at once: the old content is read, changed and put
// back whole while no other caller does the same. What was written when the call returns survives the
// end of the process; a reader, and a process that is killed meanwhile, find the old content or the new
// one. Not for plain writing (platform/files.h).
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace velm {

// What a file is to hold instead of the old bytes, which are empty for a missing file; nothing leaves it
// as it is.
using FileChange = std::function<std::optional<std::string>(const std::string& old)>;

// Changes the file at a script path. Throws Failure as reading and writing do, and 55 when somebody else
// holds the lock for more than ten seconds.
void ChangeFile(std::u16string_view path, const FileChange& change);

}  // namespace velm
