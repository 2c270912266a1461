// A window of a script: its frame, its menu bar, and the client area that controls stand on and that
// shows the window's canvas.
#pragma once

#include <QPointer>
#include <QSize>
#include <memory>
#include <optional>

#include "platform/qt/qt_control.h"
#include "platform/qt/qt_surface.h"
#include "platform/toolkit.h"

class QEventLoop;
class QMenuBar;

namespace velm {

class QtCanvasView;
class QtWindowFrame;

// What a window's frame looks like and offers.
struct QtWindowStyle {
    std::int32_t kind = 0;  // as toolkit.h tells them
    bool hasMinButton = true;
    bool hasMaxButton = true;
    bool hasControlBox = true;
    bool isTopMost = false;
    bool isShaped = false;
};

class QtWindow : public ToolkitWindow, public QtContainer {
  public:
    explicit QtWindow(ControlListener& listener);
    ~QtWindow() override;

    MemberValue Get(std::u16string_view member, const MemberArguments& arguments) override;
    void Set(std::u16string_view member, const MemberValue& value,
             const MemberArguments& arguments) override;
    MemberValue Call(std::u16string_view member, const MemberArguments& arguments) override;

    // Before the window is shown for the first time the frame's thickness is a guess: that of the last
    // window like it. What was set counts: the window gets that size once its frame is there.
    PixelBox Geometry() const override;
    void SetGeometry(const PixelBox& box) override;
    // Throws Failure(438): a window stands in nothing.
    void SetContainer(ToolkitControl& container) override;
    void SetPicture(const Pixmap& picture) override;
    void SetCanvas(CanvasImage* canvas) override;

    std::int32_t ClientWidth() const override;
    std::int32_t ClientHeight() const override;
    void SetClientSize(std::int32_t width, std::int32_t height) override;
    void SetShape(const Pixmap& mask) override;
    void SetMenus(const std::vector<MenuEntry>& menus) override;
    std::int32_t PopUpMenu(const MenuEntry& menu, std::int32_t x, std::int32_t y) override;
    ToolkitControl* ActiveControl() const override;
    QWidget* ChildArea() override;

    QtSurface& Surface() const { return *surface_; }
    QtCanvasView& Client() const { return *client_; }
    // The window whose frame a widget is; nullptr for another widget.
    static QtWindow* Of(QWidget* widget);

    // The members.
    void Show(bool isModal);
    void Hide();
    // Asks the listener, and takes the window off the screen unless it stays open.
    void Close(bool byUser);
    const QtWindowStyle& Style() const { return style_; }
    void SetStyle(const QtWindowStyle& style);
    std::int32_t State() const;
    // Throws Failure(5) for a number that is no state.
    void SetState(std::int32_t state);
    void SetFocus();
    void StartMove();
    std::u16string caption;
    std::int32_t alpha = 255;
    bool isInTaskbar = true;
    bool clipsControls = true;
    void ShowTaskbarState();

    // The frame tells.
    void OnResized();
    void OnHidden();
    void OnExposed();

  private:
    QtWindowFrame* frame_;  // the surface owns it
    QtCanvasView* client_;  // stands on the frame
    QPointer<QMenuBar> bar_;
    std::unique_ptr<QtSurface> surface_;
    QtWindowStyle style_;
    std::optional<QSize> wishedFrame_;  // until the frame's thickness is known
    QEventLoop* modal_ = nullptr;       // waits for the end of this window
    bool isClosing_ = false;
    bool isChanging_ = false;  // hidden for a moment, to be shown in another look

    void LayOut();
    void Resize(QSize size);
    void SetOuterSize(const PixelBox& box, const PixelBox& before);
    void FixSize(QSize size);
    void ShowFrame(bool isModal);
    void ApplyStyle();
    QMargins Margins() const;
    bool IsFullScreen() const;
};

// The toolkit's flags of a style (qt_window_kinds.cpp).
Qt::WindowFlags QtFlagsOf(const QtWindowStyle& style);
bool HasFixedSize(const QtWindowStyle& style);
bool HasFrame(const QtWindowStyle& style);

// The members of windows beside the common ones (qt_window_members.cpp).
QtMemberTable WindowMembers();

}  // namespace velm
