// The one ordered list of functions. A handler is a function in its topic's file.
#include "functions/function_table.h"

#include <iterator>

#include "core/tables.h"
#include "functions/date_functions.h"
#include "functions/encoding_functions.h"
#include "functions/file_functions.h"
#include "functions/format_functions.h"
#include "functions/japanese_functions.h"
#include "functions/number_functions.h"
#include "functions/pattern_functions.h"
#include "functions/question_functions.h"
#include "functions/registry_functions.h"
#include "functions/state_functions.h"
#include "functions/system_functions.h"
#include "functions/table_edit_functions.h"
#include "functions/table_functions.h"
#include "functions/table_statistics.h"
#include "functions/text_functions.h"
#include "functions/text_search_functions.h"
#include "functions/turtle_functions.h"
#include "graphics/drawing_functions.h"

namespace velm {

namespace {

constexpr FunctionRow kFunctionRows[] = {
    // text
    {u"左", 2, u"を,文字だけ", FnLeft},
    {u"右", 2, u"を,文字だけ", FnRight},
    {u"真ん中", 2, u"を,から,文字だけ", FnMiddle},
    {u"後ろから左", 2, u"から,文字だけ", FnWithoutLast},
    {u"置き換え,置換", 3, u"を,から,へ", FnReplace},
    {u"取り出せ", 4, u"番目,を,から,まで", FnBetween},
    {u"情報", 2, u"から,番目", FnField},
    {u"一行だけ", 2, u"から,行目", FnLine},
    {u"スペース削除", 0, u"", FnTrim},
    {u"左のスペース削除", 0, u"", FnTrimLeft},
    {u"右のスペース削除", 0, u"", FnTrimRight},
    {u"アスキー", 0, u"", FnCharacterCode},
    {u"キャラクタ", 0, u"", FnCharacter},
    {u"大文字", 0, u"", FnUpper},
    {u"小文字", 0, u"", FnLower},
    {u"繰り返せ", 2, u"回,を", FnRepeat},
    {u"スペース", 0, u"", FnBlanks},
    {u"いくつ", 0, u"", FnCountOf},
    {u"行数,何行", 0, u"", FnLineCount},
    {u"文字数", 0, u"", FnLength},
    {u"バイト文字数", 0, u"", FnByteLength},
    {u"探せ", 2, u"から,を,で", FnFind},
    {u"後ろから探せ", 2, u"を,で,から", FnFindLast},
    {u"書式", 2, u"を,で", FnFormat},
    {u"パターン置き換え,パターン置換", 3, u"を,から,に", FnPatternReplace},
    {u"改行,エンター", 0, u"", FnLineEnd},
    {u"タブ", 0, u"", FnTab},
    // Japanese text
    {u"全角", 0, u"", FnFullWidth},
    {u"半角", 0, u"", FnHalfWidth},
    {u"ひらがな", 0, u"", FnHiragana},
    {u"カタカナ", 0, u"", FnKatakana},
    {u"ふりがな", 0, u"", FnReading},
    {u"判別", 3, u"について,と,で", FnDecide},
    // tables and lists
    {u"配列数", 0, u"", FnTableCount},
    {u"配列検索", 2, u"から,を,列目", FnTableSearch},
    {u"配列取り出し", 2, u"から,を,列目,もの", FnTableSelect},
    {u"配列削除", 0, u"", FnTableDelete},
    {u"列取り出し", 0, u"", FnTakeColumn},
    {u"配列判別", 2, u"を,で,列目", FnTableTest},
    {u"配列挿入", 3, u"", FnTableInsert},
    {u"配列処理", 3, u"", FnTableMap},
    {u"区切れ", 0, u"", FnSplit},
    {u"繋げろ", 0, u"", FnJoin},
    {u"偏差値", 1, u"から,列目", FnStandardScores},
    {u"平均", 1, u"から,列目", FnMean},
    {u"合計", 1, u"から,列目", FnSum},
    {u"辞書", 0, u"", FnDictionaryEntry},
    {u"辞書一覧", 0, u"", FnDictionaryKeys},
    // dates and times
    {u"今", 0, u"", FnNow},
    {u"日付", 0, u"", FnDate},
    {u"時間", 0, u"", FnTime},
    {u"タイマー", 0, u"", FnTimer},
    {u"年", 0, u"", FnYear},
    {u"月", 0, u"", FnMonth},
    {u"日", 0, u"", FnDay},
    {u"時", 0, u"", FnHour},
    {u"分", 0, u"", FnMinute},
    {u"秒", 0, u"", FnSecond},
    {u"曜日", 0, u"", FnWeekday},
    {u"曜日名", 0, u"", FnWeekdayName},
    {u"日付計算", 3, u"", FnDateAdd},
    {u"日付差", 3, u"", FnDateDifference},
    {u"日付形式", 0, u"", FnDatePart},
    {u"時間形式", 0, u"", FnTimePart},
    {u"起動時間", 0, u"", FnUptime},
    // numbers
    {u"１０進数,１０進", 0, u"", FnDecimal},
    {u"１６進数,１６進", 0, u"", FnHexadecimal},
    {u"切り捨て", 1, u"から,位", FnTruncate},
    {u"小数切り捨て", 0, u"", FnFloor},
    {u"切り上げ", 0, u"", FnRoundUp},
    {u"四捨五入", 1, u"から,位", FnRound},
    {u"絶対値", 0, u"", FnAbsolute},
    {u"平方根,平方", 0, u"", FnSquareRoot},
    {u"べき乗", 0, u"", FnPower},
    {u"乱数", 1, u"まで", FnRandom},
    {u"ログ,ＬＯＧ", 0, u"", FnLog},
    {u"サイン,ＳＩＮ", 1, u"度", FnSine},
    {u"コサイン,ＣＯＳ", 1, u"度", FnCosine},
    {u"タンジェント,ＴＡＮ", 1, u"度", FnTangent},
    {u"アークタンジェント", 0, u"", FnArcTangent},
    {u"アークサイン", 0, u"", FnArcSine},
    {u"アークコサイン", 0, u"", FnArcCosine},
    {u"ラジアン", 1, u"度", FnRadian},
    {u"円周率", 0, u"", FnPi},
    {u"論理和,ＯＲ", 0, u"", FnOr},
    {u"論理積", 0, u"", FnAnd},
    {u"排他的論理和,ＸＯＲ", 0, u"", FnXor},
    {u"論理等価", 0, u"", FnEquivalence},
    {u"論理包含", 0, u"", FnImplication},
    {u"パーセント", 0, u"", FnPercent},
    {u"通貨形式", 0, u"", FnCurrency},
    {u"ＲＧＢ", 3, u"", FnRgb},
    {u"ＨＬＳ", 3, u"", FnHls},
    // files and system
    {u"ファイル検索", 0, u"", FnFindFile},
    {u"フォルダ検索", 0, u"", FnFindFolder},
    {u"ドライブ検索", 0, u"", FnFindDrive},
    {u"ファイルサイズ", 0, u"", FnFileSize},
    {u"ファイルサイズ形式", 0, u"", FnSizeText},
    {u"ファイル更新日", 0, u"", FnFileDate},
    {u"ファイル属性", 2, u"の,について", FnFileAttribute},
    {u"フォルダだけ", 0, u"", FnFolderPart},
    {u"名前だけ", 0, u"", FnNamePart},
    {u"拡張子だけ", 0, u"", FnExtensionPart},
    {u"ファイル一覧", 0, u"", FnFiles},
    {u"フォルダ一覧", 0, u"", FnFolders},
    {u"ドライブ一覧", 0, u"", FnDrives},
    {u"全ファイル一覧", 0, u"", FnAllFiles},
    {u"全フォルダ一覧", 0, u"", FnAllFolders},
    {u"相対パス", 0, u"", FnRelativePath},
    {u"作業フォルダ", 0, u"", FnCurrentFolder},
    {u"今の位置", 0, u"", FnScriptFolder},
    {u"アプリのファイル名", 0, u"", FnScriptName},
    {u"設定ファイル", 0, u"", FnSettingsFile},
    {u"ウィンドウズフォルダ", 0, u"", FnSystemRootFolder},
    {u"システムフォルダ", 0, u"", FnSystemFolder},
    {u"テンポラリフォルダ", 0, u"", FnTemporaryFolder},
    {u"デスクトップフォルダ,デスクトップ", 0, u"", FnDesktopFolder},
    {u"マイドキュメントフォルダ,マイドキュメント", 0, u"", FnDocumentsFolder},
    {u"お気に入りフォルダ", 0, u"", FnFavoritesFolder},
    {u"スタートメニューフォルダ", 0, u"", FnStartMenuFolder},
    {u"プログラムフォルダ", 0, u"", FnProgramsFolder},
    {u"スタートアップフォルダ", 0, u"", FnStartupFolder},
    {u"送るフォルダ", 0, u"", FnSendToFolder},
    {u"プログラムファイルフォルダ", 0, u"", FnProgramFilesFolder},
    {u"ウィンドウズのバージョン", 0, u"", FnSystemVersion},
    {u"ウィンドウズのビルド番号", 0, u"", FnSystemBuild},
    {u"ウィンドウズの種類", 0, u"", FnSystemKind},
    {u"環境変数", 0, u"", FnEnvironmentVariable},
    {u"起動中", 0, u"", FnIsRunning},
    {u"起動中プログラム一覧", 0, u"", FnWindowTitles},
    {u"フォント一覧", 0, u"", FnFonts},
    {u"キー状態", 0, u"", FnKeyState},
    {u"画面の幅", 0, u"", FnScreenWidth},
    {u"画面の高さ", 0, u"", FnScreenHeight},
    {u"マウスの横", 0, u"", FnEventX},
    {u"マウスの縦", 0, u"", FnEventY},
    {u"画面のマウスの横", 0, u"", FnScreenMouseX},
    {u"画面のマウスの縦", 0, u"", FnScreenMouseY},
    {u"押したボタン", 0, u"", FnPressedButton},
    {u"押したキー", 0, u"", FnPressedKey},
    {u"マウスカーソル", 0, u"", FnMousePointer},
    {u"アクティブウィンドウの名前", 0, u"", FnActiveWindowTitle},
    {u"開け", 0, u"", FnOpen},
    {u"ＥＵＣで開け", 0, u"", FnOpenEuc},
    {u"ＪＩＳで開け", 0, u"", FnOpenJis},
    {u"変換", 0, u"", FnConvertEncoding},
    {u"符号化", 0, u"", FnEncodeBase64},
    {u"簡易符号化", 0, u"", FnScramble},
    {u"復元", 0, u"", FnRestore},
    {u"ＵＲＬ形式", 1, u"から,で", FnUrlForm},
    {u"バイナリ配列", 0, u"", FnByteList},
    {u"ＨＴＴＰでダウンロード", 1, u"を,で,として", nullptr},
    {u"レジストリのサブキー一覧", 0, u"", FnRegistrySubkeys},
    {u"レジストリの値一覧", 0, u"", FnRegistryValues},
    {u"設定", 1, u"を,で", FnSetting},
    {u"貼り付け", 0, u"", FnPaste},
    {u"タイトル", 0, u"", FnProgramTitle},
    {u"実行形式", 0, u"", FnRunMode},
    {u"コマンドライン,起動時設定", 0, u"", FnCommandLine},
    {u"ドロップされたファイル", 0, u"", FnDroppedFiles},
    {u"選択されたファイル", 0, u"", FnSelectedFiles},
    {u"プログラム間メッセージ", 0, u"", FnReceivedMessage},
    {u"エラーメッセージ", 0, u"", FnErrorMessage},
    {u"エラー番号", 0, u"", FnErrorNumber},
    {u"エラーファイル", 0, u"", FnErrorFile},
    {u"エラー行", 0, u"", FnErrorLine},
    {u"Velmのバージョン", 0, u"", FnVelmVersion},
    {u"Velmの最終更新日", 0, u"", FnVelmDate},
    // questions
    {u"応答,それ", 0, u"", FnAnswer},
    {u"質問", 2, u"を,で,として", FnAsk},
    {u"入力", 1, u"を,で,として", FnAskText},
    // turtle
    {u"色", 0, u"", FnPixelColor},
    {u"場所", 0, u"", FnSurfaceName},
    {u"アイコンの横,カメの横", 0, u"", FnTurtleX},
    {u"アイコンの縦,カメの縦", 0, u"", FnTurtleY},
    {u"アイコンの色,カメの色", 0, u"", FnTurtleColor},
};
static_assert(std::size(kFunctionRows) == 176);

}  // namespace

void BuildFunctionTable() {
    for (const FunctionRow& row : kFunctionRows) {
        xxCmdData::Pointer handler = {nullptr};
        handler.function = row.handler;
        RegisterEntries(Functions, handler, row.names, row.argumentCount, row.particles);
    }
}

}  // namespace velm
