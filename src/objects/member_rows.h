// Rows of property tables that do nothing but read or write one member of the object: what most rows
// are. A row names its member: FlagRow<u"Enabled">(u"有効").
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "core/word_lists.h"
#include "objects/properties.h"

namespace velm {

template <std::size_t kSize>
struct MemberName {
    // NOLINTNEXTLINE(google-explicit-constructor): a literal is to stand for it.
    constexpr MemberName(const char16_t (&name)[kSize]) { std::copy_n(name, kSize, text); }
    constexpr std::u16string_view View() const { return {text, kSize - 1}; }

    char16_t text[kSize];
};

template <MemberName kName>
void GetTextMember(Object& object, const PropertyRecord& /*record*/, PropertyResult& result) {
    result.Text = Value(object.GetText(kName.View()));
}
template <MemberName kName>
void SetTextMember(Object& object, const PropertyRecord& record, PropertyResult& /*result*/) {
    object.Set(kName.View(), record.Text.Text());
}

template <MemberName kName>
void GetNumberMember(Object& object, const PropertyRecord& /*record*/, PropertyResult& result) {
    result.Text = Value::OfNumber(object.GetNumber(kName.View()));
}
template <MemberName kName>
void SetNumberMember(Object& object, const PropertyRecord& record, PropertyResult& /*result*/) {
    object.Set(kName.View(), double{record.Number});
}

template <MemberName kName>
void GetFlagMember(Object& object, const PropertyRecord& /*record*/, PropertyResult& result) {
    result.Text = Value::OfBool(object.GetBool(kName.View()));
}
template <MemberName kName>
void SetFlagMember(Object& object, const PropertyRecord& record, PropertyResult& /*result*/) {
    object.Set(kName.View(), record.Number != 0);
}

template <MemberName kName>
void GetColorMember(Object& object, const PropertyRecord& /*record*/, PropertyResult& result) {
    result.Text = Value(ColorToText(MemberToInt(object.Get(kName.View()))));
}
template <MemberName kName>
void SetColorMember(Object& object, const PropertyRecord& record, PropertyResult& /*result*/) {
    object.Set(kName.View(), static_cast<double>(ParseColor(record.Value)));
}

// A member that counts from 0 through the names of a list.
template <MemberName kName, const auto& kNames>
void GetEnumMember(Object& object, const PropertyRecord& /*record*/, PropertyResult& result) {
    result.Text = EnumNameOf(MemberToInt(object.Get(kName.View())), kNames);
}
template <MemberName kName, const auto& kNames>
void SetEnumMember(Object& object, const PropertyRecord& record, PropertyResult& /*result*/) {
    object.Set(kName.View(), static_cast<double>(EnumIndexOf(record, kNames)));
}

template <MemberName kName>
constexpr PropertyRow TextRow(std::u16string_view words) {
    return {words, GetTextMember<kName>, SetTextMember<kName>};
}
template <MemberName kName>
constexpr PropertyRow NumberRow(std::u16string_view words) {
    return {words, GetNumberMember<kName>, SetNumberMember<kName>};
}
template <MemberName kName>
constexpr PropertyRow FlagRow(std::u16string_view words) {
    return {words, GetFlagMember<kName>, SetFlagMember<kName>};
}
template <MemberName kName>
constexpr PropertyRow ColorRow(std::u16string_view words) {
    return {words, GetColorMember<kName>, SetColorMember<kName>};
}
template <MemberName kName, const auto& kNames>
constexpr PropertyRow EnumRow(std::u16string_view words) {
    return {words, GetEnumMember<kName, kNames>, SetEnumMember<kName, kNames>};
}

// Words that exist for one side alone.
constexpr PropertyRow GetOnlyRow(std::u16string_view words, decltype(PropertyRow::get) get) {
    return {words, get, nullptr, true};
}
constexpr PropertyRow SetOnlyRow(std::u16string_view words, decltype(PropertyRow::set) set) {
    return {words, nullptr, set, true};
}

}  // namespace velm
