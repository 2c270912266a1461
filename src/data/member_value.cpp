// See member_value.h.
#include "data/member_value.h"

#include <optional>

#include "data/failure.h"
#include "data/numbers.h"

namespace velm {

namespace {

constexpr std::u16string_view kTrue = u"True";
constexpr std::u16string_view kFalse = u"False";

}  // namespace

bool MemberToBool(const MemberValue& value) {
    if (const auto* text = std::get_if<std::u16string>(&value)) {
        if (*text == kTrue) return true;
        if (*text == kFalse) return false;
    }
    return MemberToNumber(value) != 0;
}

double MemberToNumber(const MemberValue& value) {
    if (const auto* number = std::get_if<double>(&value)) return *number;
    if (const auto* flag = std::get_if<bool>(&value)) return *flag ? -1 : 0;
    if (const auto* text = std::get_if<std::u16string>(&value)) {
        if (const std::optional<double> number = ParseNumber(*text)) return *number;
        throw Failure(failure::kTypeMismatch);
    }
    return 0;
}

std::int32_t MemberToInt(const MemberValue& value) { return ToInt32(MemberToNumber(value)); }

std::u16string MemberToText(const MemberValue& value) {
    if (const auto* text = std::get_if<std::u16string>(&value)) return *text;
    if (const auto* number = std::get_if<double>(&value)) return FormatNumber(*number);
    if (const auto* flag = std::get_if<bool>(&value)) {
        return std::u16string(*flag ? kTrue : kFalse);
    }
    return {};
}

}  // namespace velm
