// A glance at the bytes of the settings store's file, which tells in most cases that a key isn't there,
// without the library that knows the file. Every start asks for a key that hardly anybody has, and to
// load the library and open the file would take a third of the start. Only for platform/posix/.
#pragma once

#include <string>
#include <string_view>

namespace velm::native {

// Whether no key of a name can be in the file: it is small, in order as far as its head tells, all that
// was written has arrived in it, and the name's bytes are nowhere in it. False in every other case, and
// then only the library knows. name: as it is stored, UTF-8.
bool HoldsNoKey(const std::string& path, std::string_view name);

}  // namespace velm::native
