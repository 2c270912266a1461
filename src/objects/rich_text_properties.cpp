// Properties of rich text: those of the whole text and those of its selection.
#include <array>

#include "objects/member_rows.h"

namespace velm {

namespace {

constexpr std::array<std::u16string_view, 3> kAlignments = {u"左揃え", u"右揃え", u"中央揃え"};

void SetPointer(Object& object, const PropertyRecord& record, PropertyResult& result) {
    SetCommonProperty(object, record, result);
}

constexpr PropertyRow kRichTextRows[] = {
    TextRow<u"Text">(u"内容"),
    TextRow<u"TextRTF">(u"RTF内容"),
    TextRow<u"FontName">(u"フォント名"),
    NumberRow<u"FontSize">(u"フォントサイズ"),
    FlagRow<u"WordWrap">(u"折り返し"),
    TextRow<u"SelText">(u"選択"),
    NumberRow<u"SelStart">(u"選択スタート"),
    NumberRow<u"SelLength">(u"選択長さ"),
    FlagRow<u"SelBold">(u"選択太字"),
    FlagRow<u"SelItalic">(u"選択斜体"),
    FlagRow<u"SelUnderline">(u"選択下線"),
    FlagRow<u"SelStrikeThru">(u"選択取り消し線"),
    ColorRow<u"SelColor">(u"選択色"),
    TextRow<u"SelFontName">(u"選択フォント名"),
    NumberRow<u"SelFontSize">(u"選択フォントサイズ"),
    EnumRow<u"SelAlignment", kAlignments>(u"選択文字位置"),
    NumberRow<u"SelIndent">(u"選択左余白"),
    NumberRow<u"SelRightIndent">(u"選択右余白"),
    NumberRow<u"SelHangingIndent">(u"選択余白"),
    FlagRow<u"SelProtected">(u"選択文字ロック"),
    NumberRow<u"MaxLength">(u"制限文字数"),
    FlagRow<u"Locked">(u"入力ロック"),
    SetOnlyRow(u"アドレス色付け", SetFlagMember<u"AutoUrl">),
    SetOnlyRow(u"縦書き", SetFlagMember<u"Vertical">),
    SetOnlyRow(u"背景", SetColorMember<u"BackColor">),
    SetOnlyRow(u"マウスカーソル", SetPointer),
};

}  // namespace

const PropertyHandler kRichTextProperties = {kRichTextRows};

}  // namespace velm
