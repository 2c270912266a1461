// The toolkit: windows, controls and what happens to them, as the object system sees them. A control is
// reached through one late-bound surface of named members; where it stands, what it shows of a picture
// and what happened to it go through a few plain calls, since these know nothing of scripts.
//
// Lengths are pixels of the script, which the toolkit scales for the display underneath. Everything runs
// on the interpreter's thread. Implementations: platform/qt, and a recording one in the tests.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "data/member_value.h"
#include "data/pixmap.h"

namespace velm {

// A late-bound member surface. Names are compared without regard to letter case. All three throw
// Failure(438) for a member that the object hasn't, and 13, 6 or 5 for a value that doesn't fit.
class MemberSurface {
  public:
    virtual ~MemberSurface() = default;

    virtual MemberValue Get(std::u16string_view member, const MemberArguments& arguments) = 0;
    virtual void Set(std::u16string_view member, const MemberValue& value,
                     const MemberArguments& arguments) = 0;
    virtual MemberValue Call(std::u16string_view member, const MemberArguments& arguments) = 0;
};

// What serves an object's members.
enum class ControlClass : std::uint8_t {
    kWindow,
    kButton,
    kPictureButton,  // a button that can show a picture and a background colour
    kText,           // one line
    kMultiLineText,  // both scroll bars, no wrap
    kWrappedText,    // several lines, wrapped
    kPicture,        // a drawing surface
    kImage,
    kLabel,
    kList,
    kDropDown,
    kEditableDropDown,
    kVerticalScrollBar,
    kHorizontalScrollBar,
    kCheck,
    kOption,
    kFrame,
    kShape,
    kLine,
    kFolderList,
    kDriveList,
    kTimer,
    kTurtle,  // a small transparent picture that floats over everything else
    kRichText,
    // Objects that are no controls of a window.
    kDialogs,  // the file, folder, colour and font dialogs
    kPrinter,
    kDrive,
    kPlugin,
};

struct PixelBox {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;

    bool operator==(const PixelBox&) const = default;
};

// The persistent image of a window or picture control. The toolkit shows it, tells it its size, and asks
// once a frame which part has changed.
class CanvasImage {
  public:
    virtual ~CanvasImage() = default;

    // Throws Failure(7) for a size that can't be held; the canvas is then as it was.
    virtual void Resize(std::int32_t width, std::int32_t height) = 0;
    virtual std::int32_t Width() const = 0;
    virtual std::int32_t Height() const = 0;
    // The canvas is the upper left part of the image. Throws std::bad_alloc where there is no memory to
    // make it in.
    virtual const Pixmap& Image() const = 0;
    // What has changed since this was asked the last time; empty when nothing has.
    virtual PixelRect TakeChanges() = 0;
    // Whether somebody asked to show the changes at once; the question clears it.
    virtual bool TakeRefresh() = 0;
};

enum class EventKind : std::uint8_t {
    kClick,
    kDoubleClick,
    kChange,  // the text, or the value of a scroll bar when it has come to rest
    kScroll,  // a list was scrolled, the thumb of a scroll bar is moved
    kMouseDown,
    kMouseMove,
    kMouseUp,
    kKeyDown,
    kKeyUp,
    kKeyPress,  // a character was typed, an input method's committed text included
    kFocusIn,
    kFocusOut,
    kResize,
    kDragOver,  // files or a text are held over it
    kDrop,
    kTimer,
    kClosing,  // asks whether the window may close: the answer of the listener counts
    kClosed,   // the window is off the screen
    kMenu,     // the entry with `code` as its id was chosen
    kTrayClick,
};

namespace mouse_button {
constexpr std::int32_t kLeft = 1;
constexpr std::int32_t kRight = 2;
constexpr std::int32_t kMiddle = 4;
}  // namespace mouse_button

namespace shift_state {
constexpr std::int32_t kShift = 1;
constexpr std::int32_t kControl = 2;
constexpr std::int32_t kAlt = 4;
}  // namespace shift_state

struct ControlEvent {
    EventKind kind = EventKind::kClick;
    std::int32_t button = 0;  // of the mouse
    std::int32_t shift = 0;
    double x = 0;  // pixels from the control's own upper left corner
    double y = 0;
    std::int32_t code = 0;              // virtual key number, or id of a menu entry
    std::u16string text;                // the typed character, or the dropped text
    std::vector<std::u16string> files;  // native paths of what was dropped, as scripts write them
    bool byUser = false;                // a window is closed by its user, not by the script
};

// Hears what happens to one control. OnEvent may run a script that closes windows and removes controls,
// the sender among them: a toolkit must not touch a control after it has told of an event without
// looking whether it is still there.
class ControlListener {
  public:
    virtual ~ControlListener() = default;

