// Keys of a window, and drops that wait until the toolkit has ended its drag.
#pragma once

#include <cstdint>

#include "objects/object.h"

namespace velm {

// The key procedures of a window, which its controls pass their keys on to.
void Form_KeyDown(Window& window, std::int32_t code, std::int32_t shift);
void Form_KeyUp(Window& window, std::int32_t code, std::int32_t shift);

// A drop on a rich text: the control must end its drag before the script hears of it.
void DeferDrop(const ObjectPtr& object);
// Tells of the drops that wait. Part of the pump.
void DeliverDeferredDrops();

}  // namespace velm
