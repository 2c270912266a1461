// From an event to the procedure: the names that are tried, and how a procedure runs as an event.
#include <utility>

#include "core/procedures.h"
#include "core/run_state.h"
#include "core/stack_guard.h"
#include "objects/events.h"

namespace velm {

namespace {

constexpr std::u16string_view kOf = u"の";

template <class... Parts>
std::u16string Join(const Parts&... parts) {
    std::u16string joined;
    joined.reserve((std::u16string_view(parts).size() + ...));
    (joined.append(parts), ...);
    return joined;
}

// What the procedure has removed is nobody's この any more.
ObjectPtr IfLoaded(const ObjectPtr& object) {
    return object == nullptr || object->IsUnloaded() ? nullptr : object;
}

// The window's name with の; empty for one without a name, as the first window is until it gets one.
std::u16string PrefixOf(const Window& window) {
    return window.tag.empty() ? std::u16string() : Join(window.tag, kOf);
}

// The name under which an object was registered; empty when it wasn't.
std::u16string_view AliasOf(const Window& window, const Object& object) {
    const auto found = window.CollObAlias.find(object.Identity());
    return found == window.CollObAlias.end() ? std::u16string_view() : found->second;
}

// The control itself, then all of its kind on this window, then the control on any window of this type.
bool TryNames(Window& window, std::u16string_view name, std::u16string_view kind,
              std::u16string_view suffix, const ObjectPtr& object) {
    const std::u16string prefix = PrefixOf(window);
    const std::u16string type = window.WindowType;
    return CallObjectProcedure(Join(prefix, name, suffix), object) ||
           CallObjectProcedure(Join(prefix, kind, suffix), object) ||
           CallObjectProcedure(Join(type, kOf, name, suffix), object);
}

}  // namespace

bool CallObjectProcedure(std::u16string_view name, const ObjectPtr& object) {
    if (Procedures.Find(name) == nullptr) return false;
    const NestingGuard guard;
    if (guard.Exhausted()) return true;
    // Kept: CurrentWindow isn't put back, an event of a window leaves that window current.
    if (object != nullptr && object->IsWindow()) {
        SetCurrentWindow(std::static_pointer_cast<Window>(object));
    }
    const ObjectPtr that = objects.ThatObject;
    const ObjectPtr previous = std::exchange(objects.ThisObject, object);
    CallEventProcedure(name);
    objects.ThisObject = IfLoaded(previous);
    objects.ThatObject = IfLoaded(that);
    return true;
}

bool RunEvent(Window& window, std::u16string_view kind, std::int32_t index,
              std::u16string_view suffix, const ObjectPtr& object) {
    if (index == 0) return CallObjectProcedure(Join(PrefixOf(window), kind, suffix), object);
    std::u16string name(AliasOf(window, *object));
    if (name.empty()) name = Join(kind, MemberToText(static_cast<double>(index)));
    return TryNames(window, name, kind, suffix, object);
}

bool RunEventEx(Window& window, std::u16string_view kind, std::u16string_view suffix,
                const ObjectPtr& object) {
    const std::u16string name(AliasOf(window, *object));
    return TryNames(window, name, kind, suffix, object);
}

bool WindowEvent(Window& window, std::u16string_view suffix) {
    if (run.StopFlag) return false;
    const WindowPtr object = window.Self();
    const std::u16string type = window.WindowType;
    return CallObjectProcedure(Join(window.tag, suffix), object) ||
           CallObjectProcedure(Join(type, suffix), object);
}

}  // namespace velm
