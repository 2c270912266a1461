// The files of src/resources as the build embeds them. Only data/resources.cpp looks here.
#pragma once

#include <cstddef>
#include <string_view>

namespace velm {

struct EmbeddedResource {
    std::string_view name;   // the file's base name, such as "201"
    std::string_view bytes;  // its content, UTF-8
};

extern const EmbeddedResource kEmbeddedResources[];
extern const std::size_t kEmbeddedResourceCount;

}  // namespace velm
