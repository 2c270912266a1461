// The input box: a prompt, one line to type into, OK and キャンセル.
#pragma once

#include <QDialog>
#include <optional>
#include <string>

class QLineEdit;

namespace velm {

class InputBox : public QDialog {
  public:
    // The preset stands selected in the line; its line ends become blanks.
    InputBox(const std::u16string& prompt, const std::u16string& preset,
             const std::u16string& title, QWidget* parent = nullptr);

    // Shows the box and waits; nothing when it was cancelled or closed.
    std::optional<std::u16string> Ask();

  private:
    QLineEdit* line_ = nullptr;
};

}  // namespace velm
