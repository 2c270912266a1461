// The record of what reached the runtime from outside.
#include "core/event_data.h"

namespace velm {

EventData eventData;

}  // namespace velm
