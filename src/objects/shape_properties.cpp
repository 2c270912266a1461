// Properties of shapes.
#include <array>

#include "objects/member_rows.h"

namespace velm {

namespace {

// Kept: one word stands twice, so that the last form can be set by its number alone.
constexpr std::array<std::u16string_view, 6> kShapes = {
    u"長方形", u"正方形", u"楕円", u"円", u"丸めの長方形", u"丸めの長方形"};

constexpr PropertyRow kShapeRows[] = {
    EnumRow<u"Shape", kShapes>(u"形"),
    NumberRow<u"BorderWidth">(u"線の太さ"),
    ColorRow<u"BorderColor">(u"線の色"),
    NumberRow<u"BorderStyle">(u"線の種類"),
};

}  // namespace

const PropertyHandler kShapeProperties = {kShapeRows};

}  // namespace velm
