// 選択, as sentences. The dialogs' answers are members of 選択ウィンドウ.
#include "unit/objects/control_test.h"

namespace velm {
namespace {

class DialogCommands : public ControlTest {
  protected:
    static std::u16string shownWithFlags;

    RecordedSurface& Dialogs() {
        Do(u"選択ウィンドウのタイトルは、「題」");
        return *toolkit.dialogs;
    }
    std::u16string Answer(std::u16string_view member) {
        return MemberToText(toolkit.dialogs->members.at(ToUpper(member)));
    }
    // The next dialogs are cancelled, or answered.
    void Cancel() {
        toolkit.whenCalled = [](RecordedMembers& dialogs, std::u16string_view) {
            shownWithFlags = MemberToText(dialogs.members.at(u"FLAGS"));
            dialogs.members[u"CANCEL"] = true;
        };
    }
    void Choose() {
        toolkit.whenCalled = [](RecordedMembers& dialogs, std::u16string_view) {
            shownWithFlags = MemberToText(dialogs.members.at(u"FLAGS"));
            dialogs.members[u"CANCEL"] = false;
            dialogs.members[u"FILENAME"] = u"C:\\選んだ";
            dialogs.members[u"COLOR"] = 255.0;
        };
    }
};

std::u16string DialogCommands::shownWithFlags;

TEST_F(DialogCommands, FilesAndFolders) {
    struct Case {
        std::u16string_view word;
        std::u16string_view call;
    };
    Dialogs();
    for (const Case& each :
         {Case{u"開くファイル", u"ShowOpen"}, Case{u"保存するファイル", u"ShowSave"},
          Case{u"フォルダ", u"ShowDir"}}) {
        const std::u16string sentence = std::u16string(each.word) + u"を選択";
        Choose();
        Do(sentence);
        EXPECT_TRUE(toolkit.HasNote(toolkit.dialogs->label + u"." + std::u16string(each.call)));
        EXPECT_EQ(Answer(u"FileName"), u"C:\\選んだ");
        EXPECT_EQ(Answer(u"Flags"), u"0");
        Cancel();
        Do(sentence);
        EXPECT_EQ(Answer(u"FileName"), u"");
    }
}

TEST_F(DialogCommands, AWordMayStandInQuotes) {
    Dialogs();
    Choose();
    Do(u"「開くファイル」をせんたく");
    EXPECT_EQ(Answer(u"FileName"), u"C:\\選んだ");
}

TEST_F(DialogCommands, SavingAsksBeforeOverwriting) {
    Dialogs();
    Choose();
    toolkit.dialogs->members[u"FLAGS"] = 8.0;
    Do(u"保存するファイルを選択");
    EXPECT_EQ(shownWithFlags, u"10");
    EXPECT_EQ(Answer(u"Flags"), u"0");
    Do(u"開くファイルを選択");
    EXPECT_EQ(shownWithFlags, u"0");
}

TEST_F(DialogCommands, AFolderStartsFromTheNameInForce) {
    Dialogs();
    toolkit.dialogs->members[u"FILENAME"] = u"C:\\前";
    toolkit.whenCalled = [](RecordedMembers& dialogs, std::u16string_view) {
        EXPECT_EQ(MemberToText(dialogs.members.at(u"FILENAME")), u"C:\\前");
    };
    Do(u"フォルダを選択");
    EXPECT_EQ(Answer(u"FileName"), u"C:\\前");
}

TEST_F(DialogCommands, ACancelledColourIsBlack) {
    Dialogs();
    Choose();
    Do(u"色を選択");
    EXPECT_EQ(Answer(u"Color"), u"255");
    EXPECT_EQ(toolkit.notes.back(), toolkit.dialogs->label + u".Flags=0");
    Cancel();
    Do(u"色を選択");
    EXPECT_EQ(Answer(u"Color"), u"0");
}

TEST_F(DialogCommands, AFontStartsFromTheWindows) {
    Dialogs();
    objects.CurrentWindow->Set(u"FontName", std::u16string(u"明朝"));
    objects.CurrentWindow->Set(u"FontSize", 20.0);
    objects.CurrentWindow->Set(u"FontStrikethru", true);
    Do(u"フォントを選択");
    EXPECT_TRUE(toolkit.HasNote(toolkit.dialogs->label + u".ShowFont"));
    EXPECT_EQ(Answer(u"FontName"), u"明朝");
    EXPECT_EQ(Answer(u"FontSize"), u"20");
    EXPECT_EQ(Answer(u"FontStrikethrough"), u"True");
}

TEST_F(DialogCommands, TheAnswersHaveWords) {
    Dialogs();
    EXPECT_EQ(Answer(u"DialogTitle"), u"題");
    Do(u"選択ウィンドウのフィルタは、「文書|*.txt」");
    EXPECT_EQ(Answer(u"Filter"), u"文書|*.txt");
    Do(u"選択ウィンドウの色は、青");
    EXPECT_EQ(Answer(u"Color"), u"16711680");
    Choose();
    Do(u"開くファイルを選択");
    EXPECT_EQ(Read(u"選択ウィンドウのファイル名"), u"C:\\選んだ");
    EXPECT_EQ(Read(u"選択ウィンドウの色"), u"&hFF0000");
    EXPECT_EQ(Read(u"選択ウィンドウのキャンセル"), u"0");
    Cancel();
    Do(u"開くファイルを選択");
    EXPECT_EQ(Read(u"選択ウィンドウのファイル名"), u"");
    EXPECT_EQ(Read(u"選択ウィンドウのキャンセル"), u"1");
}

TEST_F(DialogCommands, ThePage) {
    Dialogs();
    Do(u"ページ設定を選択");
    EXPECT_TRUE(toolkit.HasNote(toolkit.dialogs->label + u".ShowPrintPage 2"));
}

TEST_F(DialogCommands, OtherWordsAreReported) {
    Do(u"天気を選択");
    EXPECT_EQ(run.ErrorNumber, 106);
    EXPECT_EQ(run.ErrorText, u"「天気」は、選択できません。");
    EXPECT_EQ(run.ErrorWord, u"天気");
    ASSERT_EQ(installed.dialogs.reported.size(), 1U);
    EXPECT_EQ(installed.dialogs.reported[0].style & box::kIcons, 48);
    EXPECT_EQ(toolkit.dialogs, nullptr);
}

TEST_F(DialogCommands, NeitherAnswerNorThatObjectChanges) {
    Do(u"ボタン1を作る");
    run.Response = Value(u"前");
    Do(u"開くファイルを選択");
    EXPECT_EQ(run.Response.Text(), u"前");
    EXPECT_EQ(objects.ThatObject, Find(u"ボタン1"));
    const ObjectPtr first = objects.Dialogs;
    Do(u"開くファイルを選択");
    EXPECT_EQ(objects.Dialogs, first);
}

}  // namespace
}  // namespace velm
