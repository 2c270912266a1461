// 印刷, as sentences, on a printer that notes what it is asked for.
#include <algorithm>

#include "data/failure.h"
#include "objects/object_canvas.h"
#include "unit/objects/control_test.h"

namespace velm {
namespace {

class PrintCommands : public ControlTest {
  protected:
    using Texts = std::vector<std::u16string>;

    // What the printer was asked, its labels left out.
    Texts Printed() {
        Texts found;
        for (const std::u16string& note : toolkit.notes) {
            const std::size_t dot = note.find(u'.');
            if (note.starts_with(u"Printer") && dot != note.npos) {
                found.push_back(note.substr(dot + 1));
            }
        }
        toolkit.notes.clear();
        return found;
    }
    void CancelDialogs(bool cancels) {
        Do(u"選択ウィンドウのタイトルは、「題」");
        toolkit.dialogs->members[u"CANCEL"] = cancels;
        toolkit.notes.clear();
    }
    static bool Holds(const Texts& texts, std::u16string_view text) {
        return std::find(texts.begin(), texts.end(), text) != texts.end();
    }
};

TEST_F(PrintCommands, TextGoesToThePrinter) {
    Do(u"「あ」＆「い」を印刷");
    EXPECT_EQ(Printed(), (Texts{u"Print あい", u"EndDoc"}));
    Do(u"名前の一覧＝1");
    Do(u"文＝「う」");
    Do(u"文をいんさつ");
    EXPECT_EQ(Printed(), (Texts{u"Print う", u"EndDoc"}));
}

TEST_F(PrintCommands, TheDocumentStaysOpenForTheNextPage) {
    Do(u"「あ」を次ページへ印刷");
    EXPECT_EQ(Printed(), (Texts{u"Print あ", u"NewPage"}));
}

TEST_F(PrintCommands, ATextBoxAsksForThePrinter) {
    for (const std::u16string_view name : {u"テキスト1", u"文章テキスト1"}) {
        Do(std::u16string(name) + u"を作る");
        Put(name, u"Text", u"本文");
        Put(name, u"FontName", u"明朝");
        Put(name, u"FontSize", 20.0);
        Put(name, u"FontStrikethru", true);
        CancelDialogs(false);
        Do(std::u16string(name) + u"の内容を印刷");
        EXPECT_TRUE(toolkit.HasNote(toolkit.dialogs->label + u".ShowPrinter"));
        const Texts printed = Printed();
        EXPECT_TRUE(Holds(printed, u"FontName=明朝"));
        EXPECT_TRUE(Holds(printed, u"FontSize=20"));
        EXPECT_TRUE(Holds(printed, u"FontStrikethrough=True"));
        ASSERT_GE(printed.size(), 2U);
        EXPECT_EQ(printed[printed.size() - 2], u"Print 本文");
        EXPECT_EQ(printed.back(), u"EndDoc");
        Do(std::u16string(name) + u"を印刷");
        EXPECT_TRUE(Holds(Printed(), u"Print 本文"));
        CancelDialogs(true);
        Do(std::u16string(name) + u"を印刷");
        EXPECT_EQ(Printed(), Texts());
    }
}

TEST_F(PrintCommands, RichTextPrintsItsSelection) {
    Do(u"拡張テキスト1を作る");
    Put(u"拡張テキスト1", u"Text", u"全部");
    Do(u"拡張テキスト1を印刷");
    EXPECT_TRUE(Holds(Printed(), u"Print 全部"));
    Put(u"拡張テキスト1", u"SelText", u"部分");
    Do(u"拡張テキスト1を印刷");
    EXPECT_TRUE(Holds(Printed(), u"Print 部分"));
}

TEST_F(PrintCommands, AWindowPrintsItself) {
    Do(u"ウィンドウ2を作る");
    Do(u"ウィンドウ2を印刷");
    EXPECT_TRUE(toolkit.HasNote(Recorded(*objects.CurrentWindow).label + u".PrintForm"));
    EXPECT_EQ(Printed(), Texts());
}

TEST_F(PrintCommands, PicturesArePainted) {
    Do(u"ピクチャー1を作る");
    Do(u"ピクチャー1を印刷");
    EXPECT_EQ(Printed(), (Texts{u"PaintPicture 65x49 0,0,0,0", u"EndDoc"}));
    Do(u"イメージ1を作る");
    ShowPicture(*Find(u"イメージ1"), Pixmap(7, 5, 255), u"");
    Do(u"イメージ1を印刷");
    EXPECT_EQ(Printed(), (Texts{u"PaintPicture 7x5 0,0,0,0", u"EndDoc"}));
}

TEST_F(PrintCommands, OthersCantBePrinted) {
    Do(u"ボタン1を作る");
    Do(u"ボタン1を印刷");
    EXPECT_EQ(run.ErrorNumber, 302);
    EXPECT_EQ(run.ErrorWord, u"ボタン1");
    ASSERT_EQ(installed.dialogs.reported.size(), 1U);
    EXPECT_EQ(installed.dialogs.reported[0].style & box::kIcons, 48);
    EXPECT_EQ(Printed(), Texts());
}

TEST_F(PrintCommands, AFailureIsReported) {
    Do(u"ウィンドウ2を作る");
    Recorded(*objects.CurrentWindow).failures[u"PRINTFORM"] = 482;
    Do(u"ウィンドウ2を印刷");
    EXPECT_EQ(run.ErrorNumber, 301);
    EXPECT_NE(run.ErrorText.find(FailureDescription(482)), run.ErrorText.npos);
    ASSERT_EQ(installed.dialogs.reported.size(), 1U);
    EXPECT_EQ(installed.dialogs.reported[0].style & box::kIcons, 16);
    EXPECT_FALSE(pendingFailure.IsSet());
}

}  // namespace
}  // namespace velm
