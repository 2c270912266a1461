// Looking at links themselves instead of what they lead to.
#include "platform/links.h"

#include <sys/stat.h>

#include <string>

#include "platform/files.h"

namespace velm {

bool IsLink(std::u16string_view path) {
    std::string native = NativePath(path);
    while (native.size() > 1 && native.back() == '/') native.pop_back();
    struct stat info = {};
    return lstat(native.c_str(), &info) == 0 && S_ISLNK(info.st_mode);
}

}  // namespace velm
