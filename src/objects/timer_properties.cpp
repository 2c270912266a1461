// Properties of timers. They have no others: a timer has no place and shows nothing.
#include <string_view>

#include "core/diagnostics.h"
#include "objects/member_rows.h"

namespace velm {

namespace {

constexpr float kLongestInterval = 60000;  // milliseconds

void Refuse(std::u16string_view message, const PropertyRecord& record) {
    RaiseMessage(message, 0, kIconStop, record.Text.Text(), u"", -1);
}

void SetInterval(Object& object, const PropertyRecord& record, PropertyResult& /*result*/) {
    if (record.Number > kLongestInterval) {
        Refuse(u"タイマーの間隔は、１分以下です。", record);
    } else if (record.Number < 0) {
        Refuse(u"間隔の値が正しくありません。", record);
    } else {
        object.Set(u"Interval", double{record.Number});
    }
}

constexpr PropertyRow kTimerRows[] = {
    {u"時間,間隔", GetNumberMember<u"Interval">, SetInterval},
    FlagRow<u"Enabled">(u"有効"),
};

}  // namespace

const PropertyHandler kTimerProperties = {kTimerRows, false};

}  // namespace velm
