// See font_members.h.
#include "objects/font_members.h"

#include <string_view>

#include "data/failure.h"

namespace velm {

namespace {

constexpr std::u16string_view kFontMembers[] = {u"FontName", u"FontSize", u"FontBold",
                                                u"FontItalic", u"FontUnderline"};
// One member has two names: of controls, and of what is none.
constexpr std::u16string_view kStruckOfControl = u"FontStrikethru";
constexpr std::u16string_view kStruckOutside = u"FontStrikethrough";

void Copy(Object& from, const MemberSetter& set, std::u16string_view struck) {
    for (const std::u16string_view member : kFontMembers) {
        Attempt([&] { set(member, from.Get(member)); });
    }
    Attempt([&] { set(struck, from.Get(kStruckOfControl)); });
    pendingFailure.Clear();
}

}  // namespace

void CopyFont(Object& from, Object& to) {
    Copy(
        from, [&](std::u16string_view member, const MemberValue& value) { to.Set(member, value); },
        kStruckOfControl);
}

void CopyFontOutside(Object& from, const MemberSetter& set) { Copy(from, set, kStruckOutside); }

}  // namespace velm
