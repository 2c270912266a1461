// Words in the place of an object that are none: the menus, the icon in the notification area, the host.
#include <string>

#include "core/velm.h"
#include "data/failure.h"
#include "objects/menus.h"
#include "objects/properties.h"

namespace velm {

namespace {

constexpr std::u16string_view kMenus = u"メニュー";
constexpr std::u16string_view kTray = u"タスクトレイ";
constexpr std::u16string_view kCaller = u"呼び出し元";

// A host that hears of no values counts as none.
Value HostProperty(bool isGet, const PropertyRecord& record, bool& notFound) {
    const HostEvents& events = TheEngine().events;
    if (isGet) {
        notFound = !events.HostQuery;
        return Value(RaiseHost(HostMode::kQuery, record.Name, u""));
    }
    notFound = RaiseHost(HostMode::kProperty, record.Name, record.Text.Text()) != u"False";
    return Value();
}

}  // namespace

bool IsSpecialObject(std::u16string_view objectName) {
    return objectName == kMenus || objectName == kTray || objectName == kCaller;
}

Value SpecialObjectProperty(bool isGet, std::u16string_view objectName,
                            const PropertyRecord& record, bool& notFound) {
    notFound = false;
    if (objectName == kMenus) return MenuProperty(isGet, record);
    if (objectName == kTray) return TrayProperty(isGet, record);
    if (objectName == kCaller) return HostProperty(isGet, record, notFound);
    notFound = true;
    return Value();
}

}  // namespace velm
