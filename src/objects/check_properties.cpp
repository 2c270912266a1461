// Properties of check and option buttons.
#include "objects/member_rows.h"

namespace velm {

namespace {

// A check counts its states, an option is on or off.
void SetChecked(Object& object, const PropertyRecord& record, PropertyResult& /*result*/) {
    const bool isOn = record.Number != 0;
    if (object.Class() == ControlClass::kOption) {
        object.Set(u"Value", isOn);
    } else {
        object.Set(u"Value", isOn ? 1.0 : 0.0);
    }
}

constexpr PropertyRow kCheckRows[] = {{u"チェック", GetFlagMember<u"Value">, SetChecked}};

}  // namespace

const PropertyHandler kCheckProperties = {kCheckRows};

}  // namespace velm
