// See late_library.h.
#include "platform/posix/late_library.h"

#include <dlfcn.h>

#include <string>

#include "data/failure.h"

namespace velm {

namespace {

[[noreturn]] void FailMissing(std::u16string_view name, std::u16string_view what) {
    throw Failure(failure::kFileNotFound,
                  std::u16string(name).append(what).append(u"が見つかりません。"));
}

}  // namespace

LateLibrary::LateLibrary(const char* file, std::u16string_view shownName)
    : handle_(dlopen(file, RTLD_LAZY | RTLD_LOCAL)), shownName_(shownName) {
    if (handle_ == nullptr) FailMissing(shownName_, u"");
}

LateLibrary::Symbol LateLibrary::operator[](const char* name) const {
    void* const address = dlsym(handle_, name);
    if (address == nullptr) FailMissing(shownName_, u" の関数");
    return {address};
}

}  // namespace velm
