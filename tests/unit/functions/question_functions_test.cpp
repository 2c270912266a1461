// What the boxes of 質問 and 入力 are asked to show.
#include "functions/question_functions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "core/eval.h"
#include "core/run_state.h"
#include "core/variables.h"
#include "core/velm.h"
#include "platform/dialogs.h"

namespace velm {
namespace {

using testing::ElementsAre;

class RecordingDialogs final : public Dialogs {
  public:
    void ShowText(const std::u16string& text, int, const std::u16string&) override {
        record.push_back(u"show:" + text);
    }
    int Ask(const std::u16string& text, int style, const std::u16string& title) override {
        record.push_back(u"ask:" + text + u"|" + title);
        styles.push_back(style);
        return answer;
    }
    bool Confirm(const std::u16string& text, int, const std::u16string&) override {
        record.push_back(u"confirm:" + text);
        return false;
    }
    int Report(const std::u16string& text, int, const std::u16string&) override {
        record.push_back(u"report:" + text);
        return box::kAnswerOk;
    }
    std::optional<std::u16string> AskText(const std::u16string& prompt,
                                          const std::u16string& preset,
                                          const std::u16string& title) override {
        record.push_back(u"input:" + prompt + u"|" + preset + u"|" + title);
        return typed;
    }

    std::vector<std::u16string> record;
    std::vector<int> styles;
    int answer = box::kAnswerOk;
    std::optional<std::u16string> typed;
};

class QuestionFunctionsTest : public testing::Test {
  protected:
    void SetUp() override {
        TheEngine();
        ResetRunState();
        SetDialogs(&dialogs_);
        run.ProgramTitle = u"帳簿";
    }
    void TearDown() override {
        SetDialogs(nullptr);
        ResetRunState();
        run.Status = RunStatus::kIdle;
    }

    RecordingDialogs dialogs_;
};

TEST_F(QuestionFunctionsTest, TheBoxHasTheProgramsTitleUnlessOneIsGiven) {
    EvalText(u"質問（「一」）");
    EvalText(u"質問（「二」、0、「別の」＆「題」）");
    EvalText(u"質問（「三」、0、「」）");
    EXPECT_THAT(dialogs_.record, ElementsAre(u"ask:一|帳簿", u"ask:二|別の題", u"ask:三|"));
}

TEST_F(QuestionFunctionsTest, WordsAddUpToTheStyle) {
    EvalText(u"質問（「」）");
    EvalText(u"質問（「」、情報）");
    EvalText(u"質問（「」、警告＋はいといいえ）");
    EvalText(u"質問（「」、禁止＋ＯＫとキャンセル）");
    EvalText(u"質問（「」、質問＋はいといいえとキャンセル）");
    EvalText(u"質問（「」、「20個」）");
    EXPECT_THAT(dialogs_.styles, ElementsAre(0, 64, 52, 17, 35, 20));
}

TEST_F(QuestionFunctionsTest, TheAnswerIsTheButtonsNumber) {
    dialogs_.answer = box::kAnswerIgnore;
    EXPECT_EQ(EvalText(u"質問（「」、2）").Text(), u"5");
}

TEST_F(QuestionFunctionsTest, VariablesAreEvaluatedInEveryWord) {
    SetVariable(u"文", Value(u"続けますか"));
    SetVariable(u"枠", Value(u"36"));
    EvalText(u"質問（文、枠、文）");
    EXPECT_THAT(dialogs_.record, ElementsAre(u"ask:続けますか|続けますか"));
    EXPECT_THAT(dialogs_.styles, ElementsAre(36));
}

TEST_F(QuestionFunctionsTest, TheInputBoxShowsItsPresetText) {
    EvalText(u"入力（「名前」）");
    EvalText(u"入力（「年」、18＋2）");
    EvalText(u"入力（「年」、「」、「題」）");
    EXPECT_THAT(dialogs_.record,
                ElementsAre(u"input:名前||帳簿", u"input:年|20|帳簿", u"input:年||題"));
}

TEST_F(QuestionFunctionsTest, CancellingGivesTheEmptyText) {
    EXPECT_EQ(EvalText(u"入力（「名前」、「太郎」）").Text(), u"");
    dialogs_.typed = u"花子";
    EXPECT_EQ(EvalText(u"入力（「名前」、「太郎」）").Text(), u"花子");
    EXPECT_EQ(EvalText(u"それ").Text(), u"");
}

}  // namespace
}  // namespace velm
