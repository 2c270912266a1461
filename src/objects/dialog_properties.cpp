// Properties of 選択ウィンドウ: what the dialogs start from, and what the user chose in them.
#include "objects/member_rows.h"

namespace velm {

namespace {

constexpr PropertyRow kDialogsRows[] = {
    TextRow<u"FileName">(u"ファイル名"),
    GetOnlyRow(u"フォルダ名", GetTextMember<u"FolderName">),
    TextRow<u"Filter">(u"フィルタ"),
    TextRow<u"DialogTitle">(u"タイトル"),
    NumberRow<u"Flags">(u"フラグ"),
    GetOnlyRow(u"キャンセル", GetFlagMember<u"Cancel">),
    TextRow<u"FontName">(u"フォント名"),
    NumberRow<u"FontSize">(u"フォントサイズ"),
    ColorRow<u"Color">(u"色"),
    FlagRow<u"FontBold">(u"太字"),
    FlagRow<u"FontItalic">(u"斜体"),
    FlagRow<u"FontUnderline">(u"下線"),
    FlagRow<u"FontStrikethrough">(u"取り消し線"),
    GetOnlyRow(u"作成した色", GetTextMember<u"CustColors">),
};

}  // namespace

const PropertyHandler kDialogsProperties = {kDialogsRows, false};

}  // namespace velm
