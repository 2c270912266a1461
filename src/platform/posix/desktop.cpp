// The desktop without a display.
#include "platform/desktop.h"

#include "data/failure.h"

namespace velm {

namespace {

Desktop withoutDisplay;
Desktop* desktopInForce = &withoutDisplay;

[[noreturn]] void FailWithoutDisplay() { throw Failure(failure::kNoSuchMember); }

}  // namespace

ScreenPoint Desktop::ScreenSize() { FailWithoutDisplay(); }
ScreenPoint Desktop::MousePosition() { FailWithoutDisplay(); }
bool Desktop::IsKeyDown(std::int32_t) { FailWithoutDisplay(); }
std::vector<std::u16string> Desktop::Fonts() { FailWithoutDisplay(); }
std::vector<std::u16string> Desktop::WindowTitles() { FailWithoutDisplay(); }
std::u16string Desktop::ActiveWindowTitle() { FailWithoutDisplay(); }
std::int32_t Desktop::MainWindowPointer() { FailWithoutDisplay(); }
void Desktop::SetScreenPointer(std::int32_t) {}
void Desktop::ShowWaitPointer(bool) {}
std::u16string Desktop::ClipboardText() { return clipboard_; }
void Desktop::SetClipboardText(const std::u16string& text) { clipboard_ = text; }

Desktop& TheDesktop() { return *desktopInForce; }

void SetDesktop(Desktop* desktop) {
    if (desktop == nullptr) withoutDisplay = Desktop();
    desktopInForce = desktop != nullptr ? desktop : &withoutDisplay;
}

}  // namespace velm
