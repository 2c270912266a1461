// Properties of images and labels.
#include <array>

#include "objects/member_rows.h"

namespace velm {

namespace {

constexpr double kTransparent = 0;
constexpr double kOpaque = 1;
constexpr std::array<std::u16string_view, 3> kAlignments = {u"左", u"右", u"中央"};

void GetTransparent(Object& object, const PropertyRecord& /*record*/, PropertyResult& result) {
    result.Text = Value::OfBool(object.GetNumber(u"BackStyle") == kTransparent);
}

void SetTransparent(Object& object, const PropertyRecord& record, PropertyResult& /*result*/) {
    object.Set(u"BackStyle", record.Number != 0 ? kTransparent : kOpaque);
}

constexpr PropertyRow kImageRows[] = {FlagRow<u"Stretch">(u"拡大縮小")};

constexpr PropertyRow kLabelRows[] = {
    {u"透明化", GetTransparent, SetTransparent},
    FlagRow<u"AutoSize">(u"自動調整"),
    EnumRow<u"Alignment", kAlignments>(u"表示位置"),
    FlagRow<u"UseMnemonic">(u"アクセスキー"),
    FlagRow<u"WordWrap">(u"折り返し"),
};

}  // namespace

const PropertyHandler kImageProperties = {kImageRows};
const PropertyHandler kLabelProperties = {kLabelRows};

}  // namespace velm
