// The input box, the file dialog, and the choice of a script at a start without a command line.
#include <QFileDialog>
#include <QLineEdit>
#include <QPlainTextEdit>

#include "faces/window/choose_script.h"
#include "gui/modal.h"
#include "platform/qt/qt_dialogs.h"
#include "platform/qt/qt_text.h"

namespace velm {
namespace {

using Answer = std::optional<std::u16string>;

Answer AskLine(const std::u16string& preset, const std::function<void(QDialog&, QLineEdit&)>& act) {
    QtDialogs dialogs;
    const auto ask = [&] { return dialogs.AskText(u"名前は？\r\n二行目", preset, u"題"); };
    return WithBox(ask, [&](QDialog& box) { act(box, *box.findChild<QLineEdit*>()); });
}

TEST(InputBox, ShowsPromptPresetAndTitle) {
    AskLine(u"花子", [](QDialog& box, QLineEdit& line) {
        EXPECT_EQ(box.windowTitle(), "題");
        EXPECT_EQ(box.findChild<QPlainTextEdit*>()->toPlainText(), "名前は？\n二行目");
        EXPECT_EQ(line.text(), "花子");
        EXPECT_EQ(line.selectedText(), "花子");
        EXPECT_EQ(line.accessibleName(), "名前は？ 二行目");
        EXPECT_EQ(LabelsOf(box), (QStringList{"OK", "キャンセル"}));
        EXPECT_EQ(box.focusWidget(), &line);
        Press(box, "OK");
    });
}

TEST(InputBox, AnswersWhatWasTypedOverThePreset) {
    const auto type = [](QDialog& box, QLineEdit& line) {
        QTest::keyClicks(&line, "abc");
        Press(box, "OK");
    };
    EXPECT_EQ(AskLine(u"花子", type), u"abc");
    EXPECT_EQ(AskLine(u"", type), u"abc");
}

TEST(InputBox, EnterTakesThePreset) {
    const auto enter = [](QDialog&, QLineEdit& line) { QTest::keyClick(&line, Qt::Key_Return); };
    EXPECT_EQ(AskLine(u"花子", enter), u"花子");
    EXPECT_EQ(AskLine(u"", enter), u"");
}

TEST(InputBox, CancelEscapeAndClosingAnswerNothing) {
    const auto cancel = [](QDialog& box, QLineEdit&) { Press(box, "キャンセル"); };
    const auto escape = [](QDialog&, QLineEdit& line) { QTest::keyClick(&line, Qt::Key_Escape); };
    const auto close = [](QDialog& box, QLineEdit&) { box.close(); };
    EXPECT_EQ(AskLine(u"花子", cancel), std::nullopt);
    EXPECT_EQ(AskLine(u"花子", escape), std::nullopt);
    EXPECT_EQ(AskLine(u"花子", close), std::nullopt);
}

TEST(InputBox, ALongPresetIsNotCutAndLineEndsAreBlanks) {
    const auto ok = [](QDialog& box, QLineEdit&) { Press(box, "OK"); };
    const std::u16string longText(40'000, u'あ');
    EXPECT_EQ(AskLine(longText, ok), longText);
    EXPECT_EQ(AskLine(u"一\r\n二\r三\n四", ok), u"一 二 三 四");
}

TEST(QtText, KeepsEveryUnit) {
    std::u16string units = u"あ𠮷";
    units += char16_t{0xD842};
    units += char16_t{0};
    units += u'x';
    EXPECT_EQ(FromQString(ToQString(units)), units);
    EXPECT_EQ(ToLines(u"a\r\nb\rc\nd"), "a\nb\nc\nd");
}

class FileDialog : public testing::Test {
  protected:
    void SetUp() override { QApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }

    static FileChoice Choose(const std::function<void(QFileDialog&)>& act) {
        return WithBox([] { return AskScriptFile(); },
                       [&](QDialog& box) { act(*qobject_cast<QFileDialog*>(&box)); });
    }
};

TEST_F(FileDialog, HasItsTitleAndKindInJapanese) {
    Choose([](QFileDialog& box) {
        EXPECT_EQ(box.windowTitle(), "Velmrunプログラムを指定して実行");
        EXPECT_EQ(box.nameFilters(), QStringList{"Velmrunファイル (*.vlm)"});
        EXPECT_EQ(box.labelText(QFileDialog::LookIn), "場所:");
        EXPECT_EQ(box.labelText(QFileDialog::Accept), "開く(&O)");
        EXPECT_EQ(box.labelText(QFileDialog::Reject), "キャンセル");
        box.reject();
    });
}

TEST_F(FileDialog, ATypedPathIsChosen) {
    const QString path = QCoreApplication::applicationFilePath();
    const FileChoice choice = Choose([&](QFileDialog& box) {
        auto* line = box.findChild<QLineEdit*>("fileNameEdit");
        line->setText(path);
        QTest::keyClick(line, Qt::Key_Return);
    });
    EXPECT_EQ(choice.end, FileChoice::End::kChosen);
    EXPECT_EQ(choice.nativePath, path.toStdString());
}

TEST_F(FileDialog, CancelIsTold) {
    const FileChoice choice =
        Choose([](QFileDialog& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    EXPECT_EQ(choice.end, FileChoice::End::kCancelled);
    EXPECT_EQ(choice.nativePath, "");
}

// A person in place of the prompt.
class Prompt : public QtDialogs {
  public:
    explicit Prompt(Answer answer) : answer_(std::move(answer)) {}

    Answer AskText(const std::u16string& prompt, const std::u16string& preset,
                   const std::u16string&) override {
        asked += prompt + preset;
        return answer_;
    }

    std::u16string asked;

  private:
    Answer answer_;
};

FileChoice Ended(FileChoice::End end, const std::string& path = "") { return {end, path}; }

TEST(ChooseScript, TakesTheDialogsPathInTheFormOfScripts) {
    Prompt prompt(u"x");
    const auto chosen = [] { return Ended(FileChoice::End::kChosen, "/home/a b/例.vlm"); };
    EXPECT_EQ(ChooseScript(chosen, prompt), u"C:\\home\\a b\\例.vlm");
    EXPECT_EQ(prompt.asked, u"");
}

TEST(ChooseScript, ACancelledDialogEndsWithoutAPrompt) {
    Prompt prompt(u"x");
    EXPECT_EQ(ChooseScript([] { return Ended(FileChoice::End::kCancelled); }, prompt),
              std::nullopt);
    EXPECT_EQ(prompt.asked, u"");
}

TEST(ChooseScript, WithoutADialogThePromptAsks) {
    const auto failed = [] { return Ended(FileChoice::End::kFailed); };
    Prompt prompt(u"a.vlm");
    EXPECT_EQ(ChooseScript(failed, prompt), u"a.vlm");
    EXPECT_EQ(prompt.asked, u"Velmrunプログラムファイル名を入力してください。");
    Prompt cancelled(std::nullopt);
    EXPECT_EQ(ChooseScript(failed, cancelled), u"");
}

}  // namespace
}  // namespace velm
