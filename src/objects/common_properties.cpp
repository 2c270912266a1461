// The properties that all controls and windows share: place, look, font and the like.
#include <array>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

#include "core/diagnostics.h"
#include "data/failure.h"
#include "data/numbers.h"
#include "data/resources.h"
#include "data/text.h"
#include "graphics/raster.h"
#include "objects/member_rows.h"
#include "objects/object_canvas.h"
#include "objects/resolve.h"

namespace velm {

namespace {

constexpr int kOtherMessage = 90;
constexpr std::u16string_view kCentre = u"中央";
constexpr std::u16string_view kTooLongText = u"64KB以上の内容は代入できません";
constexpr std::u16string_view kNoIndexText =
    u"このオブジェクトでは、対応していない設定項目です。\\n%1";
constexpr double kPointerOfFile = 99;
constexpr std::array<std::u16string_view, 5> kAlignments = {u"なし", u"上側", u"下側", u"左側",
                                                            u"右側"};

// In which unit the place of an object is told: a frame has no scale of its own, so that what stands in
// one is told in the scale of the window.
double PlaceUnits(const Object& object) {
    const ObjectPtr container = object.Container();
    const WindowPtr window = object.Owner();
    const bool isInFrame = container && container->Class() == ControlClass::kFrame;
    return isInFrame && window ? window->OwnUnits() : object.ContainerUnits();
}

// A length in pixels as it is told in a unit.
Value LengthValue(std::int32_t pixels, double units) {
    if (units == 1) return Value::OfInteger(pixels);
    return Value(FormatSingle(static_cast<float>(pixels * units)));
}

Value ListOfLengths(std::initializer_list<std::int32_t> pixels, double units) {
    std::u16string text;
    for (const std::int32_t length : pixels) {
        if (!text.empty()) text += u',';
        LengthValue(length, units).AppendTo(text);
    }
    return Value(std::move(text));
}

// Where an object of a size begins when it stands in the middle of the current window.
PixelBox Centred(PixelBox box) {
    if (!objects.CurrentWindow) return box;
    const ToolkitWindow& window = objects.CurrentWindow->Frame();
    box.left = (window.ClientWidth() - box.width) / 2;
    box.top = (window.ClientHeight() - box.height) / 2;
    return box;
}

void GetPlace(Object& object, const PropertyRecord& /*record*/, PropertyResult& result) {
    const PixelBox box = object.Geometry();
    result.Text = ListOfLengths({box.left, box.top}, PlaceUnits(object));
}

void GetSize(Object& object, const PropertyRecord& /*record*/, PropertyResult& result) {
    const PixelBox box = object.Geometry();
    result.Text = ListOfLengths({box.width, box.height}, PlaceUnits(object));
}

void GetPlaceAndSize(Object& object, const PropertyRecord& /*record*/, PropertyResult& result) {
    const PixelBox box = object.Geometry();
    result.Text = ListOfLengths({box.left, box.top, box.width, box.height}, PlaceUnits(object));
}

template <std::int32_t PixelBox::*kSide>
void GetLength(Object& object, const PropertyRecord& /*record*/, PropertyResult& result) {
    result.Text = LengthValue(object.Geometry().*kSide, PlaceUnits(object));
}

template <std::int32_t PixelBox::*kSide>
void SetLength(Object& object, const PropertyRecord& record, PropertyResult& /*result*/) {
    PixelBox box = object.Geometry();
    box.*kSide = NearestPixel(record.Text.NumberOrZero() / PlaceUnits(object));
    object.SetGeometry(box);
}

// A side that can be told as the middle, too.
template <std::int32_t PixelBox::*kSide>
void SetStart(Object& object, const PropertyRecord& record, PropertyResult& result) {
    if (record.Text.Text() != kCentre) {
        SetLength<kSide>(object, record, result);
        return;
    }
    PixelBox box = object.Geometry();
    box.*kSide = Centred(box).*kSide;
    object.SetGeometry(box);
}

// Reads lengths into sides of a box, those that the value has.
void ReadLengths(const Object& object, const PropertyRecord& record, PixelBox& box,
                 std::initializer_list<std::int32_t PixelBox::*> sides) {
    const double units = PlaceUnits(object);
    std::array<double, 4> lengths = {};
    std::size_t count = 0;
    for (const auto side : sides) lengths[count++] = box.*side * units;
    SplitCoordinates(record, std::span(lengths).first(count));
    count = 0;
    for (const auto side : sides) box.*side = NearestPixel(lengths[count++] / units);
}

void SetPlace(Object& object, const PropertyRecord& record, PropertyResult& /*result*/) {
    PixelBox box = object.Geometry();
    if (record.Text.Text() == kCentre) {
        box = Centred(box);
    } else {
        ReadLengths(object, record, box, {&PixelBox::left, &PixelBox::top});
    }
    object.SetGeometry(box);
}

void SetSize(Object& object, const PropertyRecord& record, PropertyResult& /*result*/) {
    PixelBox box = object.Geometry();
    ReadLengths(object, record, box, {&PixelBox::width, &PixelBox::height});
    object.SetGeometry(box);
}

// A drop-down has the height of its line.
void SetPlaceAndSize(Object& object, const PropertyRecord& record, PropertyResult& /*result*/) {
    PixelBox box = object.Geometry();
    const ControlClass which = object.Class();
    if (which == ControlClass::kDropDown || which == ControlClass::kEditableDropDown) {
        ReadLengths(object, record, box, {&PixelBox::left, &PixelBox::top, &PixelBox::width});
    } else {
        ReadLengths(object, record, box,
                    {&PixelBox::left, &PixelBox::top, &PixelBox::width, &PixelBox::height});
    }
    object.SetGeometry(box);
}

bool HasTextContent(ControlClass which) {
    switch (which) {
        case ControlClass::kText:
        case ControlClass::kMultiLineText:
        case ControlClass::kWrappedText:
        case ControlClass::kRichText:
        case ControlClass::kList:
        case ControlClass::kDropDown:
        case ControlClass::kEditableDropDown: return true;
        default: return false;
    }
}

void GetContent(Object& object, const PropertyRecord& /*record*/, PropertyResult& result) {
    result.Text = Value(object.GetText(HasTextContent(object.Class()) ? u"Text" : u"Caption"));
}

// What has no text of its own shows its content as its caption.
void WriteContent(Object& object, const std::u16string& text) {
    if (!object.IsWindow() && object.Class() != ControlClass::kLabel) {
        try {
            object.Set(u"Text", text);
            return;
        } catch (const Failure& failed) {
            if (failed.Number() != failure::kNoSuchMember) throw;
        }
    }
    object.Set(u"Caption", text);
}

void SetContent(Object& object, const PropertyRecord& record, PropertyResult& /*result*/) {
    try {
        WriteContent(object, record.Text.Text());
    } catch (const Failure& failed) {
        if (failed.Number() != failure::kOutOfMemory) throw;
        RaiseMessage(kTooLongText, kOtherMessage, kIconWarning, u"", u"", -1);
    }
}

void SetTransparentColor(Object& object, const PropertyRecord& record, PropertyResult& result) {
    SetColorMember<u"MaskColor">(object, record, result);
    object.Set(u"UseMaskColor", true);
}

void GetPointer(Object& object, const PropertyRecord& /*record*/, PropertyResult& result) {
    const double pointer = object.GetNumber(u"MousePointer");
    result.Text =
        pointer == kPointerOfFile ? Value(object.GetText(u"MouseIcon")) : Value::OfNumber(pointer);
}

// The number of a pointer's word; below 0 for none. One that is a function's name, too, counts as written.
double PointerOfWord(const PropertyRecord& record) {
    const std::int32_t number = ResourceNumber(kCursorWords, record.Text.Text());
    return number >= 0 ? number : ResourceNumber(kCursorWords, Trim(record.Value.Text()));
}

// A word that is neither number nor in the table is a file with the pointer's picture.
void SetPointer(Object& object, const PropertyRecord& record, PropertyResult& /*result*/) {
    double pointer = record.Text.IsNumeric() ? record.Text.NumberOrZero() : PointerOfWord(record);
    if (pointer < 0) {
        object.Set(u"MouseIcon", record.Text.Text());
        pointer = kPointerOfFile;
    }
    object.Set(u"MousePointer", pointer);
}

void GetPicture(Object& object, const PropertyRecord& /*record*/, PropertyResult& result) {
    result.Text = Value(object.pictureFile);
}

void SetPicture(Object& object, const PropertyRecord& record, PropertyResult& /*result*/) {
    LoadImage(object, PictureWord(record));
}

void SetOrder(Object& object, const PropertyRecord& record, PropertyResult& /*result*/) {
    object.Call(u"ZOrder", {double{record.Number}});
}

void GetContainer(Object& object, const PropertyRecord& /*record*/, PropertyResult& result) {
    const ObjectPtr container = object.Container();
    if (container) result.Text = Value(ObjectKindName(*container));
}

void SetContainer(Object& object, const PropertyRecord& record, PropertyResult& /*result*/) {
    const ObjectPtr held = object.shared_from_this();
    const ObjectPtr container = ResolveObject(record.Text.Text(), false);
    if (container) held->SetContainer(container);
}

void GetKindName(Object& object, const PropertyRecord& /*record*/, PropertyResult& result) {
    result.Text = Value(ObjectKindName(object));
}

void GetCount(Object& object, const PropertyRecord& /*record*/, PropertyResult& result) {
    result.Text = Value(ObjectCount(object));
}

void GetIndex(Object& object, const PropertyRecord& record, PropertyResult& result) {
    if (object.Index() < 0) {
        RaiseMessage(kNoIndexText, kOtherMessage, kIconWarning, record.Name, u"", -1);
        return;
    }
    result.Text = Value::OfInteger(object.Index());
}

void Ignore(Object& /*object*/, const PropertyRecord& /*record*/, PropertyResult& /*result*/) {}

constexpr PropertyRow kCommonRows[] = {
    {u"位置", GetPlace, SetPlace},
    {u"大きさ", GetSize, SetSize},
    {u"縦", GetLength<&PixelBox::top>, SetStart<&PixelBox::top>},
    {u"横", GetLength<&PixelBox::left>, SetStart<&PixelBox::left>},
    {u"幅", GetLength<&PixelBox::width>, SetLength<&PixelBox::width>},
    {u"高さ", GetLength<&PixelBox::height>, SetLength<&PixelBox::height>},
    {u"位置と大きさ", GetPlaceAndSize, SetPlaceAndSize},
    TextRow<u"Caption">(u"名前"),
    ColorRow<u"ForeColor">(u"色"),
    ColorRow<u"BackColor">(u"背景"),
    {u"透明色", GetColorMember<u"MaskColor">, SetTransparentColor},
    {u"塗りつぶし色", nullptr, SetColorMember<u"FillColor">},
    {u"内容", GetContent, SetContent},
    FlagRow<u"Visible">(u"表示"),
    FlagRow<u"Enabled">(u"有効"),
    {u"マウスカーソル", GetPointer, SetPointer},
    {u"絵", GetPicture, SetPicture},
    {u"イメージ", GetTextMember<u"Image">},
    NumberRow<u"TabIndex">(u"タブインデックス"),
    {u"タブ移動", nullptr, SetFlagMember<u"TabStop">},
    TextRow<u"FontName">(u"フォント名"),
    NumberRow<u"FontSize">(u"フォントサイズ"),
    {u"文字セット", nullptr, SetNumberMember<u"FontCharset">},
    FlagRow<u"FontBold">(u"太字"),
    FlagRow<u"FontItalic">(u"斜体"),
    FlagRow<u"FontUnderline">(u"下線"),
    FlagRow<u"FontStrikethru">(u"取り消し線"),
    TextRow<u"ToolTipText">(u"ヒント"),
    {u"階層", nullptr, SetOrder},
    NumberRow<u"OLEDropMode">(u"ドラッグ＆ドロップ"),
    EnumRow<u"Align", kAlignments>(u"配置"),
    {u"表示場所", GetContainer, SetContainer},
    TextRow<u"Tag">(u"情報"),
    // Kept: setting a handle is accepted and does nothing; setting the three names behind it isn't known.
    {u"ハンドル", GetNumberMember<u"hWnd">, Ignore},
    {u"ＤＣハンドル", GetNumberMember<u"hDC">, Ignore},
    {u"コンテキストハンドル", GetNumberMember<u"hDC">},
    {u"オブジェクト名", GetKindName},
    {u"オブジェクト数", GetCount},
    {u"オブジェクト番号", GetIndex},
};

}  // namespace

bool IsCommonProperty(std::u16string_view word) {
    return FindPropertyRow(kCommonRows, word) != nullptr;
}

bool SetCommonProperty(Object& object, const PropertyRecord& record, PropertyResult& result) {
    const PropertyRow* row = FindPropertyRow(kCommonRows, record.Name);
    if (row == nullptr || row->set == nullptr) return false;
    row->set(object, record, result);
    return true;
}

bool GetCommonProperty(Object& object, const PropertyRecord& record, PropertyResult& result) {
    const PropertyRow* row = FindPropertyRow(kCommonRows, record.Name);
    if (row == nullptr || row->get == nullptr) return false;
    row->get(object, record, result);
    return true;
}

const PropertyHandler kFrameProperties = {{}};

}  // namespace velm
