// See window_keys.h.
#include "objects/window_keys.h"

#include <string>
#include <utility>
#include <vector>

#include "objects/events.h"

namespace velm {

namespace {

std::vector<ObjectPtr> deferredDrops;

}  // namespace

void Form_KeyDown(Window& window, std::int32_t code, std::int32_t shift) {
    const WindowPtr held = window.Self();
    const std::u16string key = KeyName(code, shift);
    WindowEvent(window, u"でキーボードを押す");
    WindowEvent(window, u"で" + key + u"を押す");
    if (WindowEvent(window, u"でキーボード" + key + u"を押す")) return;
    CallObjectProcedure(u"キーボード" + key + u"を押す", held);
}

void Form_KeyUp(Window& window, std::int32_t code, std::int32_t shift) {
    const WindowPtr held = window.Self();
    const std::u16string key = KeyName(code, shift);
    WindowEvent(window, u"でキーボードを離す");
    WindowEvent(window, u"で" + key + u"を離す");
    if (CallObjectProcedure(key + u"を離す", held)) return;
    CallObjectProcedure(u"キーボード" + key + u"を離す", held);
}

void DeferDrop(const ObjectPtr& object) { deferredDrops.push_back(object); }

void DeliverDeferredDrops() {
    if (deferredDrops.empty()) return;
    for (const ObjectPtr& object : std::exchange(deferredDrops, {})) {
        const WindowPtr window = object->Owner();
        if (window == nullptr || object->IsUnloaded()) continue;
        RunEventEx(*window, u"拡張テキスト", u"にドラッグ＆ドロップ", object);
    }
}

}  // namespace velm
