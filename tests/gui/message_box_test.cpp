// The message box: its buttons, icons, keys and texts.
#include <QAbstractButton>
#include <QClipboard>
#include <QElapsedTimer>
#include <QLabel>
#include <QPlainTextEdit>
#include <QScreen>
#include <QScrollBar>

#include "gui/modal.h"
#include "platform/qt/box_icon.h"
#include "platform/qt/message_box.h"
#include "platform/qt/qt_dialogs.h"

namespace velm {
namespace {

constexpr int kIgnored = -1;  // Esc and the close button do nothing

struct ButtonSet {
    int style;
    QStringList words;
    std::vector<int> answers;
    int closing;
};

const std::vector<ButtonSet>& ButtonSets() {
    static const std::vector<ButtonSet> sets = {
        {0, {"OK"}, {1}, 1},
        {1, {"OK", "キャンセル"}, {1, 2}, 2},
        {2, {"中止", "再試行", "無視"}, {3, 4, 5}, kIgnored},
        {3, {"はい", "いいえ", "キャンセル"}, {6, 7, 2}, 2},
        {4, {"はい", "いいえ"}, {6, 7}, kIgnored},
        {5, {"再試行", "キャンセル"}, {4, 2}, 2},
    };
    return sets;
}

int AskBox(int style, const std::function<void(QDialog&)>& act,
           const std::u16string& text = u"文") {
    QtDialogs dialogs;
    return WithBox([&] { return dialogs.Ask(text, style, u"題"); }, act);
}

TEST(MessageBox, EachSetHasItsButtonsInOrder) {
    for (const ButtonSet& set : ButtonSets()) {
        AskBox(set.style, [&](QDialog& box) {
            EXPECT_EQ(LabelsOf(box), set.words) << set.style;
            Press(box, set.words.front());
        });
    }
}

TEST(MessageBox, EachButtonAnswersItsNumber) {
    for (const ButtonSet& set : ButtonSets()) {
        for (qsizetype i = 0; i < set.words.size(); ++i) {
            const int answer = AskBox(set.style, [&](QDialog& box) { Press(box, set.words[i]); });
            EXPECT_EQ(answer, set.answers[static_cast<std::size_t>(i)]) << set.style;
        }
    }
}

TEST(MessageBox, EnterPressesTheFirstButton) {
    for (const ButtonSet& set : ButtonSets()) {
        const int answer = AskBox(
            set.style, [](QDialog& box) { QTest::keyClick(box.focusWidget(), Qt::Key_Return); });
        EXPECT_EQ(answer, set.answers.front()) << set.style;
    }
}

TEST(MessageBox, ArrowAndEnterPressTheNextButton) {
    const int answer = AskBox(3, [](QDialog& box) {
        QTest::keyClick(box.focusWidget(), Qt::Key_Right);
        QTest::keyClick(box.focusWidget(), Qt::Key_Return);
    });
    EXPECT_EQ(answer, 7);
}

// A box without キャンセル stays open; it then gets its last button, so that the answer tells.
void ExpectClosing(const ButtonSet& set, const std::function<void(QDialog&)>& close) {
    const int answer = AskBox(set.style, [&](QDialog& box) {
        close(box);
        EXPECT_EQ(box.isVisible(), set.closing == kIgnored) << set.style;
        if (box.isVisible()) Press(box, set.words.back());
    });
    EXPECT_EQ(answer, set.closing == kIgnored ? set.answers.back() : set.closing) << set.style;
}

TEST(MessageBox, EscapeIsCancelWhereThereIsOne) {
    for (const ButtonSet& set : ButtonSets()) {
        ExpectClosing(set, [](QDialog& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    }
}

TEST(MessageBox, ClosingIsCancelWhereThereIsOne) {
    for (const ButtonSet& set : ButtonSets()) {
        ExpectClosing(set, [](QDialog& box) { box.close(); });
        AskBox(set.style, [&](QDialog& box) {
            EXPECT_EQ(box.windowFlags().testFlag(Qt::WindowCloseButtonHint),
                      set.closing != kIgnored);
            Press(box, set.words.front());
        });
    }
}

TEST(MessageBox, LettersPressTheirButtons) {
    const std::vector<std::tuple<int, Qt::Key, int>> letters = {
        {2, Qt::Key_A, 3}, {2, Qt::Key_R, 4}, {2, Qt::Key_I, 5},
        {4, Qt::Key_Y, 6}, {4, Qt::Key_N, 7}, {5, Qt::Key_R, 4},
    };
    for (const auto& [style, key, expected] : letters) {
        EXPECT_EQ(AskBox(style, [key = key](QDialog& box) { QTest::keyClick(&box, key); }),
                  expected);
    }
    const int answer = AskBox(4, [](QDialog& box) {
        QTest::keyClick(&box, Qt::Key_A);
        EXPECT_TRUE(box.isVisible()) << "a letter that no button has";
        QTest::keyClick(&box, Qt::Key_N);
    });
    EXPECT_EQ(answer, 7);
}

TEST(MessageBox, UnknownBitsAreIgnored) {
    EXPECT_EQ(ButtonsOf(6).size(), 1U);
    EXPECT_EQ(ButtonsOf(7).size(), 1U);
    EXPECT_EQ(ButtonsOf(4 + 32 + 256 + 4096).size(), 2U);
    EXPECT_EQ(ButtonsOf(-1).size(), 1U);
}

TEST(MessageBox, EachIconIsShownWithItsName) {
    const std::vector<std::pair<int, QString>> icons = {{16, "禁止"}, {32, "質問"}, {48, "警告"},
                                                        {64, "情報"}, {0, ""},      {80, ""}};
    for (const auto& [style, name] : icons) {
        AskBox(style, [&, name = name](QDialog& box) {
            const auto* label = box.findChild<QLabel*>();
            EXPECT_EQ(label != nullptr ? label->accessibleName() : QString(), name);
            Press(box, "OK");
        });
    }
}

TEST(BoxIcon, IsDrawnForTheResolution) {
    EXPECT_EQ(BoxIcon(16, 32, 1).size(), QSize(32, 32));
    const QPixmap fine = BoxIcon(64, 32, 2);
    EXPECT_EQ(fine.size(), QSize(64, 64));
    EXPECT_EQ(fine.deviceIndependentSize(), QSizeF(32, 32));
    EXPECT_TRUE(BoxIcon(0, 32, 1).isNull());
}

TEST(BoxIcon, HasItsColour) {
    const auto at = [](int icon) { return BoxIcon(icon, 32, 1).toImage().pixelColor(4, 16); };
    EXPECT_GT(at(16).red(), at(16).blue());
    EXPECT_GT(at(32).blue(), at(32).red());
    EXPECT_GT(at(64).blue(), at(64).red());
    const QColor warning = BoxIcon(48, 32, 1).toImage().pixelColor(9, 24);
    EXPECT_GT(warning.green(), warning.blue());
    EXPECT_GT(warning.red(), warning.blue());
    for (const int icon : {16, 32, 48, 64}) {
        EXPECT_EQ(BoxIcon(icon, 32, 1).toImage().pixelColor(0, 0).alpha(), 0) << icon;
    }
}

TEST(MessageBox, TitleAndTextAreShown) {
    AskBox(
        0,
        [](QDialog& box) {
            EXPECT_EQ(box.windowTitle(), "題");
            EXPECT_EQ(box.accessibleName(), "題");
            auto* text = box.findChild<QPlainTextEdit*>();
            EXPECT_EQ(text->toPlainText(), "一行目\n二行目\n<b>&amp;");
            EXPECT_FALSE(text->accessibleName().isEmpty());
            EXPECT_TRUE(text->isReadOnly());
            Press(box, "OK");
        },
        u"一行目\r\n二行目\r\n<b>&amp;");
}

TEST(MessageBox, AnEmptyTextIsAnEmptyBox) {
    EXPECT_EQ(AskBox(
                  0, [](QDialog& box) { Press(box, "OK"); }, u""),
              1);
}

TEST(MessageBox, CopyTakesTheTextOrWhatIsSelected) {
    AskBox(
        0,
        [](QDialog& box) {
            QTest::keyClick(box.focusWidget(), Qt::Key_C, Qt::ControlModifier);
            EXPECT_EQ(QApplication::clipboard()->text(), "一行目\n二行目");
            auto* text = box.findChild<QPlainTextEdit*>();
            QTextCursor cursor = text->textCursor();
            cursor.setPosition(1);
            cursor.setPosition(3, QTextCursor::KeepAnchor);
            text->setTextCursor(cursor);
            QTest::keyClick(box.focusWidget(), Qt::Key_C, Qt::ControlModifier);
            EXPECT_EQ(QApplication::clipboard()->text(), "行目");
            EXPECT_TRUE(box.isVisible());
            Press(box, "OK");
        },
        u"一行目\r\n二行目");
}

TEST(MessageBox, AShortTextIsWholeWithoutScrollBars) {
    AskBox(
        0,
        [](QDialog& box) {
            auto* text = box.findChild<QPlainTextEdit*>();
            EXPECT_FALSE(text->verticalScrollBar()->isVisible());
            EXPECT_EQ(text->verticalScrollBar()->maximum(), 0) << "all lines are in view";
            EXPECT_LT(box.height(), 300);
            Press(box, "OK");
        },
        std::u16string(300, u'あ'));
}

// A text far beyond the screen: the box stays on it, comes up at once, and scrolls.
void ExpectUsable(const std::u16string& text) {
    QElapsedTimer time;
    time.start();
    AskBox(
        0,
        [&](QDialog& box) {
            EXPECT_LT(time.elapsed(), 5000);
            const QSize room = box.screen()->availableSize();
            EXPECT_LE(box.width(), room.width());
            EXPECT_LE(box.height(), room.height());
            auto* bar = box.findChild<QPlainTextEdit*>()->verticalScrollBar();
            EXPECT_TRUE(bar->isVisible());
            QTest::keyClick(box.focusWidget(), Qt::Key_PageDown);
            EXPECT_GT(bar->value(), 0);
            QTest::keyClick(box.focusWidget(), Qt::Key_End);
            EXPECT_EQ(bar->value(), bar->maximum());
            QTest::keyClick(box.focusWidget(), Qt::Key_PageUp);
            EXPECT_LT(bar->value(), bar->maximum());
            QTest::keyClick(box.focusWidget(), Qt::Key_Home);
            EXPECT_EQ(bar->value(), 0);
            QTest::keyClick(box.focusWidget(), Qt::Key_Return);
        },
        text);
}

TEST(MessageBox, AHundredThousandLinesAreUsable) {
    std::u16string text;
    for (int i = 0; i < 100'000; ++i) text += u"行の文\r\n";
    ExpectUsable(text);
}

TEST(MessageBox, ALineOfAMillionCharactersIsUsable) {
    ExpectUsable(std::u16string(1'000'000, u'あ'));
}

TEST(MessageBox, AScreenfulOfLinesIsUsable) {
    std::u16string text;
    for (int i = 0; i < 100; ++i) text += u"a\r\n";
    ExpectUsable(text);
}

TEST(MessageBox, AHugeLineIsCopiedAsItWas) {
    // Surrogate pairs at odd places, so that some cut falls between the halves of one.
    std::u16string text = u"x";
    for (int i = 0; i < 30'000; ++i) text += u"𠮷";
    AskBox(
        0,
        [&](QDialog& box) {
            auto* view = box.findChild<QPlainTextEdit*>();
            EXPECT_GT(view->document()->blockCount(), 1);
            QString shown = view->toPlainText();
            EXPECT_EQ(shown.remove('\n').toStdU16String(), text);
            for (const QString& part : view->toPlainText().split('\n')) {
                EXPECT_FALSE(part.back().isHighSurrogate());
            }
            QTest::keyClick(box.focusWidget(), Qt::Key_C, Qt::ControlModifier);
            EXPECT_EQ(QApplication::clipboard()->text().toStdU16String(), text);
            Press(box, "OK");
        },
        text);
}

TEST(MessageBox, ATitleOfAnyLengthIsOneLine) {
    QtDialogs dialogs;
    const std::u16string title = u"一\r\n二" + std::u16string(2'000'000, u'x');
    const auto ask = [&] { return dialogs.Ask(u"文", 0, title); };
    WithBox(ask, [](QDialog& box) {
        EXPECT_TRUE(box.windowTitle().startsWith("一 二x"));
        EXPECT_LT(box.windowTitle().size(), 2000);
        EXPECT_LE(box.width(), box.screen()->availableSize().width());
        Press(box, "OK");
    });
}

TEST(QtDialogs, ReportAndShowTextAreBoxesToo) {
    QtDialogs dialogs;
    const auto report = [&] { return dialogs.Report(u"失敗", 17, u"題"); };
    EXPECT_EQ(WithBox(report, [](QDialog& box) { Press(box, "キャンセル"); }), 2);
    const auto show = [&] {
        dialogs.ShowText(u"文", 48, u"題");
        return 0;
    };
    WithBox(show, [](QDialog& box) {
        EXPECT_EQ(LabelsOf(box), QStringList{"OK"});
        Press(box, "OK");
    });
}

}  // namespace
}  // namespace velm
