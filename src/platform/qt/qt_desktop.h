// The desktop around the runtime, asked through the toolkit and, for what concerns other programs, the
// X Window System. On a Wayland desktop, and on the toolkit's own offscreen display, nobody tells a program
// of other programs' windows, keys and mouse: there those fail as unknown members.
#pragma once

#include "platform/desktop.h"

namespace velm {

class QtDesktop : public Desktop {
  public:
    ScreenPoint ScreenSize() override;
    ScreenPoint MousePosition() override;
    bool IsKeyDown(std::int32_t virtualKey) override;
    std::vector<std::u16string> Fonts() override;
    std::vector<std::u16string> WindowTitles() override;
    std::u16string ActiveWindowTitle() override;
    // The pointer that stands over the whole screen: 0, or the number of SetScreenPointer.
    std::int32_t MainWindowPointer() override;
    void ShowWaitPointer(bool on) override;
    // Line ends are CR LF, but a text that this process has put there comes back as it was.
    std::u16string ClipboardText() override;
    void SetClipboardText(const std::u16string& text) override;

    // The mouse pointer over all windows of the process by its number, as the table of pointer words
    // counts them; 0 brings back the pointers of the windows. Throws Failure(5) for a number without a pointer.
    void SetScreenPointer(std::int32_t pointer) override;

  private:
    std::int32_t pointer_ = 0;
    std::u16string ownText_;
};

}  // namespace velm
