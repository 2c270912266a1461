// See object_canvas.h.
#include "objects/object_canvas.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "core/arguments.h"
#include "data/failure.h"
#include "data/numbers.h"
#include "data/width.h"
#include "objects/resolve.h"

namespace velm {

namespace {

constexpr std::int16_t kLastDrawMode = draw_mode::kWhite;
constexpr std::int16_t kLastDrawStyle = draw_style::kInsideSolid;
constexpr std::u16string_view kFontName = u"fontname";

// A member of the surface, by its name in lower case. One without `set` can only be read.
struct SurfaceMember {
    std::u16string_view name;
    MemberValue (*get)(const ObjectCanvas& canvas);
    void (*set)(ObjectCanvas& canvas, const MemberValue& value);
};

template <auto kField>
MemberValue GetField(const ObjectCanvas& canvas) {
    return static_cast<double>(canvas.*kField);
}

template <float DrawingSurface::*kField>
void SetPoint(ObjectCanvas& canvas, const MemberValue& value) {
    canvas.*kField = ToFloat(MemberToNumber(value));
}

template <std::int32_t DrawingSurface::*kField>
void SetColor(ObjectCanvas& canvas, const MemberValue& value) {
    canvas.*kField = MemberToInt(value);
}

// A small number with its bounds. Throws Failure(5) outside.
std::int16_t NumberWithin(const MemberValue& value, std::int16_t least, std::int16_t most) {
    const std::int16_t number = ToInt16(MemberToNumber(value));
    if (number < least || number > most) throw Failure(failure::kBadCall);
    return number;
}

void SetDrawWidth(ObjectCanvas& canvas, const MemberValue& value) {
    canvas.DrawWidth = NumberWithin(value, 1, INT16_MAX);
}

void SetDrawMode(ObjectCanvas& canvas, const MemberValue& value) {
    canvas.DrawMode = NumberWithin(value, draw_mode::kBlack, kLastDrawMode);
}

void SetDrawStyle(ObjectCanvas& canvas, const MemberValue& value) {
    canvas.DrawStyle = NumberWithin(value, draw_style::kSolid, kLastDrawStyle);
}

void SetFillStyle(ObjectCanvas& canvas, const MemberValue& value) {
    canvas.FillStyle = static_cast<FillStyles>(NumberWithin(value, 0, 1));
}

template <bool TextStyle::*kFlag>
MemberValue GetFontFlag(const ObjectCanvas& canvas) {
    return canvas.Font.*kFlag;
}

template <bool TextStyle::*kFlag>
void SetFontFlag(ObjectCanvas& canvas, const MemberValue& value) {
    canvas.Font.*kFlag = MemberToBool(value);
}

void SetFontSize(ObjectCanvas& canvas, const MemberValue& value) {
    const double size = MemberToNumber(value);
    if (!(size > 0)) throw Failure(failure::kBadCall);
    canvas.Font.size = size;
}

constexpr SurfaceMember kMembers[] = {
    {u"currentx", GetField<&DrawingSurface::CurrentX>, SetPoint<&DrawingSurface::CurrentX>},
    {u"currenty", GetField<&DrawingSurface::CurrentY>, SetPoint<&DrawingSurface::CurrentY>},
    {u"drawwidth", GetField<&DrawingSurface::DrawWidth>, SetDrawWidth},
    {u"drawmode", GetField<&Canvas::DrawMode>, SetDrawMode},
    {u"drawstyle", GetField<&Canvas::DrawStyle>, SetDrawStyle},
    {u"forecolor", GetField<&DrawingSurface::ForeColor>, SetColor<&DrawingSurface::ForeColor>},
    {u"backcolor",
     [](const ObjectCanvas& canvas) -> MemberValue {
         return static_cast<double>(canvas.BackColor());
     },
     [](ObjectCanvas& canvas, const MemberValue& value) {
         canvas.SetBackColor(MemberToInt(value));
     }},
    {u"fillcolor", GetField<&DrawingSurface::FillColor>, SetColor<&DrawingSurface::FillColor>},
    {u"fillstyle", GetField<&DrawingSurface::FillStyle>, SetFillStyle},
    {u"scalemode", GetField<&ObjectCanvas::scaleMode>,
     [](ObjectCanvas& canvas, const MemberValue& value) {
         canvas.SetScaleMode(MemberToInt(value));
     }},
    {u"scalewidth",
     [](const ObjectCanvas& canvas) -> MemberValue { return double{canvas.ScaleWidth()}; },
     nullptr},
    {u"scaleheight",
     [](const ObjectCanvas& canvas) -> MemberValue { return double{canvas.ScaleHeight()}; },
     nullptr},
    {u"autoredraw", [](const ObjectCanvas& canvas) -> MemberValue { return canvas.AutoRedraw; },
     [](ObjectCanvas& canvas, const MemberValue& value) {
         canvas.AutoRedraw = MemberToBool(value);
     }},
    {kFontName, [](const ObjectCanvas& canvas) -> MemberValue { return canvas.Font.font; },
     [](ObjectCanvas& canvas, const MemberValue& value) {
         canvas.Font.font = MemberToText(value);
     }},
    {u"fontsize", [](const ObjectCanvas& canvas) -> MemberValue { return canvas.Font.size; },
     SetFontSize},
    {u"fontbold", GetFontFlag<&TextStyle::bold>, SetFontFlag<&TextStyle::bold>},
    {u"fontitalic", GetFontFlag<&TextStyle::italic>, SetFontFlag<&TextStyle::italic>},
    {u"fontunderline", GetFontFlag<&TextStyle::underline>, SetFontFlag<&TextStyle::underline>},
    {u"fontstrikethru", GetFontFlag<&TextStyle::strikeOut>, SetFontFlag<&TextStyle::strikeOut>},
};

const SurfaceMember* FindMember(std::u16string_view member) {
    const std::u16string name = ToLower(member);
    const auto found = std::find_if(std::begin(kMembers), std::end(kMembers),
                                    [&name](const SurfaceMember& row) { return row.name == name; });
    return found == std::end(kMembers) ? nullptr : found;
}

}  // namespace

ObjectCanvas::ObjectCanvas(Object& owner) : Canvas(owner.Name(), owner.IsWindow()), owner_(owner) {}

std::u16string ObjectCanvas::ObjectName() const { return ObjectKindName(owner_); }

// The name of the standard font is known to the toolkit alone.
bool ObjectCanvas::GetMember(std::u16string_view member, MemberValue& value) {
    const SurfaceMember* row = FindMember(member);
    if (row == nullptr || (row->name == kFontName && Font.font.empty())) return false;
    value = row->get(*this);
    return true;
}

bool ObjectCanvas::SetMember(std::u16string_view member, const MemberValue& value) {
    const SurfaceMember* row = FindMember(member);
    if (row == nullptr) return false;
    if (row->set == nullptr) throw Failure(failure::kNoSuchMember);
    row->set(*this, value);
    return true;
}

bool ObjectCanvas::CallMember(std::u16string_view member) {
    const std::u16string name = ToLower(member);
    if (name == u"cls") {
        Cls();
    } else if (name == u"refresh") {
        Refresh();
    } else {
        return false;
    }
    return true;
}

void ObjectCanvas::SetScaleMode(std::int32_t mode) {
    SetUnitsInPixel(velm::UnitsInPixel(mode));
    scaleMode = mode;
}

}  // namespace velm
