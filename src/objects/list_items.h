// The items of lists and drop-downs.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "objects/object.h"

namespace velm {

// The item at a place from 0 on; all of them.
std::u16string ItemOf(Object& list, std::int32_t index);
std::vector<std::u16string> ItemsOf(Object& list);
// Whether the item is picked; of a drop-down one is at most.
bool IsSelected(Object& list, std::int32_t index);

// The lines of a text; a line break at its end begins no further one.
std::vector<std::u16string> LinesOf(std::u16string_view text);
// Puts the items in place of those that were there.
void FillList(Object& list, const std::vector<std::u16string>& items);

}  // namespace velm
