// Symbolic links. Who walks through a tree of folders asks here, so that a link that leads back up
// doesn't make the walk endless.
#pragma once

#include <string_view>

namespace velm {

// Whether the last component of a script path is a symbolic link; false when there is no such entry.
bool IsLink(std::u16string_view path);

}  // namespace velm
