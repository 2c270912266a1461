// The dialogs object: its members, and the dialogs as a person answers them.
#include "platform/qt/qt_dialogs_object.h"

#include <gtest/gtest.h>

#include <QColorDialog>
#include <QDir>
#include <QFileDialog>
#include <QFontDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QRegularExpression>
#include <QTemporaryDir>

#include "data/failure.h"
#include "gui/modal.h"
#include "platform/files.h"
#include "platform/qt/file_choice.h"
#include "platform/qt/qt_printer.h"

namespace velm {

namespace {

class DialogsMembers : public testing::Test {
  protected:
    QTemporaryDir folder;
    std::unique_ptr<MemberSurface> dialogs = MakeQtDialogs();

    void SetUp() override {
        for (const char* name : {"one.txt", "two.TXT", "three.log", "a,b.txt"}) {
            QFile file(folder.filePath(QString::fromLatin1(name)));
            ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        }
    }

    std::u16string PathOf(const QString& name) const {
        return ScriptPath(folder.filePath(name).toStdString());
    }
    void Set(std::u16string_view member, const MemberValue& value) {
        dialogs->Set(member, value, {});
    }
    std::u16string Text(std::u16string_view member) {
        return MemberToText(dialogs->Get(member, {}));
    }
    double Number(std::u16string_view member) { return MemberToNumber(dialogs->Get(member, {})); }
    bool IsCancelled() { return MemberToBool(dialogs->Get(u"Cancel", {})); }

