// Text boxes of one line and of several.
#include <QAbstractScrollArea>
#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>

#include "gui/controls.h"

namespace velm {
namespace {

constexpr ControlClass kTexts[] = {ControlClass::kText, ControlClass::kMultiLineText,
                                   ControlClass::kWrappedText, ControlClass::kRichText};
constexpr ControlClass kOfLines[] = {ControlClass::kMultiLineText, ControlClass::kWrappedText,
                                     ControlClass::kRichText};

TEST_F(Controls, TextTellsOneChange) {
    for (const ControlClass which : kTexts) {
        const auto text = Make(which);
        RoundTrip(*text, u"Text", Text(u"日本語 <b>&amp; 𠮷"));
        EXPECT_EQ(listener.Take(), Told{"change"}) << static_cast<int>(which);
        text->Set(u"Text", Text(u"日本語 <b>&amp; 𠮷"), {});
        EXPECT_EQ(listener.Take(), Told{}) << "the same text is no change";
        RoundTrip(*text, u"Text", Text(u""));
        EXPECT_EQ(listener.Take(), Told{"change"});
        text->Set(u"Text", Number(12.5), {});
        EXPECT_EQ(text->Get(u"Text", {}), Text(u"12.5"));
        EXPECT_EQ(listener.Take(), Told{"change"});
    }
}

// Whatever pastes, the toolkit has come to its end before the script hears of it.
TEST_F(Controls, APasteMayReplaceTheTextOrEndTheControl) {
    QGuiApplication::clipboard()->setText(QStringLiteral("一行\n二行"));
    Show();
    for (const ControlClass which : kTexts) {
        auto text = Make(which);
        int changes = 0;
        listener.answer = [&](const ControlEvent& event) {
            if (event.kind == EventKind::kChange && ++changes == 1)
                text->Set(u"Text", Text(u"x"), {});
            return false;
        };
        Key(InnerOf(*text), Qt::Key_V, {}, Qt::ControlModifier);
        EXPECT_EQ(text->Get(u"Text", {}), Text(u"x")) << static_cast<int>(which);
        EXPECT_EQ(changes, 2) << "the paste, and what the script put in its place";
        listener.answer = [&](const ControlEvent& event) {
            if (event.kind == EventKind::kChange) text.reset();
            return false;
        };
        Key(InnerOf(*text), Qt::Key_V, {}, Qt::ControlModifier);
        EXPECT_EQ(text, nullptr);
        listener.answer = nullptr;
    }
}

TEST_F(Controls, SelectionsCountUnits) {
    for (const ControlClass which : kTexts) {
        const auto text = Make(which);
        text->Set(u"Text", Text(u"あ𠮷いう"), {});
        RoundTrip(*text, u"SelStart", Number(1));
        EXPECT_EQ(text->Get(u"SelLength", {}), Number(0));
        RoundTrip(*text, u"SelLength", Number(2));
        EXPECT_EQ(text->Get(u"SelText", {}), Text(u"𠮷"));
        listener.events.clear();
        text->Set(u"SelText", Text(u"x"), {});
        EXPECT_EQ(text->Get(u"Text", {}), Text(u"あxいう"));
        EXPECT_EQ(text->Get(u"SelStart", {}), Number(2)) << "behind what was put in";
        EXPECT_EQ(listener.Take(), Told{"change"});
        text->Set(u"SelStart", Number(99), {});
        EXPECT_EQ(text->Get(u"SelStart", {}), Number(4)) << "the end";
        text->Set(u"SelStart", Number(1), {});
        text->Set(u"SelLength", Number(99), {});
        EXPECT_EQ(text->Get(u"SelLength", {}), Number(3));
        EXPECT_EQ(FailureOf([&] { text->Set(u"SelStart", Number(-1), {}); }), failure::kBadCall);
        EXPECT_EQ(FailureOf([&] { text->Set(u"SelLength", Number(-1), {}); }), failure::kBadCall);
    }
}

TEST_F(Controls, LineEndsCountTwo) {
    for (const ControlClass which : kOfLines) {
        const auto text = Make(which);
        RoundTrip(*text, u"Text", Text(u"ab\r\ncd\r\n\r\ne"));
        for (const int position : {0, 2, 4, 6, 8, 10, 11}) {
            RoundTrip(*text, u"SelStart", Number(position));
        }
        text->Set(u"SelStart", Number(3), {});
        EXPECT_EQ(text->Get(u"SelStart", {}), Number(2)) << "between the two units";
        text->Set(u"SelStart", Number(1), {});
        RoundTrip(*text, u"SelLength", Number(4));
        EXPECT_EQ(text->Get(u"SelText", {}), Text(u"b\r\nc"));
        text->Set(u"SelText", Text(u"1\r\n2"), {});
        EXPECT_EQ(text->Get(u"Text", {}), Text(u"a1\r\n2d\r\n\r\ne"));
    }
}

TEST_F(Controls, LengthsAreLimited) {
    for (const ControlClass which : kTexts) {
        const auto text = Make(which);
        EXPECT_EQ(text->Get(u"MaxLength", {}), Number(0)) << "no limit";
        RoundTrip(*text, u"MaxLength", Number(3));
        for (const char* letter : {"a", "b", "c", "d"}) {
            Key(WidgetOf(*text), Qt::Key_A + (*letter - 'a'), letter);
        }
        EXPECT_EQ(text->Get(u"Text", {}), Text(u"abc")) << static_cast<int>(which);
        Compose(WidgetOf(*text), "", "日本");
        EXPECT_EQ(text->Get(u"Text", {}), Text(u"abc"));
        RoundTrip(*text, u"MaxLength", Number(0));
        Key(WidgetOf(*text), Qt::Key_D, "d");
        EXPECT_EQ(text->Get(u"Text", {}), Text(u"abcd"));
        EXPECT_EQ(FailureOf([&] { text->Set(u"MaxLength", Number(-1), {}); }), failure::kBadCall);
    }
}

TEST_F(Controls, LockedTextsKeepTheirText) {
    for (const ControlClass which : kTexts) {
        const auto text = Make(which);
        text->Set(u"Text", Text(u"x"), {});
        RoundTrip(*text, u"Locked", true);
        Key(WidgetOf(*text), Qt::Key_A, "a");
        Key(WidgetOf(*text), Qt::Key_Return, "\r", Qt::ControlModifier);
        EXPECT_EQ(text->Get(u"Text", {}), Text(u"x"));
        text->Set(u"Text", Text(u"y"), {});
        EXPECT_EQ(text->Get(u"Text", {}), Text(u"y")) << "the script may";
        RoundTrip(*text, u"Locked", false);
        Key(WidgetOf(*text), Qt::Key_A, "a");
        EXPECT_EQ(MemberToText(text->Get(u"Text", {})).size(), 2U);
    }
}

TEST_F(Controls, InputModesAreKept) {
    for (const ControlClass which : kTexts) {
        const auto text = Make(which);
        EXPECT_EQ(text->Get(u"IMEMode", {}), Number(0));
        for (int mode = 0; mode <= 8; ++mode) RoundTrip(*text, u"IMEMode", Number(mode));
        EXPECT_TRUE(WidgetOf(*text)->inputMethodHints().testFlag(Qt::ImhLatinOnly));
        text->Set(u"IMEMode", Number(3), {});
        EXPECT_FALSE(WidgetOf(*text)->testAttribute(Qt::WA_InputMethodEnabled));
        text->Set(u"IMEMode", Number(0), {});
        EXPECT_TRUE(WidgetOf(*text)->testAttribute(Qt::WA_InputMethodEnabled));
        EXPECT_EQ(FailureOf([&] { text->Set(u"IMEMode", Number(9), {}); }), failure::kBadCall);
    }
}

TEST_F(Controls, UndoTakesTypingBack) {
    for (const ControlClass which : kTexts) {
        const auto text = Make(which);
        text->Set(u"Text", Text(u"x"), {});
        Key(WidgetOf(*text), Qt::Key_A, "a");
        text->Call(u"Undo", {});
        EXPECT_EQ(text->Get(u"Text", {}), Text(u"x"));
    }
}

TEST_F(Controls, PasswordsShowTheirSign) {
    const auto text = Make(ControlClass::kText);
    auto& line = *static_cast<QLineEdit*>(WidgetOf(*text));
    text->Set(u"Text", Text(u"secret"), {});
    RoundTrip(*text, u"PasswordChar", Text(u"*"));
    EXPECT_EQ(line.displayText(), "******");
    text->Set(u"PasswordChar", Text(u"●○"), {});
    EXPECT_EQ(text->Get(u"PasswordChar", {}), Text(u"●"));
    EXPECT_EQ(line.displayText(), "●●●●●●");
    RoundTrip(*text, u"PasswordChar", Text(u""));
    EXPECT_EQ(line.displayText(), "secret");
    EXPECT_EQ(text->Get(u"Text", {}), Text(u"secret"));
}

TEST_F(Controls, TextsOfSeveralLinesKeepASignThatTheyDontShow) {
    for (const ControlClass which : {ControlClass::kMultiLineText, ControlClass::kWrappedText}) {
        const auto text = Make(which);
        text->Set(u"Text", Text(u"secret"), {});
        text->Set(u"PasswordChar", Text(u"●○"), {});
        EXPECT_EQ(text->Get(u"PasswordChar", {}), Text(u"●"));
        EXPECT_EQ(text->Get(u"Text", {}), Text(u"secret"));
    }
}

TEST_F(Controls, TextsHaveBorderAndAlignment) {
    for (const ControlClass which : {ControlClass::kText, ControlClass::kMultiLineText}) {
        const auto text = Make(which);
        for (int i = 0; i <= 2; ++i) RoundTrip(*text, u"Alignment", Number(i));
        EXPECT_EQ(FailureOf([&] { text->Set(u"Alignment", Number(3), {}); }), failure::kBadCall);
        EXPECT_EQ(text->Get(u"BorderStyle", {}), Number(1));
        RoundTrip(*text, u"BorderStyle", Number(0));
        RoundTrip(*text, u"BorderStyle", Number(1));
    }
    EXPECT_EQ(Make(ControlClass::kText)->Get(u"MultiLine", {}), MemberValue(false));
    EXPECT_EQ(Make(ControlClass::kMultiLineText)->Get(u"MultiLine", {}), MemberValue(true));
    EXPECT_EQ(Make(ControlClass::kMultiLineText)->Get(u"ScrollBars", {}), Number(3));
    EXPECT_EQ(Make(ControlClass::kWrappedText)->Get(u"ScrollBars", {}), Number(2));
}

TEST_F(Controls, OnlyTheOneFormWraps) {
    const auto plain = Make(ControlClass::kMultiLineText);
    const auto wrapped = Make(ControlClass::kWrappedText);
    Show();
    for (const auto* text : {&plain, &wrapped}) {
        (*text)->Set(u"Text", Text(std::u16string(200, u'あ')), {});
    }
    const auto reach = [](ToolkitControl& text) {
        return static_cast<QAbstractScrollArea*>(WidgetOf(text))->horizontalScrollBar()->maximum();
    };
    EXPECT_GT(reach(*plain), 1000);
    EXPECT_EQ(reach(*wrapped), 0);
}

TEST_F(Controls, TextsShowTheirColors) {
    for (const ControlClass which : kTexts) {
        const auto text = Make(which, {0, 0, 60, 30});
        text->Set(u"BackColor", Number(0x00FFFF), {});
        EXPECT_EQ(WidgetOf(*text)->grab().toImage().pixelColor(50, 15), QColor(255, 255, 0))
            << static_cast<int>(which);
    }
}

}  // namespace
}  // namespace velm