    // The answer counts for kClosing (true: the window stays open), kKeyPress (true: the character is
    // dropped) and kDragOver (true: a drop would be taken); for others it means nothing.
    virtual bool OnEvent(const ControlEvent& event) = 0;
};

// One entry of a menu bar or pop-up menu. An entry with children is a sub-menu.
struct MenuEntry {
    std::int32_t id = 0;
    std::u16string text;  // with a tab: the caption and a label of its shortcut
    bool isSeparator = false;
    bool isChecked = false;
    bool isEnabled = true;
    bool isVisible = true;
    std::vector<MenuEntry> children;
};

// A control on a window. Its end takes it off the screen; that may happen within one of its own events.
class ToolkitControl : public MemberSurface {
  public:
    // Within its container, which is the window's client area at first. Of a line: from its start to its
    // end, so that width and height may be negative.
    virtual PixelBox Geometry() const = 0;
    virtual void SetGeometry(const PixelBox& box) = 0;
    // Moves the control into a window, frame or picture control; it keeps its place there.
    virtual void SetContainer(ToolkitControl& container) = 0;
    // The picture of a button, image, turtle, shape of a cursor; of a window its icon. An empty one takes
    // it away. Throws Failure(438) for a control without pictures.
    virtual void SetPicture(const Pixmap& picture) = 0;
    // The image that the control shows, for windows and picture controls; nullptr for none. It must
    // outlive the control or be taken back.
    virtual void SetCanvas(CanvasImage* canvas) = 0;
};

// A window. Geometry is that of its whole frame on the screen.
//
// Members beside those of other controls: Caption, Visible, Enabled, WindowState (0 plain, 1 minimised,
// 2 maximised), Kind (0 to 5: sizable, fixed, without frame, tool, fixed tool, whole screen), Moveable,
// Alpha (0 transparent to 255), TopMost, ShowInTaskbar, MinButton, MaxButton, ControlBox; Show (argument:
// whether modal; then it returns when the window is closed), Hide, PrintForm, StartMove (the window
// follows the mouse).
class ToolkitWindow : public ToolkitControl {
  public:
    virtual std::int32_t ClientWidth() const = 0;
    virtual std::int32_t ClientHeight() const = 0;
    virtual void SetClientSize(std::int32_t width, std::int32_t height) = 0;
    // The window shows only where the mask isn't kTransparentPixel; an empty one brings the frame back.
    virtual void SetShape(const Pixmap& mask) = 0;
    // The menu bar, from left to right; none takes it away.
    virtual void SetMenus(const std::vector<MenuEntry>& menus) = 0;
    // Shows a menu at a place of the screen and waits; the id of the chosen entry, -1 for none.
    virtual std::int32_t PopUpMenu(const MenuEntry& menu, std::int32_t x, std::int32_t y) = 0;
    // The control that has the keyboard; nullptr when none of this window has it.
    virtual ToolkitControl* ActiveControl() const = 0;
};

// The icon in the desktop's notification area; one a process.
class TrayIcon {
  public:
    virtual ~TrayIcon() = default;

    // Shows the icon. Throws Failure(438) where the desktop has no place for one.
    virtual void Show(const Pixmap& icon, const std::u16string& tip) = 0;
    virtual void SetIcon(const Pixmap& icon) = 0;
    virtual void SetTip(const std::u16string& tip) = 0;
    // icon: 0 none, 1 information, 2 warning, 3 error.
    virtual void ShowBalloon(const std::u16string& title, const std::u16string& text,
                             std::int32_t icon) = 0;
    virtual void Hide() = 0;
};

class Toolkit {
  public:
    virtual ~Toolkit() = default;

    // A hidden window.
    virtual std::unique_ptr<ToolkitWindow> MakeWindow(ControlListener& listener) = 0;
    // A control on a window, hidden, in its template's look. The listener must outlive the control.
    virtual std::unique_ptr<ToolkitControl> MakeControl(ControlClass which, ToolkitWindow& window,
                                                        ControlListener& listener) = 0;
    // The dialogs object (members FileName, Filter, Flags, DialogTitle, Color, FontName …, Cancel; calls
    // ShowOpen, ShowSave, ShowDir, ShowColor, ShowFont, ShowPrinter), and the printer object.
    virtual std::unique_ptr<MemberSurface> MakeDialogs() = 0;
    virtual std::unique_ptr<MemberSurface> MakePrinter() = 0;
    virtual TrayIcon& Tray() = 0;
    // The window of the script that has the keyboard; nullptr when another program has it.
    virtual ToolkitWindow* ActiveWindow() = 0;
    // The size of the screen without panels, in pixels.
    virtual PixelBox WorkArea() = 0;
    // The colour of the desktop with a number from 0 to 24, as a pixel 0x00BBGGRR.
    virtual std::uint32_t SystemColor(std::int32_t number) = 0;
    // An image file in any format that the toolkit reads; a pixel without colour is kTransparentPixel.
    // Throws Failure(53) for no such file, 481 for one that is no picture.
    virtual Pixmap LoadPicture(const std::u16string& path) = 0;
    // The index-th image of an icon file, the one nearest to 16 (small) or 32 pixels.
    virtual Pixmap LoadIcon(const std::u16string& path, std::int32_t index, bool isSmall) = 0;
    // Delivers what waits. Called on every pass of a loop: it must be quick when nothing waits.
    virtual void Pump() = 0;
};

// The toolkit in force, started at the first call. Throws Failure(438) when there is none: no toolkit
// library, or no way to open a display.
Toolkit& TheToolkit();
// Whether TheToolkit has been started; a pump looks here first.
bool HasToolkit();
// A face or test puts its way to start a toolkit in; nullptr takes it away, and what was started is
// forgotten. What starter returns must outlive its use.
void SetToolkitStarter(Toolkit* (*starter)());

// Whether the run was stopped, so that what waits in the toolkit for its user (a modal window, a menu) is
// to end its wait. A toolkit asks about twenty times a second while it waits; without a check it is false.
bool IsWaitOver();
// The check that IsWaitOver asks; nullptr takes it away.
void SetWaitCheck(bool (*isOver)());

}  // namespace velm
