// The desktop through the toolkit.
#include "platform/qt/qt_desktop.h"

#include <QClipboard>
#include <QCursor>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QScreen>

#include "data/failure.h"
#include "platform/qt/qt_cursors.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/qt_wayland.h"
#include "platform/qt/x11_display.h"

namespace velm {

namespace {

constexpr std::int32_t kHourglass = 11;
constexpr std::int32_t kLastPointer = 15;

QScreen& MainScreen() {
    QScreen* screen = QGuiApplication::primaryScreen();
    if (screen == nullptr) throw Failure(failure::kNoSuchMember);
    return *screen;
}

}  // namespace

ScreenPoint QtDesktop::ScreenSize() {
    const QSize size = MainScreen().size();
    return {size.width(), size.height()};
}

ScreenPoint QtDesktop::MousePosition() {
    // There it would be the last place over one of our own windows.
    RefuseOnWayland();
    const QPoint place = QCursor::pos();
    return {place.x(), place.y()};
}

bool QtDesktop::IsKeyDown(std::int32_t virtualKey) { return X11IsKeyDown(virtualKey); }

std::vector<std::u16string> QtDesktop::Fonts() {
    std::vector<std::u16string> names;
    for (const QString& family : QFontDatabase::families()) names.push_back(FromQString(family));
    return names;
}

std::vector<std::u16string> QtDesktop::WindowTitles() {
    std::vector<std::u16string> titles;
    for (const X11Window& window : X11ListWindows()) {
        if (!window.isOwned && !window.title.empty()) titles.push_back(window.title);
    }
    return titles;
}

std::u16string QtDesktop::ActiveWindowTitle() { return X11ActiveTitle(); }

std::int32_t QtDesktop::MainWindowPointer() { return pointer_; }

void QtDesktop::ShowWaitPointer(bool on) { SetScreenPointer(on ? kHourglass : 0); }

void QtDesktop::SetScreenPointer(std::int32_t pointer) {
    if (pointer < 0 || pointer > kLastPointer) throw Failure(failure::kBadCall);
    if (pointer_ != 0) QGuiApplication::restoreOverrideCursor();
    pointer_ = pointer;
    if (pointer != 0) QGuiApplication::setOverrideCursor(PointerShape(pointer));
}

std::u16string QtDesktop::ClipboardText() {
    const QString text = QGuiApplication::clipboard()->text();
    if (text == ToLines(ownText_)) return ownText_;
    QString lines = ToLines(FromQString(text));
    return FromQString(lines.replace(u'\n', QStringLiteral("\r\n")));
}

void QtDesktop::SetClipboardText(const std::u16string& text) {
    ownText_ = text;
    QGuiApplication::clipboard()->setText(ToLines(text));
}

}  // namespace velm
