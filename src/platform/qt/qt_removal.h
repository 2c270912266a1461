// The end of widgets and menus. A script may remove a control or close a window within one of its own
// events, and pump further events there: what is removed is deleted only when nothing that began in its
// lifetime is on the stack any more.
#pragma once

#include <QObject>
#include <cstdint>

namespace velm {

// While it lives, the toolkit is at work below: an event is told, events are delivered, a dialog waits.
class ToolkitScope {
  public:
    ToolkitScope();
    ~ToolkitScope();
    ToolkitScope(const ToolkitScope&) = delete;
    ToolkitScope& operator=(const ToolkitScope&) = delete;
};

// Whether such a scope lives.
bool IsToolkitAtWork();

// The number of the scope that began last.
std::uint64_t LastToolkitScope();

// Deletes an object at the next pump at which that can be done. `birth` is what LastToolkitScope was when
// it was made, or 0. A widget must be hidden, so that no later event is one of its own.
void RemoveWhenFree(QObject& object, std::uint64_t birth);

// Lets the next delivery of events delete what has become free.
void DeleteWhatIsFree();

}  // namespace velm
