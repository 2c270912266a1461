// Properties of windows. Lengths are pixels of the screen.
#include <algorithm>
#include <array>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

#include "data/failure.h"
#include "graphics/raster.h"
#include "objects/member_rows.h"
#include "objects/object_canvas.h"
#include "objects/object_settings.h"
#include "objects/surface_rows.h"
#include "objects/window_state.h"

namespace velm {

namespace {

constexpr std::u16string_view kCentre = u"中央";
constexpr std::array<std::u16string_view, 3> kStates = {u"標準", u"最小化", u"最大化"};
constexpr std::array<std::u16string_view, 6> kKinds = {u"標準",   u"固定",       u"縁無し",
                                                       u"ツール", u"固定ツール", u"フルスクリーン"};
constexpr std::array<std::u16string_view, 4> kInitialStates = {u"標準", u"中央", u"最大化",
                                                               u"最小化"};

Window& WindowOf(Object& object) { return static_cast<Window&>(object); }

Value JoinLengths(std::initializer_list<std::int32_t> lengths) {
    std::u16string text;
    for (const std::int32_t length : lengths) {
        if (!text.empty()) text += u',';
        Value::OfInteger(length).AppendTo(text);
    }
    return Value(std::move(text));
}

template <std::int32_t PixelBox::*kSide>
void GetLength(Object& object, const PropertyRecord& /*record*/, PropertyResult& result) {
    result.Text = Value::OfInteger(object.Geometry().*kSide);
}

template <std::int32_t PixelBox::*kSide>
void SetLength(Object& object, const PropertyRecord& record, PropertyResult& /*result*/) {
    PixelBox box = object.Geometry();
    box.*kSide = NearestPixel(record.Text.NumberOrZero());
    object.SetGeometry(box);
}

template <std::int32_t PixelBox::*kSide>
void SetStart(Object& object, const PropertyRecord& record, PropertyResult& result) {
    if (record.Text.Text() != kCentre) {
        SetLength<kSide>(object, record, result);
        return;
    }
    PixelBox box = object.Geometry();
    box.*kSide = CentredOnScreen(box).*kSide;
    object.SetGeometry(box);
}

// Reads lengths of the value over those that are given.
template <std::size_t kCount>
std::array<std::int32_t, kCount> ReadLengths(const PropertyRecord& record,
                                             const std::array<std::int32_t, kCount>& old) {
    std::array<double, kCount> lengths;
    std::copy(old.begin(), old.end(), lengths.begin());
    SplitCoordinates(record, lengths);
    std::array<std::int32_t, kCount> pixels;
    for (std::size_t i = 0; i < kCount; ++i) pixels[i] = NearestPixel(lengths[i]);
    return pixels;
}

void GetClientWidth(Object& object, const PropertyRecord& /*record*/, PropertyResult& result) {
    result.Text = Value::OfInteger(WindowOf(object).Frame().ClientWidth());
}

void SetClientWidth(Object& object, const PropertyRecord& record, PropertyResult& /*result*/) {
    ToolkitWindow& frame = WindowOf(object).Frame();
    frame.SetClientSize(NearestPixel(record.Text.NumberOrZero()), frame.ClientHeight());
}

void GetClientHeight(Object& object, const PropertyRecord& /*record*/, PropertyResult& result) {
    result.Text = Value::OfInteger(WindowOf(object).Frame().ClientHeight());
}

void SetClientHeight(Object& object, const PropertyRecord& record, PropertyResult& /*result*/) {
    ToolkitWindow& frame = WindowOf(object).Frame();
    frame.SetClientSize(frame.ClientWidth(), NearestPixel(record.Text.NumberOrZero()));
}

void GetClientSize(Object& object, const PropertyRecord& /*record*/, PropertyResult& result) {
    const ToolkitWindow& frame = WindowOf(object).Frame();
    result.Text = JoinLengths({frame.ClientWidth(), frame.ClientHeight()});
}

void SetClientSize(Object& object, const PropertyRecord& record, PropertyResult& /*result*/) {
    ToolkitWindow& frame = WindowOf(object).Frame();
    const auto [width, height] =
        ReadLengths<2>(record, {frame.ClientWidth(), frame.ClientHeight()});
    frame.SetClientSize(width, height);
}

void GetPlace(Object& object, const PropertyRecord& /*record*/, PropertyResult& result) {
    const PixelBox box = object.Geometry();
    result.Text = JoinLengths({box.left, box.top});
}

void SetPlace(Object& object, const PropertyRecord& record, PropertyResult& /*result*/) {
    PixelBox box = object.Geometry();
    if (record.Text.Text() == kCentre) {
        box = CentredOnScreen(box);
    } else {
        const auto [left, top] = ReadLengths<2>(record, {box.left, box.top});
        box = {left, top, box.width, box.height};
    }
    object.SetGeometry(box);
}

void GetSize(Object& object, const PropertyRecord& /*record*/, PropertyResult& result) {
    const PixelBox box = object.Geometry();
    result.Text = JoinLengths({box.width, box.height});
}

void SetState(Object& object, std::int32_t state) {
    object.Set(u"WindowState", static_cast<double>(state));
}

// A word for a state sets that instead.
void SetSize(Object& object, const PropertyRecord& record, PropertyResult& /*result*/) {
    const auto word = std::find(kStates.begin(), kStates.end(), record.Text.Text());
    if (word != kStates.end()) {
        SetState(object, static_cast<std::int32_t>(word - kStates.begin()));
        return;
    }
    PixelBox box = object.Geometry();
    const auto [width, height] = ReadLengths<2>(record, {box.width, box.height});
    object.SetGeometry({box.left, box.top, width, height});
}

void GetPlaceAndSize(Object& object, const PropertyRecord& /*record*/, PropertyResult& result) {
    const PixelBox box = object.Geometry();
    const std::int32_t state = MemberToInt(object.Get(u"WindowState"));
    result.Text = JoinLengths({box.left, box.top, box.width, box.height, state});
}

// The state comes first: a window that is maximised has no place of its own.
void SetPlaceAndSize(Object& object, const PropertyRecord& record, PropertyResult& /*result*/) {
    const PixelBox box = object.Geometry();
    const std::int32_t old = MemberToInt(object.Get(u"WindowState"));
    const auto [left, top, width, height, state] =
        ReadLengths<5>(record, {box.left, box.top, box.width, box.height, old});
    if (state != old) SetState(object, state);
    if (state == 0) object.SetGeometry({left, top, width, height});
}

void GetKind(Object& object, const PropertyRecord& /*record*/, PropertyResult& result) {
    result.Text = EnumNameOf(WindowSetting(WindowOf(object), kWindowKind), kKinds);
}

void SetKind(Object& object, const PropertyRecord& record, PropertyResult& /*result*/) {
    const std::int32_t kind = EnumIndexOf(record, kKinds);
    if (kind < 0 || static_cast<std::size_t>(kind) >= kKinds.size()) {
        throw Failure(failure::kBadCall);
    }
    ApplyWindowKind(WindowOf(object), kind);
}

void GetIcon(Object& object, const PropertyRecord& /*record*/, PropertyResult& result) {
    result.Text = WindowOf(object).Prop[std::u16string(kWindowIconFile)];
}

void SetIcon(Object& object, const PropertyRecord& record, PropertyResult& /*result*/) {
    const PictureWord word(record);
    Pixmap icon;
    if (!word.file.empty()) icon = TheToolkit().LoadIcon(word.file, word.index, false);
    object.SetPicture(icon);
    WindowOf(object).Prop[std::u16string(kWindowIconFile)] = Value(word.file);
}

// Controls are never drawn over where the toolkit has no such switch.
void SetAutoRedraw(Object& object, const PropertyRecord& record, PropertyResult& result) {
    SetFlagMember<u"AutoRedraw">(object, record, result);
    Attempt([&] { SetFlagMember<u"ClipControls">(object, record, result); });
    pendingFailure.Clear();
}

template <const std::u16string_view& kKey>
void GetSetting(Object& object, const PropertyRecord& /*record*/, PropertyResult& result) {
    result.Text = Value::OfInteger(WindowSetting(WindowOf(object), kKey));
}

void SetTransparency(Object& object, const PropertyRecord& record, PropertyResult& /*result*/) {
    const std::int32_t percent = ToInt32(record.Text.NumberOrZero());
    WindowOf(object).Prop[std::u16string(kTransparency)] = Value::OfInteger(percent);
    SetWindowAlpha(WindowOf(object), percent);
}

void SetKeptOnTop(Object& object, const PropertyRecord& record, PropertyResult& /*result*/) {
    const bool isOn = record.Number != 0;
    WindowOf(object).Prop[std::u16string(kKeptOnTop)] = Value::OfBool(isOn);
    SetTopMost(WindowOf(object), isOn);
}

void GetInitialState(Object& object, const PropertyRecord& /*record*/, PropertyResult& result) {
    result.Text = EnumNameOf(WindowSetting(WindowOf(object), kInitialState), kInitialStates);
}

void SetInitialState(Object& object, const PropertyRecord& record, PropertyResult& /*result*/) {
    WindowOf(object).Prop[std::u16string(kInitialState)] =
        Value::OfInteger(EnumIndexOf(record, kInitialStates));
}

void GetShape(Object& object, const PropertyRecord& /*record*/, PropertyResult& result) {
    result.Text = Value::OfBool(WindowOf(object).RgnFlag);
}

void SetShape(Object& object, const PropertyRecord& record, PropertyResult& /*result*/) {
    Window& window = WindowOf(object);
    window.RgnFlag = record.Number != 0;
    if (window.RgnFlag) {
        ShapeByPicture(window);
    } else {
        window.Frame().SetShape(Pixmap());
    }
}

void GetDrawLock(Object& /*object*/, const PropertyRecord& /*record*/, PropertyResult& result) {
    result.Text = Value::OfBool(drawing.DrawLock);
}

void SetDrawLock(Object& object, const PropertyRecord& record, PropertyResult& result) {
    drawing.DrawLock = record.Number != 0;
    SetFlagMember<u"AutoRedraw">(object, record, result);
    if (!drawing.DrawLock) object.Call(u"Refresh");
}

constexpr PropertyRow kWindowRows[] = {
    TextRow<u"Caption">(u"名前"),
    {u"横", GetLength<&PixelBox::left>, SetStart<&PixelBox::left>},
    {u"縦", GetLength<&PixelBox::top>, SetStart<&PixelBox::top>},
    {u"幅", GetLength<&PixelBox::width>, SetLength<&PixelBox::width>},
    {u"高さ", GetLength<&PixelBox::height>, SetLength<&PixelBox::height>},
    {u"中の幅", GetClientWidth, SetClientWidth},
    {u"中の高さ", GetClientHeight, SetClientHeight},
    {u"位置", GetPlace, SetPlace},
    {u"大きさ", GetSize, SetSize},
    {u"中の大きさ", GetClientSize, SetClientSize},
    EnumRow<u"WindowState", kStates>(u"状態"),
    {u"位置と大きさ", GetPlaceAndSize, SetPlaceAndSize},
    {u"種類", GetKind, SetKind},
    {u"アイコン", GetIcon, SetIcon},
    {u"再描画", GetFlagMember<u"AutoRedraw">, SetAutoRedraw},
    {u"オブジェクト再描画", nullptr, SetFlagMember<u"ClipControls">},
    {u"位置固定", GetFlagMember<u"Moveable">},
    {u"描画モード", GetDrawMode, SetNumberMember<u"DrawMode">},
    NumberRow<u"DrawStyle">(u"描画スタイル"),
    {u"透明度", GetSetting<kTransparency>, SetTransparency},
    {u"最前面", GetSetting<kKeptOnTop>, SetKeptOnTop},
    {u"初期状態", GetInitialState, SetInitialState},
    {u"変形", GetShape, SetShape},
    {u"描画ロック", GetDrawLock, SetDrawLock},
    {u"座標", GetScaleWord, SetScaleWord},
    FlagRow<u"ShowInTaskbar">(u"タスクバー表示"),
    FlagRow<u"MinButton">(u"最小化ボタン"),
    FlagRow<u"MaxButton">(u"最大化ボタン"),
    FlagRow<u"ControlBox">(u"システムメニュー"),
};

}  // namespace

const PropertyHandler kWindowProperties = {kWindowRows};

}  // namespace velm
