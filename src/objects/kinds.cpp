// See kinds.h.
#include "objects/kinds.h"

#include <algorithm>
#include <iterator>

namespace velm {

namespace {

constexpr ControlTemplate kTemplates[] = {
    {ControlClass::kButton, u"Command1", 65, 25, u"ボタン"},
    {ControlClass::kPictureButton, u"Command2", 65, 25, u"ボタン"},
    {ControlClass::kText, u"Text1", 65, 18, u""},
    {ControlClass::kMultiLineText, u"Text2", 65, 57, u""},
    {ControlClass::kWrappedText, u"Text3", 65, 57, u""},
    {ControlClass::kPicture, u"Picture1", 65, 49, u""},
    {ControlClass::kImage, u"Image1", 73, 49, u""},
    {ControlClass::kLabel, u"Label1", 65, 12, u"ラベル"},
    {ControlClass::kList, u"List1", 65, 18, u""},
    {ControlClass::kDropDown, u"Combo1", 65, 20, u""},
    {ControlClass::kEditableDropDown, u"Combo2", 65, 20, u""},
    {ControlClass::kVerticalScrollBar, u"VScroll1", 17, 65, u""},
    {ControlClass::kHorizontalScrollBar, u"HScroll1", 73, 17, u""},
    {ControlClass::kCheck, u"Check1", 65, 17, u"チェック"},
    {ControlClass::kOption, u"Option1", 73, 17, u"オプション"},
    {ControlClass::kFrame, u"Frame1", 73, 33, u"フレーム"},
    {ControlClass::kShape, u"Shape1", 17, 17, u""},
    {ControlClass::kLine, u"Line1", 0, 16, u""},
    {ControlClass::kFolderList, u"Dir1", 49, 20, u""},
    {ControlClass::kDriveList, u"Drive1", 49, 20, u""},
    {ControlClass::kTimer, u"Timer1", 0, 0, u""},
    {ControlClass::kTurtle, u"MainIcon", 32, 32, u""},
    {ControlClass::kRichText, u"ExTx1", 65, 57, u""},
};

constexpr MakerRow Array(std::u16string_view word, std::u16string_view array) {
    return {word, MakerKind::kArray, array, u"", u""};
}
constexpr MakerRow Later(std::u16string_view word) {
    return {word, MakerKind::kLater, u"", u"", u""};
}

// Kept: the order, and that 形 and 線 are made by words that no name is looked up by.
constexpr MakerRow kMakerRows[] = {
    Array(u"ボタン", u"Command1"),
    Array(u"テキスト", u"Text1"),
    Array(u"文章テキスト", u"Text2"),
    Array(u"ピクチャー", u"Picture1"),
    Array(u"イメージ", u"Image1"),
    Array(u"ラベル", u"Label1"),
    Array(u"選択リスト", u"Combo1"),
    Array(u"入力選択リスト", u"Combo2"),
    Array(u"縦スクロールバー", u"VScroll1"),
    Array(u"横スクロールバー", u"HScroll1"),
    Array(u"チェック", u"Check1"),
    Array(u"オプション", u"Option1"),
    Later(u"リストビュー"),
    Array(u"リスト", u"List1"),
    Array(u"フレーム", u"Frame1"),
    Array(u"形", u"Shape1"),
    {kLineWord, MakerKind::kLine, u"Line1", u"", u""},
    Array(u"フォルダリスト", u"Dir1"),
    Array(u"ドライブリスト", u"Drive1"),
    Later(u"拡張オブジェクト"),
    Later(u"ツールバー"),
    Later(u"プログレスバー"),
    Later(u"ツリービュー"),
    Later(u"ステータスバー"),
    Later(u"タブ"),
    Later(u"スライダ"),
    {u"拡張テキスト", MakerKind::kRunTime, u"ExTx1", u"ExTx", u"xExTextC"},
    Later(u"ブラウザ"),
    Later(u"表"),
    Array(u"カメ", u"MainIcon"),
    {u"タイマー", MakerKind::kTimer, u"Timer1", u"", u""},
};

// Kept: the order; リストビュー stands before リスト, ドライブリスト before ドライブ.
constexpr ResolverRow kResolverRows[] = {
    {u"プリンタ", ResolverKind::kPrinter},
    {u"ドライブリスト", ResolverKind::kControl},
    {u"フォルダリスト", ResolverKind::kControl},
    {u"ドライブ", ResolverKind::kDrive},
    {u"カメ", ResolverKind::kTurtle},
    {u"タイマー", ResolverKind::kTimer},
    {u"ボタン", ResolverKind::kControl},
    {u"テキスト", ResolverKind::kControl},
    {u"文章テキスト", ResolverKind::kControl},
    {u"ピクチャー", ResolverKind::kControl},
    {u"イメージ", ResolverKind::kControl},
    {u"ラベル", ResolverKind::kControl},
    {u"選択リスト", ResolverKind::kControl},
    {u"入力選択リスト", ResolverKind::kControl},
    {u"縦スクロールバー", ResolverKind::kControl},
    {u"横スクロールバー", ResolverKind::kControl},
    {u"チェック", ResolverKind::kControl},
    {u"オプション", ResolverKind::kControl},
    {u"リストビュー", ResolverKind::kControl},
    {u"リスト", ResolverKind::kControl},
    {u"フレーム", ResolverKind::kControl},
    {u"シェイプ", ResolverKind::kControl},
    {u"ライン", ResolverKind::kLine},
    {u"拡張オブジェクト", ResolverKind::kControl},
    {u"ツールバー", ResolverKind::kControl},
    {u"プロセスバー", ResolverKind::kControl},
    {u"プログレスバー", ResolverKind::kControl},
    {u"ツリービュー", ResolverKind::kControl},
    {u"ステータスバー", ResolverKind::kControl},
    {u"タブ", ResolverKind::kControl},
    {u"スライダ", ResolverKind::kControl},
    {u"拡張テキスト", ResolverKind::kControl},
    {u"ブラウザ", ResolverKind::kControl},
    {u"表", ResolverKind::kControl},
};

constexpr WindowWord kWindowWords[] = {
    {u"ウィンドウ", 0},       {u"固定ウィンドウ", 1},       {u"縁無しウィンドウ", 2},
    {u"ツールウィンドウ", 3}, {u"固定ツールウィンドウ", 4}, {u"フルスクリーン", 5},
};

}  // namespace

std::span<const MakerRow> MakerRows() { return kMakerRows; }

const ControlTemplate* FindTemplate(std::u16string_view array) {
    const auto* const found =
        std::find_if(std::begin(kTemplates), std::end(kTemplates),
                     [array](const ControlTemplate& row) { return row.array == array; });
    return found == std::end(kTemplates) ? nullptr : found;
}

std::span<const ResolverRow> ResolverRows() { return kResolverRows; }

std::span<const WindowWord> WindowWords() { return kWindowWords; }

std::u16string_view ShownWord(ControlClass which) {
    switch (which) {
        case ControlClass::kButton:
        case ControlClass::kPictureButton: return u"ボタン";
        case ControlClass::kText: return u"テキスト";
        case ControlClass::kMultiLineText:
        case ControlClass::kWrappedText: return u"文章テキスト";
        case ControlClass::kPicture:
        case ControlClass::kTurtle: return u"ピクチャー";
        case ControlClass::kImage: return u"イメージ";
        case ControlClass::kLabel: return u"ラベル";
        case ControlClass::kList: return u"リスト";
        case ControlClass::kDropDown: return u"選択リスト";
        case ControlClass::kEditableDropDown: return u"入力選択リスト";
        case ControlClass::kVerticalScrollBar: return u"縦スクロールバー";
        case ControlClass::kHorizontalScrollBar: return u"横スクロールバー";
        case ControlClass::kCheck: return u"チェック";
        case ControlClass::kOption: return u"オプション";
        case ControlClass::kFrame: return u"フレーム";
        case ControlClass::kShape: return u"シェイプ";
        case ControlClass::kLine: return u"ライン";
        case ControlClass::kFolderList: return u"フォルダリスト";
        case ControlClass::kDriveList: return u"ドライブリスト";
        case ControlClass::kTimer: return u"タイマー";
        case ControlClass::kRichText: return u"拡張テキスト";
        default: return {};
    }
}

}  // namespace velm
