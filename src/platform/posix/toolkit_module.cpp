// See toolkit_module.h.
#include "platform/posix/toolkit_module.h"

#include <dlfcn.h>

#include <filesystem>
#include <system_error>

namespace velm {

namespace {

constexpr const char* kModule = "libvelmtoolkit.so";
constexpr const char* kInstalledFolder = "../lib/velmscript";
constexpr const char* kStart = "VelmStartToolkit";

// The module takes the runtime's own functions from the program, so that there is one runtime in the
// process; a module of another version doesn't find all it needs, and isn't loaded.
void* OpenModule() {
    std::error_code failed;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", failed);
    if (failed) return nullptr;
    const auto folder = program.parent_path();
    for (const auto& place : {folder / kModule, folder / kInstalledFolder / kModule}) {
        if (void* module = dlopen(place.c_str(), RTLD_NOW | RTLD_LOCAL)) return module;
    }
    return nullptr;
}

}  // namespace

Toolkit* LoadToolkitModule() {
    void* const module = OpenModule();
    if (module == nullptr) return nullptr;
    void* const start = dlsym(module, kStart);
    return start == nullptr ? nullptr : reinterpret_cast<Toolkit* (*)()>(start)();
}

}  // namespace velm
