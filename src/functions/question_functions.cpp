// 応答, 質問, 入力. The boxes themselves belong to the face (platform/dialogs.h).
#include "functions/question_functions.h"

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "core/arguments.h"
#include "core/eval.h"
#include "core/run_state.h"
#include "core/word.h"
#include "data/numbers.h"
#include "data/resources.h"
#include "data/value.h"
#include "platform/dialogs.h"

namespace velm {

namespace {

// The title of a box: what its word gives, or the program's title where there is no such word.
std::u16string BoxTitle(const Word& word) {
    return word.IsEmpty() ? run.ProgramTitle : EvalWord(word).Text();
}

}  // namespace

void FnAnswer(Value& result, Arguments&) { result = run.Response; }

void FnAsk(Value& result, Arguments& arguments) {
    Word question;
    Word buttons;
    Word titleWord;
    arguments.SplitRaw(question, buttons, titleWord);
    const std::u16string title = BoxTitle(titleWord);
    const std::u16string text = EvalWord(question).Text();
    const Value style = EvalWithWords(kMessageBoxWords, buttons);
    const std::int32_t bits = ToInt32(NumericPrefix(style.Text()));
    result = Value::OfInteger(TheDialogs().Ask(text, bits, title));
}

void FnAskText(Value& result, Arguments& arguments) {
    Word prompt;
    Word preset;
    Word titleWord;
    arguments.SplitRaw(prompt, preset, titleWord);
    const std::u16string title = BoxTitle(titleWord);
    const std::u16string text = EvalWord(prompt).Text();
    const std::u16string typedBefore = EvalWord(preset).Text();
    std::optional<std::u16string> typed = TheDialogs().AskText(text, typedBefore, title);
    if (typed) result = Value(std::move(*typed));
}

}  // namespace velm
