// Rows of member tables from plain functions: what a member reads and takes is told by their types.
#pragma once

#include <QString>
#include <cstddef>
#include <cstdint>
#include <string>
#include <type_traits>

#include "data/failure.h"
#include "platform/qt/qt_surface.h"
#include "platform/qt/qt_text.h"

namespace velm {

inline MemberValue ToMember(bool value) { return value; }
inline MemberValue ToMember(double value) { return value; }
inline MemberValue ToMember(int value) { return static_cast<double>(value); }
inline MemberValue ToMember(const std::u16string& value) { return value; }
inline MemberValue ToMember(const QString& value) { return FromQString(value); }

template <class T>
T FromMember(const MemberValue& value) {
    if constexpr (std::is_same_v<T, bool>) {
        return MemberToBool(value);
    } else if constexpr (std::is_same_v<T, double>) {
        return MemberToNumber(value);
    } else if constexpr (std::is_same_v<T, int>) {
        return MemberToInt(value);
    } else if constexpr (std::is_same_v<T, MemberValue>) {
        return value;
    } else if constexpr (std::is_same_v<T, QString>) {
        return ToQString(MemberToText(value));
    } else {
        return MemberToText(value);
    }
}

template <class T>
void PutMember(void (*set)(QtSurface&, T), QtSurface& surface, const MemberValue& value) {
    set(surface, FromMember<std::remove_cvref_t<T>>(value));
}

template <auto kGet>
MemberValue ReadMember(QtSurface& surface, const MemberArguments& /*arguments*/) {
    return ToMember(kGet(surface));
}
template <auto kSet>
void WriteMember(QtSurface& surface, const MemberValue& value,
                 const MemberArguments& /*arguments*/) {
    PutMember(kSet, surface, value);
}
template <void (*kCall)(QtSurface&)>
MemberValue CallMember(QtSurface& surface, const MemberArguments& /*arguments*/) {
    kCall(surface);
    return {};
}

// Functions of the surface alone, or of the surface and the value.
template <auto kGet, auto kSet>
constexpr QtMember Member(std::u16string_view name) {
    return {name, ReadMember<kGet>, WriteMember<kSet>, nullptr};
}
template <auto kGet>
constexpr QtMember ReadOnlyMember(std::u16string_view name) {
    return {name, ReadMember<kGet>, nullptr, nullptr};
}
template <auto kSet>
constexpr QtMember WriteOnlyMember(std::u16string_view name) {
    return {name, nullptr, WriteMember<kSet>, nullptr};
}
template <void (*kCall)(QtSurface&)>
constexpr QtMember Action(std::u16string_view name) {
    return {name, nullptr, nullptr, CallMember<kCall>};
}

// Throws Failure(5) for an argument that isn't there.
inline std::int32_t IntArgument(const MemberArguments& arguments, std::size_t position) {
    if (position >= arguments.size()) throw Failure(failure::kBadCall);
    return MemberToInt(arguments[position]);
}
inline std::u16string TextArgument(const MemberArguments& arguments, std::size_t position) {
    if (position >= arguments.size()) throw Failure(failure::kBadCall);
    return MemberToText(arguments[position]);
}

// Throws Failure(5) unless the value is one of a closed range.
inline int Within(int value, int least, int most) {
    if (value < least || value > most) throw Failure(failure::kBadCall);
    return value;
}

}  // namespace velm
