// The text of a box: read-only, selectable, as small as its text and never larger than a share of the
// screen, with scroll bars behind that. Used by the message box and the input box.
#pragma once

#include <QPlainTextEdit>

namespace velm {

class TextView : public QPlainTextEdit {
  public:
    // `text` has LF as line end.
    explicit TextView(const QString& text, QWidget* parent = nullptr);

    // Whether the text is larger than the view.
    bool IsScrollable() const { return scrollable_; }
    // Scrolls for a key that the focused button doesn't use; whether the key was one of these.
    bool ScrollByKey(int key);
    // Copies what is selected, or all of it.
    void CopyText();

  private:
    QString text_;  // as given: what is shown may have more line ends
    bool scrollable_ = false;

    void FitToText();
};

}  // namespace velm
