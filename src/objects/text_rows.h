// The property rows of whatever has a line of text to edit: text boxes, and the drop-downs with theirs.
#pragma once

#include <array>

#include "objects/member_rows.h"

namespace velm {

inline constexpr std::array<std::u16string_view, 9> kInputModes = {
    u"普通",     u"オン",         u"オフ",   u"無効",      u"ひらがな",
    u"カタカナ", u"半角カタカナ", u"英数字", u"半角英数字"};

// The line of the caret, and the characters between its start and the caret.
void GetCaretLine(Object& object, const PropertyRecord& record, PropertyResult& result);
void GetCaretColumn(Object& object, const PropertyRecord& record, PropertyResult& result);

inline constexpr PropertyRow kEditRows[] = {
    TextRow<u"PasswordChar">(u"隠し文字"),
    TextRow<u"SelText">(u"選択"),
    NumberRow<u"SelStart">(u"選択スタート"),
    NumberRow<u"SelLength">(u"選択長さ"),
    GetOnlyRow(u"行数", GetCaretLine),
    GetOnlyRow(u"桁数", GetCaretColumn),
    NumberRow<u"MaxLength">(u"制限文字数"),
    FlagRow<u"Locked">(u"入力ロック"),
    EnumRow<u"IMEMode", kInputModes>(u"ＩＭＥの状態"),
};

// Two tables, one behind the other.
template <std::size_t kFirst, std::size_t kSecond>
constexpr std::array<PropertyRow, kFirst + kSecond> JoinRows(const PropertyRow (&first)[kFirst],
                                                             const PropertyRow (&second)[kSecond]) {
    std::array<PropertyRow, kFirst + kSecond> rows;
    std::copy_n(first, kFirst, rows.begin());
    std::copy_n(second, kSecond, rows.begin() + kFirst);
    return rows;
}

}  // namespace velm
