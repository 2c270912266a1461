// The message box: a text, an icon, one to three buttons. Modal; knows the numbers of
// platform/dialogs.h and nothing of the runtime.
#pragma once

#include <QDialog>
#include <string>
#include <vector>

class QHBoxLayout;

namespace velm {

class TextView;

// One button of a box: its number, its word, and the letter that presses it.
struct BoxButton {
    int answer;
    const char16_t* word;
    char16_t letter;
};

// The buttons of a style, from the left.
std::vector<BoxButton> ButtonsOf(int style);

class MessageBox : public QDialog {
  public:
    // `style` as in platform/dialogs.h; `text` may have CR LF and be of any length.
    MessageBox(const std::u16string& text, int style, const std::u16string& title,
               QWidget* parent = nullptr);

    // Shows the box and waits; the number of the pressed button.
    int Ask();

    // Esc and the window's close button: キャンセル where there is one, the only button of a box with
    // one, and nothing at all where the user has to choose.
    void reject() override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    std::vector<BoxButton> buttons_;
    TextView* view_ = nullptr;
    int answer_ = 0;

    void AddIcon(int icon, QHBoxLayout& row);
    void AddButtons(QHBoxLayout& row);
    void Finish(int answer);
    int AnswerOfClosing() const;
};

}  // namespace velm
