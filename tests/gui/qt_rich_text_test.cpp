// Rich text: its selection, its form as RTF, and what is protected in it.
#include <QTextBlock>
#include <QTextEdit>
#include <QTextLayout>

#include "gui/controls.h"

namespace velm {
namespace {

void SelectPart(ToolkitControl& text, int start, int length) {
    text.Set(u"SelStart", Number(start), {});
    text.Set(u"SelLength", Number(length), {});
}

TEST_F(Controls, SelectionsHaveFormats) {
    const auto text = Make(ControlClass::kRichText);
    text->Set(u"Text", Text(u"一二三四五\r\n次"), {});
    listener.events.clear();
    SelectPart(*text, 1, 2);
    for (const char16_t* member :
         {u"SelBold", u"SelItalic", u"SelUnderline", u"SelStrikeThru", u"SelProtected"}) {
        EXPECT_EQ(text->Get(member, {}), MemberValue(false));
        RoundTrip(*text, member, true);
    }
    RoundTrip(*text, u"SelColor", Number(0x0000FF));
    RoundTrip(*text, u"SelFontName", Text(u"Serif"));
    RoundTrip(*text, u"SelFontSize", Number(10.5));
    EXPECT_EQ(listener.Take(), Told{}) << "a format is no change of the text";
    SelectPart(*text, 4, 1);
    EXPECT_EQ(text->Get(u"SelBold", {}), MemberValue(false));
    EXPECT_EQ(text->Get(u"SelFontSize", {}), Number(9));
    EXPECT_EQ(text->Get(u"SelColor", {}), Number(system_color::kWindowText));
    SelectPart(*text, 1, 2);
    RoundTrip(*text, u"SelBold", false);
    EXPECT_EQ(FailureOf([&] { text->Set(u"SelFontSize", Number(-1), {}); }), failure::kBadCall);
}

TEST_F(Controls, ParagraphsHaveAlignmentAndIndents) {
    const auto text = Make(ControlClass::kRichText);
    text->Set(u"Text", Text(u"一\r\n二"), {});
    for (int i = 0; i <= 2; ++i) RoundTrip(*text, u"SelAlignment", Number(i));
    RoundTrip(*text, u"SelIndent", Number(20));
    RoundTrip(*text, u"SelRightIndent", Number(10));
    RoundTrip(*text, u"SelHangingIndent", Number(5));
    text->Set(u"SelStart", Number(3), {});
    EXPECT_EQ(text->Get(u"SelAlignment", {}), Number(0)) << "another paragraph";
    EXPECT_EQ(text->Get(u"SelIndent", {}), Number(0));
}

TEST_F(Controls, VerticalTextIsUnknown) {
    const auto text = Make(ControlClass::kRichText);
    EXPECT_EQ(FailureOf([&] { text->Set(u"Vertical", true, {}); }), failure::kNoSuchMember);
    RoundTrip(*text, u"WordWrap", false);
    RoundTrip(*text, u"WordWrap", true);
}

TEST_F(Controls, AddressesAreColored) {
    const auto text = Make(ControlClass::kRichText);
    text->Set(u"Text", Text(u"見よ http://example.org/a。"), {});
    listener.events.clear();
    RoundTrip(*text, u"AutoUrl", true);
    const auto formats = [&] {
        auto* edit = static_cast<QTextEdit*>(WidgetOf(*text));
        return edit->document()->firstBlock().layout()->formats();
    };
    ASSERT_EQ(formats().size(), 1);
    EXPECT_EQ(formats().at(0).start, 3);
    EXPECT_EQ(formats().at(0).length, 20);
    EXPECT_EQ(formats().at(0).format.foreground().color(), QColor(0, 0, 255));
    RoundTrip(*text, u"AutoUrl", false);
    EXPECT_TRUE(formats().isEmpty());
    EXPECT_EQ(listener.Take(), Told{});
}

TEST_F(Controls, RtfComesBackAsItWas) {
    const auto text = Make(ControlClass::kRichText);
    text->Set(u"Text", Text(u"普通{太}\\\t字𠮷\r\n\r\nend"), {});
    SelectPart(*text, 2, 3);
    text->Set(u"SelBold", true, {});
    text->Set(u"SelItalic", true, {});
    text->Set(u"SelUnderline", true, {});
    text->Set(u"SelStrikeThru", true, {});
    text->Set(u"SelColor", Number(0x3412FF), {});
    text->Set(u"SelFontName", Text(u"Serif"), {});
    text->Set(u"SelFontSize", Number(20), {});
    text->Set(u"SelAlignment", Number(2), {});
    text->Set(u"SelIndent", Number(12), {});
    const MemberValue rtf = text->Get(u"TextRTF", {});
    for (const char16_t unit : MemberToText(rtf)) ASSERT_LT(unit, 0x80) << "plain ASCII";
    const auto copy = Make(ControlClass::kRichText);
    listener.events.clear();
    copy->Set(u"TextRTF", rtf, {});
    EXPECT_EQ(listener.Take(), Told{"change"});
    EXPECT_EQ(copy->Get(u"Text", {}), text->Get(u"Text", {}));
    for (const int start : {0, 2, 5}) {
        SelectPart(*copy, start, 1);
        SelectPart(*text, start, 1);
        for (const char16_t* member :
             {u"SelBold", u"SelItalic", u"SelUnderline", u"SelStrikeThru", u"SelColor",
              u"SelFontSize", u"SelAlignment", u"SelIndent"}) {
            EXPECT_EQ(copy->Get(member, {}), text->Get(member, {}))
                << start << ToQString(member).toStdString();
        }
    }
    SelectPart(*copy, 2, 1);
    EXPECT_EQ(copy->Get(u"SelFontName", {}), Text(u"Serif"));
}

TEST_F(Controls, RtfOfOthersIsRead) {
    const auto text = Make(ControlClass::kRichText);
    text->Set(
        u"TextRTF",
        Text(u"{\\rtf1\\ansi\\ansicpg932{\\fonttbl{\\f0\\fnil\\fcharset128 Serif;}}"
             u"{\\colortbl ;\\red255\\green0\\blue0;}{\\*\\generator X;}{\\info{\\title T}}\r\n"
             u"\\pard\\qc\\f0\\fs24\\cf1\\b \\'93\\'fa\\'96\\'7b\\b0\\u26412?x\\par\r\n"
             u"\\uc2\\u-10179??\\u-9131??\\'83A}"),
        {});
    EXPECT_EQ(text->Get(u"Text", {}), Text(u"日本本x\r\n\U0001F455ア"));
    SelectPart(*text, 0, 1);
    EXPECT_EQ(text->Get(u"SelBold", {}), MemberValue(true));
    EXPECT_EQ(text->Get(u"SelColor", {}), Number(0x0000FF));
    EXPECT_EQ(text->Get(u"SelFontSize", {}), Number(12));
    EXPECT_EQ(text->Get(u"SelAlignment", {}), Number(2));
    SelectPart(*text, 3, 1);
    EXPECT_EQ(text->Get(u"SelBold", {}), MemberValue(false));
}

TEST_F(Controls, BrokenRtfIsReadAsFarAsItGoes) {
    const auto text = Make(ControlClass::kRichText);
    for (const char16_t* rtf :
         {u"{\\rtf1 a", u"{\\rtf1 a}}}}", u"{\\rtf1 a\\", u"{\\rtf1\\u a\\'", u"{\\rtf1 a\\'8"}) {
        text->Set(u"TextRTF", Text(rtf), {});
        EXPECT_NE(MemberToText(text->Get(u"Text", {})).find(u'a'), std::u16string::npos);
    }
    text->Set(u"TextRTF", Text(u"{\\rtf1" + std::u16string(100'000, u'{') + u"deep"), {});
    EXPECT_EQ(text->Get(u"Text", {}), Text(u"deep"));
    text->Set(u"TextRTF", Text(u"plain \\b"), {});
    EXPECT_EQ(text->Get(u"Text", {}), Text(u"plain \\b"));
}

TEST_F(Controls, ProtectedTextStays) {
    const auto text = Make(ControlClass::kRichText);
    text->Set(u"Text", Text(u"abcd"), {});
    SelectPart(*text, 1, 2);
    text->Set(u"SelProtected", true, {});
    const auto type = [&](int start, int length, int key, const char* letter) {
        SelectPart(*text, start, length);
        Key(WidgetOf(*text), key, letter);
        return MemberToText(text->Get(u"Text", {}));
    };
    EXPECT_EQ(type(1, 2, Qt::Key_X, "x"), u"abcd");
    EXPECT_EQ(type(2, 0, Qt::Key_X, "x"), u"abcd");
    EXPECT_EQ(type(2, 0, Qt::Key_Backspace, "\b"), u"abcd");
    EXPECT_EQ(type(1, 0, Qt::Key_Delete, "\x7f"), u"abcd");
    EXPECT_EQ(type(0, 4, Qt::Key_Delete, "\x7f"), u"abcd");
    SelectPart(*text, 2, 0);
    Compose(WidgetOf(*text), "", "日");
    EXPECT_EQ(text->Get(u"Text", {}), Text(u"abcd"));
    EXPECT_EQ(type(0, 0, Qt::Key_X, "x"), u"xabcd");
    EXPECT_EQ(type(5, 0, Qt::Key_Backspace, "\b"), u"xabc");
}

}  // namespace
}  // namespace velm
