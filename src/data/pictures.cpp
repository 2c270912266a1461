// Choosing what a picture shows: a named format, or the kind of its first code.
#include "data/pictures.h"

#include <array>
#include <cstddef>
#include <optional>

#include "data/date_pictures.h"
#include "data/dates.h"
#include "data/failure.h"
#include "data/number_pictures.h"
#include "data/numbers.h"
#include "data/picture_units.h"
#include "data/text_pictures.h"
#include "data/width.h"

namespace velm {

namespace {

enum class PictureKind { kNumber, kDate, kText };

// A named format as the picture that it stands for. The three of truth have sections without places.
struct NamedPicture {
    std::u16string_view name;
    std::u16string_view picture;
};

constexpr std::u16string_view kGeneralNumber = u"general number";

constexpr std::array<NamedPicture, 15> kNamedPictures = {{
    {u"currency", u"\\\\#,##0"},
    {u"fixed", u"0.00"},
    {u"standard", u"#,##0.00"},
    {u"percent", u"0.00%"},
    {u"scientific", u"0.00E+00"},
    {u"yes/no", u"\"Yes\";\"Yes\";\"No\""},
    {u"true/false", u"\"True\";\"True\";\"False\""},
    {u"on/off", u"\"On\";\"On\";\"Off\""},
    {u"general date", u"c"},
    {u"long date", u"dddddd"},
    {u"medium date", u"yy-mm-dd"},
    {u"short date", u"ddddd"},
    {u"long time", u"ttttt"},
    {u"medium time", u"AMPM hh:nn"},
    {u"short time", u"hh:nn"},
}};

std::u16string_view PictureOfName(std::u16string_view name) {
    for (const NamedPicture& named : kNamedPictures) {
        if (named.name == name) return named.picture;
    }
    return {};
}

bool IsTextCode(const PictureUnit& unit) {
    constexpr std::u16string_view kTextCodes = u"@&<>!";
    return !unit.literal && kTextCodes.find(unit.unit) != kTextCodes.npos;
}

// The first code decides; a picture of literals is a number's.
PictureKind KindOf(const PictureUnits& units) {
    for (std::size_t i = 0; i < units.size(); ++i) {
        if (units[i].Is(u'0') || units[i].Is(u'#')) return PictureKind::kNumber;
        if (IsTextCode(units[i])) return PictureKind::kText;
        if (DateCodeAt(units, i).letter != 0) return PictureKind::kDate;
    }
    return PictureKind::kNumber;
}

std::u16string InDatePicture(std::u16string_view text, const PictureUnits& units) {
    std::optional<double> date = ParseNumber(text);
    if (date && !IsDate(*date)) throw Failure(failure::kOverflow);
    if (!date) date = ParseDate(text);
    return date ? FormatDatePicture(*date, units) : std::u16string(text);
}

std::optional<double> NumberOrDate(std::u16string_view text) {
    const std::optional<double> number = ParseNumber(text);
    return number ? number : ParseDate(text);
}

std::u16string InNumberPicture(std::u16string_view text, const PictureUnits& units) {
    const std::optional<double> number = NumberOrDate(text);
    return number ? FormatNumberPicture(*number, units) : std::u16string(text);
}

}  // namespace

std::u16string FormatPicture(std::u16string_view text, std::u16string_view picture) {
    const std::u16string name = ToLower(picture);
    if (name == kGeneralNumber) {
        const std::optional<double> number = NumberOrDate(text);
        return number ? FormatNumber(*number) : std::u16string(text);
    }
    const std::u16string_view named = PictureOfName(name);
    const PictureUnits units = ReadPicture(named.empty() ? picture : named);
    if (units.empty()) return std::u16string(text);
    switch (KindOf(units)) {
        case PictureKind::kText: return FormatTextPicture(text, units);
        case PictureKind::kDate: return InDatePicture(text, units);
        case PictureKind::kNumber: return InNumberPicture(text, units);
    }
    return std::u16string(text);
}

}  // namespace velm
