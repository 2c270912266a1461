// Dialogs on a terminal.
#include "faces/console/console_dialogs.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string>
#include <vector>

#include "core/run_state.h"
#include "data/numbers.h"
#include "data/resources.h"
#include "data/text.h"
#include "data/utf.h"

namespace velm {

bool outputFailed = false;

namespace {

// The buttons of each set, in order.
const std::vector<int>& ButtonsOf(int style) {
    static const std::array<std::vector<int>, 6> sets = {{
        {box::kAnswerOk},
        {box::kAnswerOk, box::kAnswerCancel},
        {box::kAnswerAbort, box::kAnswerRetry, box::kAnswerIgnore},
        {box::kAnswerYes, box::kAnswerNo, box::kAnswerCancel},
        {box::kAnswerYes, box::kAnswerNo},
        {box::kAnswerRetry, box::kAnswerCancel},
    }};
    const auto index = static_cast<std::size_t>(style & box::kButtons);
    return sets[index < sets.size() ? index : 0];
}

// Writes a text and a line end; a full disk or a closed pipe ends the run with a message.
void WriteLine(std::FILE* stream, const std::u16string& text) {
    std::string bytes = Utf16ToUtf8(ReplaceAll(text, kCrLf, u"\n"));
    bytes += '\n';
    const bool written = std::fwrite(bytes.data(), 1, bytes.size(), stream) == bytes.size();
    if (written || run.StopFlag) return;
    std::fputs("velmconsole: 出力できません。\n", stderr);
    run.StopFlag = true;
    outputFailed = true;
}

}  // namespace

void ConsoleDialogs::ShowText(const std::u16string& text, int /*style*/,
                              const std::u16string& /*title*/) {
    WriteLine(stdout, text);
}

int ConsoleDialogs::Ask(const std::u16string& text, int style, const std::u16string& /*title*/) {
    WriteLine(stdout, text);
    const std::vector<int>& buttons = ButtonsOf(style);
    const std::optional<int> answer = ReadButton();
    const bool known =
        answer && std::find(buttons.begin(), buttons.end(), *answer) != buttons.end();
    return known ? *answer : buttons.front();
}

bool ConsoleDialogs::Confirm(const std::u16string& text, int /*style*/,
                             const std::u16string& /*title*/) {
    WriteLine(stdout, text);
    return ReadButton() == box::kAnswerYes;
}

int ConsoleDialogs::Report(const std::u16string& text, int /*style*/,
                           const std::u16string& /*title*/) {
    std::fflush(stdout);
    WriteLine(stderr, text);
    return box::kAnswerOk;
}

std::optional<std::u16string> ConsoleDialogs::AskText(const std::u16string& prompt,
                                                      const std::u16string& /*preset*/,
                                                      const std::u16string& /*title*/) {
    WriteLine(stdout, prompt);
    return ReadLine();
}

// The button that a line of input names; nothing at the end of the input or for no button.
std::optional<int> ConsoleDialogs::ReadButton() {
    const std::optional<std::u16string> line = ReadLine();
    if (!line) return std::nullopt;
    const std::u16string_view answer = Trim(*line);
    const std::u16string word = ResourceValue(kAnswerWords, answer);
    const std::optional<double> number =
        ParseNumber(word.empty() ? answer : std::u16string_view(word));
    for (int button = box::kAnswerOk; button <= box::kAnswerNo; ++button) {
        if (number && *number == button) return button;
    }
    return std::nullopt;
}

// What was written is shown before the program waits.
std::optional<std::u16string> ConsoleDialogs::ReadLine() {
    std::fflush(stdout);
    std::string line;
    int unit = std::getc(stdin);
    if (unit == EOF) return std::nullopt;
    for (; unit != EOF && unit != '\n'; unit = std::getc(stdin)) {
        line += static_cast<char>(unit);
    }
    if (line.ends_with('\r')) line.pop_back();
    return Utf8ToUtf16(line);
}

}  // namespace velm
