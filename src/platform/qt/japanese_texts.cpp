// The toolkit's own words in Japanese.
#include "platform/qt/japanese_texts.h"

#include <QCoreApplication>
#include <QTranslator>
#include <array>
#include <string_view>

namespace velm {

namespace {

struct OwnText {
    std::string_view english;
    const char16_t* japanese;
};

// The same word means the same in each of the toolkit's classes, so the class doesn't matter.
constexpr std::array kTexts = std::to_array<OwnText>({
    {"&OK", u"OK"},
    {"OK", u"OK"},
    {"&Open", u"開く(&O)"},
    {"Open", u"開く"},
    {"&Save", u"保存(&S)"},
    {"Save", u"保存"},
    {"&Cancel", u"キャンセル"},
    {"Cancel", u"キャンセル"},
    {"&Close", u"閉じる(&C)"},
    {"Close", u"閉じる"},
    {"&Yes", u"はい(&Y)"},
    {"&No", u"いいえ(&N)"},
    {"&Undo", u"元に戻す(&U)"},
    {"&Redo", u"やり直す(&R)"},
    {"Cu&t", u"切り取り(&T)"},
    {"&Copy", u"コピー(&C)"},
    {"&Paste", u"貼り付け(&P)"},
    {"Delete", u"削除"},
    {"&Delete", u"削除(&D)"},
    {"Select All", u"すべて選択"},
    {"&Select All", u"すべて選択(&A)"},
    {"Copy &Link Location", u"リンクの場所をコピー(&L)"},
    {"Look in:", u"場所:"},
    {"Back", u"戻る"},
    {"Go back", u"戻る"},
    {"Forward", u"進む"},
    {"Go forward", u"進む"},
    {"Parent Directory", u"上のフォルダ"},
    {"Go to the parent directory", u"上のフォルダへ"},
    {"Create New Folder", u"新しいフォルダ"},
    {"Create a New Folder", u"新しいフォルダを作る"},
    {"List View", u"一覧"},
    {"Change to list view mode", u"一覧で表示する"},
    {"Detail View", u"詳細"},
    {"Change to detail view mode", u"詳細を表示する"},
    {"Sidebar", u"よく使う場所"},
    {"List of places and bookmarks", u"よく使う場所の一覧"},
    {"Files", u"ファイル"},
    {"Files of type:", u"ファイルの種類:"},
    {"File &name:", u"ファイル名(&N):"},
    {"Directory:", u"フォルダ:"},
    {"&Choose", u"選択(&C)"},
    {"&Rename", u"名前の変更(&R)"},
    {"Show &hidden files", u"隠しファイルを表示(&H)"},
    {"&New Folder", u"新しいフォルダ(&N)"},
    {"New Folder", u"新しいフォルダ"},
    {"Find Directory", u"フォルダを探す"},
    {"All Files (*)", u"すべてのファイル (*)"},
    {"Recent Places", u"最近使った場所"},
    {"Remove", u"取り除く"},
    {"My Computer", u"コンピュータ"},
    {"Computer", u"コンピュータ"},
    {"Drive", u"ドライブ"},
    {"File", u"ファイル"},
    {"%1 File", u"%1ファイル"},
    {"Folder", u"フォルダ"},
    {"Shortcut", u"ショートカット"},
    {"Name", u"名前"},
    {"Size", u"サイズ"},
    {"Type", u"種類"},
    {"Kind", u"種類"},
    {"Date Modified", u"更新日時"},
    {"Warning", u"警告"},
    {"%1\nDirectory not found.\nPlease verify the correct directory name was given.",
     u"%1\nフォルダが見つかりません。\nフォルダ名が正しいか確認してください。"},
    {"%1\nFile not found.\nPlease verify the correct file name was given.",
     u"%1\nファイルが見つかりません。\nファイル名が正しいか確認してください。"},
    {"%1 already exists.\nDo you want to replace it?", u"%1は、すでにあります。\n置き換えますか？"},
    {"'%1' is write protected.\nDo you want to delete it anyway?",
     u"「%1」は書き込みが禁じられています。\nそれでも削除しますか？"},
    {"Are you sure you want to delete '%1'?", u"「%1」を削除してもよいですか？"},
    {"Could not delete directory.", u"フォルダを削除できませんでした。"},
    {"Invalid filename", u"ファイル名が正しくありません"},
    {"<b>The name \"%1\" cannot be used.</b><p>Try using another name, with fewer characters or no "
     "punctuation marks.",
     u"<b>「%1」という名前は使えません。</b><p>短い名前や、記号のない名前にしてください。"},
});

class JapaneseTexts : public QTranslator {
  public:
    using QTranslator::QTranslator;

    QString translate(const char*, const char* source, const char*, int) const override {
        for (const OwnText& text : kTexts) {
            if (text.english == source) return QString::fromUtf16(text.japanese);
        }
        return {};
    }
    bool isEmpty() const override { return false; }
};

}  // namespace

void InstallJapaneseTexts(QCoreApplication& application) {
    QCoreApplication::installTranslator(new JapaneseTexts(&application));
}

}  // namespace velm