    void Show(std::u16string_view call, const std::function<void(QDialog&)>& act) {
        WithBox([&] { return dialogs->Call(call, {}); }, act);
    }
    // Types a name and presses the default button's key.
    static void Choose(QDialog& box, const QString& name) {
        auto* line = box.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        ASSERT_NE(line, nullptr);
        line->setText(name);
        static_cast<QFileDialog&>(box).setResult(0);
        QMetaObject::invokeMethod(&box, "accept");
    }
};

void Reject(QDialog& box) { box.reject(); }

// The words of a dialog that a Japanese user wouldn't expect: three Latin letters or more in a row.
QStringList ForeignWords(QDialog& box) {
    static const QRegularExpression word(QStringLiteral("[A-Za-z]{3,}"));
    QStringList texts;
    for (const QLabel* label : box.findChildren<QLabel*>()) texts += label->text();
    for (const QAbstractButton* button : box.findChildren<QAbstractButton*>())
        if (button->isVisible()) texts += button->text();
    for (const QGroupBox* group : box.findChildren<QGroupBox*>()) texts += group->title();
    static const QStringList known = {QStringLiteral("HTML"), QStringLiteral("PDF"),
                                      QStringLiteral("CUPS")};
    QStringList foreign;
    for (const QString& text : texts) {
        const QString found = word.match(text).captured();
        const bool isPath = text.startsWith(u'/');
        if (!found.isEmpty() && !isPath && !known.contains(found)) foreign += text;
    }
    return foreign;
}

std::string Joined(const QStringList& texts) { return texts.join(u'|').toStdString(); }

TEST_F(DialogsMembers, ReadBackWhatWasSet) {
    Set(u"DialogTitle", u"題");
    Set(u"filter", u"テキスト|*.txt");
    Set(u"Flags", 512.0);
    Set(u"Color", double{0x112233});
    Set(u"FontSize", 10.5);
    Set(u"FontStrikethrough", true);
    EXPECT_EQ(Text(u"DIALOGTITLE"), u"題");
    EXPECT_EQ(Text(u"Filter"), u"テキスト|*.txt");
    EXPECT_EQ(Number(u"Flags"), 512);
    EXPECT_EQ(Number(u"Color"), 0x112233);
    EXPECT_EQ(Number(u"FontSize"), 10.5);
    EXPECT_EQ(MemberToBool(dialogs->Get(u"FontStrikethrough", {})), true);
    EXPECT_FALSE(IsCancelled());
    EXPECT_THROW(Set(u"Cancel", true), Failure);
    EXPECT_THROW(dialogs->Call(u"ShowNothing", {}), Failure);
    EXPECT_THROW(Set(u"FontSize", 0.0), Failure);
}

TEST_F(DialogsMembers, CustomColoursAreAList) {
    Set(u"CustColors", u"255,65280");
    EXPECT_TRUE(Text(u"CustColors").starts_with(u"255,65280,16777215,"));
    Set(u"CustColors", u"");
    EXPECT_TRUE(Text(u"CustColors").starts_with(u"16777215,"));
}

TEST_F(DialogsMembers, FiltersOfTheToolkit) {
    EXPECT_EQ(NameFilters(u"テキスト|*.txt;*.log|全部|*.*"),
              (QStringList{QStringLiteral("テキスト (*.txt *.log)"), QStringLiteral("全部 (*)")}));
    EXPECT_EQ(NameFilters(u"表(*.csv)|*.csv"), QStringList{QStringLiteral("表(*.csv) (*.csv)")});
    EXPECT_EQ(NameFilters(u"名|*.表"), QStringList{QStringLiteral("名 (*.?)")});
    EXPECT_EQ(NameFilters(u"名"), QStringList{QStringLiteral("名 (*)")});
    EXPECT_TRUE(NameFilters(u"").isEmpty());
}

TEST_F(DialogsMembers, OpenGivesTheScriptPath) {
    Set(u"FileName", PathOf(QString()));
    Set(u"Filter", u"テキスト|*.txt");
    Show(u"ShowOpen", [this](QDialog& box) {
        EXPECT_EQ(box.windowTitle(), QStringLiteral("ファイルを開く"));
        auto& dialog = dynamic_cast<QFileDialog&>(box);
        EXPECT_EQ(dialog.directory().canonicalPath(), QDir(folder.path()).canonicalPath());
        EXPECT_EQ(Joined(ForeignWords(box)), "");
        Choose(box, QStringLiteral("one.txt"));
    });
    EXPECT_EQ(Text(u"FileName"), PathOf(QStringLiteral("one.txt")));
    EXPECT_EQ(Text(u"FolderName"),
              PathOf(QString()) + (PathOf(QString()).ends_with(u'\\') ? u"" : u"\\"));
    EXPECT_FALSE(IsCancelled());
}

TEST_F(DialogsMembers, CancelLeavesTheMembers) {
    Set(u"FileName", PathOf(QStringLiteral("one.txt")));
    for (const auto call : {u"ShowOpen", u"ShowSave", u"ShowDir"}) {
        Show(call, Reject);
        EXPECT_TRUE(IsCancelled());
        EXPECT_EQ(Text(u"FileName"), PathOf(QStringLiteral("one.txt")));
    }
}

TEST_F(DialogsMembers, SeveralFilesAreAList) {
    Set(u"FileName", PathOf(QString()));
    Set(u"Flags", 512.0);
    Show(u"ShowOpen", [](QDialog& box) { Choose(box, QStringLiteral("\"one.txt\" \"a,b.txt\"")); });
    EXPECT_EQ(Text(u"FileName"), PathOf(QStringLiteral("one.txt")) + u"," +
                                     PathOf(QStringLiteral("a")) + u"{**}b.txt");
}

TEST_F(DialogsMembers, SaveTakesANewName) {
    Set(u"FileName", PathOf(QStringLiteral("new.txt")));
    Show(u"ShowSave", [](QDialog& box) {
        EXPECT_EQ(box.windowTitle(), QStringLiteral("名前を付けて保存"));
        EXPECT_EQ(box.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->text(),
                  QStringLiteral("new.txt"));
        EXPECT_TRUE(static_cast<QFileDialog&>(box).testOption(QFileDialog::DontConfirmOverwrite));
        Choose(box, QStringLiteral("other.txt"));
    });
    EXPECT_EQ(Text(u"FileName"), PathOf(QStringLiteral("other.txt")));
    Set(u"Flags", 2.0);
    Show(u"ShowSave", [](QDialog& box) {
        EXPECT_FALSE(static_cast<QFileDialog&>(box).testOption(QFileDialog::DontConfirmOverwrite));
        box.reject();
    });
}

TEST_F(DialogsMembers, OpenMayNameAMissingFileUnlessForbidden) {
    Set(u"FileName", PathOf(QString()));
    Show(u"ShowOpen", [](QDialog& box) { Choose(box, QStringLiteral("missing.txt")); });
    EXPECT_EQ(Text(u"FileName"), PathOf(QStringLiteral("missing.txt")));
    Set(u"FileName", PathOf(QString()));
    Set(u"Flags", 4096.0);
    Show(u"ShowOpen", [](QDialog& box) {
        EXPECT_EQ(static_cast<QFileDialog&>(box).fileMode(), QFileDialog::ExistingFile);
        box.reject();
    });
}

TEST_F(DialogsMembers, FolderIsChosen) {
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("sub")));
    Set(u"FileName", PathOf(QStringLiteral("sub")));
    Show(u"ShowDir", [](QDialog& box) {
        EXPECT_EQ(box.windowTitle(), QStringLiteral("フォルダの選択"));
        EXPECT_EQ(Joined(ForeignWords(box)), "");
        QMetaObject::invokeMethod(&box, "accept");
    });
    EXPECT_FALSE(IsCancelled());
    EXPECT_EQ(Text(u"FileName"), PathOf(QStringLiteral("sub")));
    EXPECT_EQ(Text(u"FolderName"), PathOf(QStringLiteral("sub")) + u"\\");
}

