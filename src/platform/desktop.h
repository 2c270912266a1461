// The desktop around the runtime: screen, mouse, keys, fonts, windows of all programs, clipboard. The
// window face puts its toolkit's desktop in. Without one there is no display: everything fails as an
// unknown member then, but for the clipboard, which holds within the process.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace velm {

// Pixels from the upper left corner of the main screen.
struct ScreenPoint {
    std::int32_t x = 0;
    std::int32_t y = 0;
};

class Desktop {
  public:
    virtual ~Desktop() = default;

    // Width and height of the main screen, in pixels. Throws Failure(438) without a display, as do all
    // the others that ask the display.
    virtual ScreenPoint ScreenSize();
    virtual ScreenPoint MousePosition();
    // Whether a key is down, by its virtual key number: 0x10 shift, 0x11 control, 0x12 alt, letters and
    // digits by their upper-case character code.
    virtual bool IsKeyDown(std::int32_t virtualKey);
    // The names of the screen fonts, in the screen's order.
    virtual std::vector<std::u16string> Fonts();
    // Titles of the top-level windows that are visible, have no owner and have a title; front to back.
    virtual std::vector<std::u16string> WindowTitles();
    // Title of the window in the foreground; empty when there is none.
    virtual std::u16string ActiveWindowTitle();
    // The number of the main window's mouse pointer, as the table of pointer words counts them.
    virtual std::int32_t MainWindowPointer();

    // The mouse pointer over all windows of the process by its number; 0 brings back the pointers of the
    // windows.
    virtual void SetScreenPointer(std::int32_t pointer);
    // Shows the hourglass while something long runs, or the usual pointer again.
    virtual void ShowWaitPointer(bool on);
    virtual std::u16string ClipboardText();
    virtual void SetClipboardText(const std::u16string& text);

  private:
    std::u16string clipboard_;
};

// The desktop in force: the one without a display, until a face puts in its own. nullptr brings the
// first one back, with an empty clipboard. The desktop must outlive its use.
Desktop& TheDesktop();
void SetDesktop(Desktop* desktop);

// Shows the hourglass for the life of the object.
class WaitPointer {
  public:
    WaitPointer() { TheDesktop().ShowWaitPointer(true); }
    ~WaitPointer() { TheDesktop().ShowWaitPointer(false); }
    WaitPointer(const WaitPointer&) = delete;
    WaitPointer& operator=(const WaitPointer&) = delete;
};

}  // namespace velm
