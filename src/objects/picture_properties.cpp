// Properties of picture controls, and those of every drawing surface.
#include <algorithm>
#include <iterator>
#include <string_view>

#include "objects/member_rows.h"
#include "objects/object_canvas.h"
#include "objects/surface_rows.h"

namespace velm {

namespace {

struct ScaleWord {
    std::u16string_view word;
    std::int32_t mode;
};
constexpr ScaleWord kScaleWords[] = {
    {u"標準", scale_mode::kPixel},
    {u"印刷用", scale_mode::kPoint},
    {u"ミリメートル", scale_mode::kMillimetre},
    {u"センチメートル", scale_mode::kCentimetre},
};

constexpr PropertyRow kPictureRows[] = {
    FlagRow<u"AutoSize">(u"自動調整"),
    NumberRow<u"BorderStyle">(u"枠"),
    FlagRow<u"AutoRedraw">(u"再描画"),
    {u"描画モード", GetDrawMode, SetNumberMember<u"DrawMode">},
    NumberRow<u"DrawStyle">(u"描画スタイル"),
    {u"座標", GetScaleWord, SetScaleWord},
};

}  // namespace

// Kept: whatever the mode, the answer only tells that there is one.
void GetDrawMode(Object& object, const PropertyRecord& /*record*/, PropertyResult& result) {
    result.Text = Value::OfBool(object.GetNumber(u"DrawMode") != 0);
}

void GetScaleWord(Object& object, const PropertyRecord& /*record*/, PropertyResult& result) {
    const std::int32_t mode = MemberToInt(object.Get(u"ScaleMode"));
    const auto found = std::find_if(std::begin(kScaleWords), std::end(kScaleWords),
                                    [mode](const ScaleWord& row) { return row.mode == mode; });
    result.Text = found == std::end(kScaleWords) ? Value::OfInteger(mode) : Value(found->word);
}

void SetScaleWord(Object& object, const PropertyRecord& record, PropertyResult& /*result*/) {
    const auto found =
        std::find_if(std::begin(kScaleWords), std::end(kScaleWords),
                     [&](const ScaleWord& row) { return row.word == record.Text.Text(); });
    const bool hasWord = found != std::end(kScaleWords);
    object.Set(u"ScaleMode", hasWord ? static_cast<double>(found->mode) : double{record.Number});
}

const PropertyHandler kPictureProperties = {kPictureRows};

}  // namespace velm