TEST_F(DialogsMembers, ColourStartsWithTheGivenOne) {
    Set(u"Color", 255.0);
    Set(u"Flags", 1.0);
    Set(u"DialogTitle", u"色を選ぶ");
    Show(u"ShowColor", [](QDialog& box) {
        auto& dialog = dynamic_cast<QColorDialog&>(box);
        EXPECT_EQ(box.windowTitle(), QStringLiteral("色を選ぶ"));
        EXPECT_EQ(dialog.currentColor(), QColor(255, 0, 0));
        EXPECT_EQ(Joined(ForeignWords(box)), "");
        dialog.setCurrentColor(QColor(1, 2, 3));
        box.accept();
    });
    EXPECT_EQ(Number(u"Color"), 0x030201);
    Show(u"ShowColor", Reject);
    EXPECT_TRUE(IsCancelled());
    EXPECT_EQ(Number(u"Color"), 0x030201);
}

TEST_F(DialogsMembers, FontStartsWithTheGivenOne) {
    Set(u"FontSize", 14.0);
    Set(u"FontBold", true);
    Set(u"Flags", 256.0);
    Show(u"ShowFont", [](QDialog& box) {
        auto& dialog = dynamic_cast<QFontDialog&>(box);
        EXPECT_EQ(dialog.currentFont().pointSizeF(), 14);
        EXPECT_EQ(Joined(ForeignWords(box)), "");
        QFont font = dialog.currentFont();
        font.setPointSizeF(20);
        font.setUnderline(true);
        dialog.setCurrentFont(font);
        box.accept();
    });
    EXPECT_EQ(Number(u"FontSize"), 20);
    EXPECT_TRUE(MemberToBool(dialogs->Get(u"FontUnderline", {})));
}

TEST_F(DialogsMembers, PrinterDialogsSpeakJapanese) {
    for (const auto call : {u"ShowPrinter", u"ShowPrintPage"}) {
        Show(call, [](QDialog& box) {
            EXPECT_EQ(Joined(ForeignWords(box)), "");
            box.reject();
        });
        EXPECT_TRUE(IsCancelled());
    }
    Show(u"ShowPrintPage", [](QDialog& box) {
        for (QRadioButton* button : box.findChildren<QRadioButton*>()) {
            if (button->text() == QStringLiteral("横")) button->click();
        }
        box.accept();
    });
    EXPECT_FALSE(IsCancelled());
    const auto printer = MakeQtPrinter();
    EXPECT_EQ(MemberToNumber(printer->Get(u"Orientation", {})), 2);
    printer->Set(u"Orientation", 1.0, {});
    Set(u"PrintMargins", u"1500,1500,1500,1500");
    EXPECT_EQ(Text(u"PrintMargins"), u"1500,1500,1500,1500");
}

}  // namespace

}  // namespace velm
