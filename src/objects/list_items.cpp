// See list_items.h.
#include "objects/list_items.h"

#include "data/text.h"

namespace velm {

std::u16string ItemOf(Object& list, std::int32_t index) {
    return MemberToText(list.Get(u"List", {static_cast<double>(index)}));
}

std::vector<std::u16string> ItemsOf(Object& list) {
    const std::int32_t count = MemberToInt(list.Get(u"ListCount"));
    std::vector<std::u16string> items;
    for (std::int32_t i = 0; i < count; ++i) items.push_back(ItemOf(list, i));
    return items;
}

bool IsSelected(Object& list, std::int32_t index) {
    if (list.Class() == ControlClass::kList) {
        return MemberToBool(list.Get(u"Selected", {static_cast<double>(index)}));
    }
    return MemberToInt(list.Get(u"ListIndex")) == index;
}

std::vector<std::u16string> LinesOf(std::u16string_view text) {
    if (text.ends_with(kCrLf)) text.remove_suffix(kCrLf.size());
    const std::vector<std::u16string_view> lines = SplitLines(text);
    return {lines.begin(), lines.end()};
}

void FillList(Object& list, const std::vector<std::u16string>& items) {
    list.Call(u"Clear");
    for (const std::u16string& item : items) list.Call(u"AddItem", {item});
}

}  // namespace velm
