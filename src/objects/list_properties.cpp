// Properties of lists and drop-downs.
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/failure.h"
#include "data/numbers.h"
#include "data/text.h"
#include "objects/list_items.h"
#include "objects/text_rows.h"

namespace velm {

namespace {

void RemoveItem(Object& object, const PropertyRecord& record, PropertyResult& /*result*/) {
    object.Call(u"RemoveItem", {double{record.Number}});
}

void AddItem(Object& object, const PropertyRecord& record, PropertyResult& /*result*/) {
    object.Call(u"AddItem", {record.Text.Text()});
}

// A list takes its order only when it is filled.
void SetSorted(Object& object, const PropertyRecord& record, PropertyResult& /*result*/) {
    const std::vector<std::u16string> items = ItemsOf(object);
    object.Set(u"Sorted", record.Number != 0);
    FillList(object, items);
}

void SetMultiSelect(Object& object, const PropertyRecord& record, PropertyResult& /*result*/) {
    object.Set(u"MultiSelect", double{record.Number});
    object.Call(u"Refresh");
}

void GetItems(Object& object, const PropertyRecord& /*record*/, PropertyResult& result) {
    result.Text = Value(Join(ItemsOf(object), u","));
}

// A text with line breaks is one item a line: its commas belong to the items.
void SetItems(Object& object, const PropertyRecord& record, PropertyResult& /*result*/) {
    const std::u16string& text = record.Text.Text();
    std::vector<std::u16string> items;
    if (Contains(text, kCrLf)) {
        items = LinesOf(text);
    } else if (!text.empty()) {
        const std::vector<std::u16string_view> parts = Split(text, u",");
        items.assign(parts.begin(), parts.end());
    }
    const MemberValue index = object.Get(u"ListIndex");
    FillList(object, items);
    Attempt([&] { object.Set(u"ListIndex", index); });
}

void GetSelection(Object& object, const PropertyRecord& /*record*/, PropertyResult& result) {
    std::vector<std::u16string> items;
    const std::int32_t count = MemberToInt(object.Get(u"ListCount"));
    for (std::int32_t i = 0; i < count; ++i) {
        if (IsSelected(object, i)) items.push_back(ItemOf(object, i));
    }
    result.Text = Value(Join(items, u","));
}

void SelectPart(Object& object, std::u16string_view part) {
    const std::optional<double> number = ParseNumber(part);
    if (!number) {
        object.Set(u"Text", std::u16string(part));
    } else if (object.Class() == ControlClass::kList) {
        object.Set(u"Selected", true, {*number});
    } else {
        object.Set(u"ListIndex", *number);
    }
}

void SetSelection(Object& object, const PropertyRecord& record, PropertyResult& /*result*/) {
    for (const std::u16string_view part : Split(record.Text.Text(), u",")) {
        Attempt([&] { SelectPart(object, part); });
    }
}

constexpr PropertyRow kListRows[] = {
    GetOnlyRow(u"数,個数", GetNumberMember<u"ListCount">),
    NumberRow<u"ListIndex">(u"番号"),
    {u"ソート", GetFlagMember<u"Sorted">, SetSorted},
    {u"複数選択", GetNumberMember<u"MultiSelect">, SetMultiSelect},
    {u"一覧", GetItems, SetItems},
    SetOnlyRow(u"追加", AddItem),
    SetOnlyRow(u"削除", RemoveItem),
    {u"選択一覧", GetSelection, SetSelection},
};
constexpr auto kDropDownRows = JoinRows(kListRows, kEditRows);

}  // namespace

const PropertyHandler kListProperties = {kListRows};
const PropertyHandler kDropDownProperties = {kDropDownRows};

}  // namespace velm
