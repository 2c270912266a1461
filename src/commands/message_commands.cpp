// Showing a message, and 入れ.
#include "commands/message_commands.h"

#include <algorithm>
#include <string>

#include "core/diagnostics.h"
#include "core/eval.h"
#include "core/hooks.h"
#include "core/run_state.h"
#include "core/sentence.h"
#include "core/variables.h"
#include "data/brackets.h"
#include "data/failure.h"
#include "data/numbers.h"
#include "data/resources.h"
#include "data/text.h"
#include "platform/dialogs.h"

namespace velm {

namespace {

constexpr int kIsACommand = 12;
constexpr std::u16string_view kTray = u"タスクトレイ";
constexpr std::u16string_view kWindowWords[] = {
    u"ウィンドウ",       u"フルスクリーン",   u"固定ウィンドウ",
    u"縁無しウィンドウ", u"ツールウィンドウ", u"固定ツールウィンドウ",
};

// A word that names a window, or holds a の outside brackets, goes to the object maker.
bool BelongsToObjects(std::u16string_view word) {
    const bool window = std::any_of(std::begin(kWindowWords), std::end(kWindowWords),
                                    [word](const auto& start) { return word.starts_with(start); });
    return window || FindOutsideBrackets(word, u"の") != 0;
}

// The style of the box: the words of で, such as 警告＋はいといいえ, as far as they are a number.
int BoxStyle(const Word& words) {
    return ToInt32(NumericPrefix(EvalWithWords(kMessageBoxWords, words).Text()));
}

}  // namespace

void CmdShow(Statement& statement, Context& /*context*/) {
    Word word = statement.WoArg;
    if (word.IsEmpty()) word = GetWord(statement, u"と");
    statement.DeArg = GetWord(statement, u"で");
    if (hooks.ShowWindow != nullptr && hooks.ShowWindow(statement, word)) return;
    // Without windows such a word makes no message either.
    if (BelongsToObjects(word)) return;
    const int style = BoxStyle(statement.DeArg);
    if (statement.HeArg.Text() != kTray) {
        const Value text = EvalWord(word);
        TheDialogs().ShowText(text.Text(), style, run.ProgramTitle);
    } else if (hooks.ShowBalloon != nullptr) {
        hooks.ShowBalloon(EvalWord(word).Text(), style);
    }
}

void CmdPut(Statement& statement, Context& /*context*/) {
    const Word target = statement.HeArg;
    if (SettingWords.Find(target) != nullptr) {
        RaiseError(kIsACommand, kIconStop, target, u"", -1);
        return;
    }
    SetVariable(target.Text(), EvalWord(statement.WoArg));
}

}  // namespace velm
