// Dialogs on a terminal: texts and questions on standard output, reports on standard error, answers from
// standard input.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/dialogs.h"

namespace velm {

// Set when the output could not be written: the run was stopped for it.
extern bool outputFailed;

class ConsoleDialogs : public Dialogs {
  public:
    void ShowText(const std::u16string& text, int style, const std::u16string& title) override;
    // One line of input: the number of a button or its word. At the end of the input, or for a button
    // that the box hasn't: its first button.
    int Ask(const std::u16string& text, int style, const std::u16string& title) override;
    // The end of the input, and anything but はい and its number, is No.
    bool Confirm(const std::u16string& text, int style, const std::u16string& title) override;
    // A report is answered with OK.
    int Report(const std::u16string& text, int style, const std::u16string& title) override;
    std::optional<std::u16string> AskText(const std::u16string& prompt,
                                          const std::u16string& preset,
                                          const std::u16string& title) override;

  private:
    std::optional<std::u16string> ReadLine();
    std::optional<int> ReadButton();
};

}  // namespace velm
