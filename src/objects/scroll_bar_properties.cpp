// Properties of scroll bars.
#include <algorithm>
#include <string_view>

#include "core/diagnostics.h"
#include "data/failure.h"
#include "data/numbers.h"
#include "objects/member_rows.h"

namespace velm {

namespace {

constexpr int kNumberTooLarge = 11;

// Writes a whole number; one that the member can't hold is reported.
void SetWhole(Object& object, std::u16string_view member, double number) {
    try {
        object.Set(member, static_cast<double>(ToInt32(number)));
    } catch (const Failure& failed) {
        if (failed.Number() != failure::kOverflow) throw;
        RaiseError(kNumberTooLarge, kIconStop, u"", u"", -1);
    }
}

template <MemberName kName>
void SetWholeMember(Object& object, const PropertyRecord& record, PropertyResult& /*result*/) {
    SetWhole(object, kName.View(), double{record.Number});
}

void SetPosition(Object& object, const PropertyRecord& record, PropertyResult& /*result*/) {
    SetWhole(object, u"Value", std::min(double{record.Number}, object.GetNumber(u"Max")));
}

template <MemberName kName>
constexpr PropertyRow WholeRow(std::u16string_view words) {
    return {words, GetNumberMember<kName>, SetWholeMember<kName>};
}

constexpr PropertyRow kScrollBarRows[] = {
    WholeRow<u"LargeChange">(u"最大幅"),
    WholeRow<u"SmallChange">(u"最小幅"),
    WholeRow<u"Max">(u"最大値,最高値"),
    WholeRow<u"Min">(u"最小値,最低値"),
    {u"数字", GetNumberMember<u"Value">, SetPosition},
};

}  // namespace

const PropertyHandler kScrollBarProperties = {kScrollBarRows};

}  // namespace velm
