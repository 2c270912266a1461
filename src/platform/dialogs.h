// What the runtime asks a person, and how it shows something: the face behind it is a set of windows, a
// terminal, or a test. Texts have CR LF as line ends.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace velm {

// Styles of a message box: a button set plus an icon. Any other bits are ignored.
namespace box {
constexpr int kOk = 0;
constexpr int kOkCancel = 1;
constexpr int kAbortRetryIgnore = 2;
constexpr int kYesNoCancel = 3;
constexpr int kYesNo = 4;
constexpr int kRetryCancel = 5;
constexpr int kButtons = 7;  // mask
constexpr int kIcons = 0x70;

// Numbers of the buttons.
constexpr int kAnswerOk = 1;
constexpr int kAnswerCancel = 2;
constexpr int kAnswerAbort = 3;
constexpr int kAnswerRetry = 4;
constexpr int kAnswerIgnore = 5;
constexpr int kAnswerYes = 6;
constexpr int kAnswerNo = 7;
}  // namespace box

class Dialogs {
  public:
    virtual ~Dialogs() = default;

    // A text that the script shows (表示).
    virtual void ShowText(const std::u16string& text, int style, const std::u16string& title) = 0;
    // A question of the script; the number of the button. Closing the box is Cancel where it has one.
    virtual int Ask(const std::u16string& text, int style, const std::u16string& title) = 0;
    // A report of an error or a warning; the number of the button.
    virtual int Report(const std::u16string& text, int style, const std::u16string& title) = 0;
    // A question of the runtime itself before something that can't be undone, with Yes and No. Unlike
    // the end of the input for a question of the script, no answer is No.
    virtual bool Confirm(const std::u16string& text, int style, const std::u16string& title) {
        return Ask(text, style, title) == box::kAnswerYes;
    }
    // How far a long file operation is, in entries; false when the user wants it to end.
    virtual bool ShowFileProgress(const std::u16string& /*name*/, std::int64_t /*done*/,
                                  std::int64_t /*total*/) {
        return true;
    }
    // One line of text; nothing when the user cancels.
    virtual std::optional<std::u16string> AskText(const std::u16string& prompt,
                                                  const std::u16string& preset,
                                                  const std::u16string& title) = 0;
};

// The face in force. A process sets it once, before the engine starts; tests put their own in.
Dialogs& TheDialogs();
void SetDialogs(Dialogs* dialogs);

}  // namespace velm
