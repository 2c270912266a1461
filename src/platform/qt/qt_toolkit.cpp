// Windows, controls and what stands beside them, on Qt.
#include "platform/qt/qt_toolkit.h"

#include <QApplication>
#include <QScreen>

#include "data/failure.h"
#include "platform/qt/qt_application.h"
#include "platform/qt/qt_canvas_view.h"
#include "platform/qt/qt_colors.h"
#include "platform/qt/qt_control.h"
#include "platform/qt/qt_desktop.h"
#include "platform/qt/qt_dialogs_object.h"
#include "platform/qt/qt_picture.h"
#include "platform/qt/qt_pictures.h"
#include "platform/qt/qt_printer.h"
#include "platform/qt/qt_text_raster.h"
#include "platform/qt/qt_tray.h"
#include "platform/qt/qt_turtle.h"
#include "platform/qt/qt_window.h"
#include "platform/qt/x11_windows.h"
#include "platform/toolkit.h"

namespace velm {

namespace {

class QtToolkit : public Toolkit {
  public:
    std::unique_ptr<ToolkitWindow> MakeWindow(ControlListener& listener) override {
        return std::make_unique<QtWindow>(listener);
    }

    std::unique_ptr<ToolkitControl> MakeControl(ControlClass which, ToolkitWindow& window,
                                                ControlListener& listener) override {
        QWidget* parent = &static_cast<QtWindow&>(window).Client();
        switch (which) {
            case ControlClass::kTurtle: return std::make_unique<QtTurtle>(parent, listener);
            case ControlClass::kPicture: return std::make_unique<QtPicture>(parent, listener);
            default: return MakeQtControl(which, parent, listener);
        }
    }

    std::unique_ptr<MemberSurface> MakeDialogs() override { return MakeQtDialogs(); }
    std::unique_ptr<MemberSurface> MakePrinter() override { return MakeQtPrinter(); }
    TrayIcon& Tray() override { return QtTray(); }
    ToolkitWindow* ActiveWindow() override { return QtWindow::Of(QApplication::activeWindow()); }

    PixelBox WorkArea() override {
        const QScreen* screen = QGuiApplication::primaryScreen();
        if (screen == nullptr) throw Failure(failure::kNoSuchMember);
        const QRect area = screen->availableGeometry();
        return {area.x(), area.y(), area.width(), area.height()};
    }

    std::uint32_t SystemColor(std::int32_t number) override { return SystemPixel(number); }

    Pixmap LoadPicture(const std::u16string& path) override { return LoadQtPicture(path); }
    Pixmap LoadIcon(const std::u16string& path, std::int32_t index, bool isSmall) override {
        return LoadQtIcon(path, index, isSmall);
    }

    void Pump() override { PumpApplication(); }
};

}  // namespace

Toolkit* StartQtToolkit() {
    // What is started here lasts until the process ends: taking it down among the last things that the
    // system's libraries do at an exit has no use, and some of them are gone by then.
    if (QCoreApplication::instance() == nullptr) StartApplicationAnywhere().release();
    static auto* const toolkit = new QtToolkit;
    static auto* const fonts = new QtTextRaster;
    static auto* const desktop = new QtDesktop;
    SetTextRasterizer(fonts);
    static auto* const windows = new X11Windows;
    SetDesktop(desktop);
    SetForeignWindows(windows);
    return toolkit;
}

}  // namespace velm

velm::Toolkit* VelmStartToolkit() { return velm::StartQtToolkit(); }
