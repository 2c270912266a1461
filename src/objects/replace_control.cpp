// One control in the place of another: what can't change on a control that is there.
#include <string>
#include <string_view>

#include "data/failure.h"
#include "objects/create.h"
#include "objects/font_members.h"
#include "objects/resolve.h"

namespace velm {

namespace {

// The name of the old one must be gone before the new one can have it.
void TakeName(Window& window, const ObjectPtr& old, const ObjectPtr& fresh) {
    const std::u16string name = ObjectKindName(*old);
    window.CollObAlias.erase(old->Identity());
    window.CollObjType.erase(old->Identity());
    RegisterName(window, fresh, name);
}

void TakeLook(Object& old, Object& fresh) {
    fresh.SetContainer(old.Container());
    fresh.SetGeometry(old.Geometry());
    CopyFont(old, fresh);
    for (const std::u16string_view member : {u"ToolTipText", u"BackColor"}) {
        Attempt([&] { fresh.Set(member, old.Get(member)); });
    }
    pendingFailure.Clear();
}

}  // namespace

void ReplaceControl(const ObjectPtr& old, const ObjectPtr& fresh) {
    const WindowPtr window = old->Owner();
    if (window == nullptr) throw Failure(failure::kNoSuchElement);
    const ObjectPtr gone = old;  // the caller's may be one of those that are set here
    TakeLook(*gone, *fresh);
    TakeName(*window, gone, fresh);
    for (ObjectPtr* known : {&objects.ThisObject, &objects.SavedThisObject}) {
        if (*known == gone) *known = fresh;
    }
    objects.ThatObject = fresh;
    gone->Unload();
}

}  // namespace velm
