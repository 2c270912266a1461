// What every window and control of ours is made of: the widget, its listener, its table of members, and
// the filter that turns the toolkit's events into ours.
#pragma once

#include <QObject>
#include <QPalette>
#include <QPointer>
#include <QWidget>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/toolkit.h"

class QDropEvent;
class QFocusEvent;
class QInputMethodEvent;
class QKeyEvent;
class QMouseEvent;

namespace velm {

class QtSurface;

// One member: what it can't do is nullptr. A row may throw Failure.
struct QtMember {
    std::u16string_view name;
    MemberValue (*get)(QtSurface& surface, const MemberArguments& arguments) = nullptr;
    void (*set)(QtSurface& surface, const MemberValue& value,
                const MemberArguments& arguments) = nullptr;
    MemberValue (*call)(QtSurface& surface, const MemberArguments& arguments) = nullptr;
};
using QtMemberTable = std::span<const QtMember>;

// Colours of the desktop as scripts number them.
namespace system_color {
constexpr std::int32_t kFirst = INT32_MIN;
constexpr std::int32_t kWindow = kFirst + 5;
constexpr std::int32_t kWindowText = kFirst + 8;
constexpr std::int32_t kButtonFace = kFirst + 15;
constexpr std::int32_t kButtonText = kFirst + 18;
}  // namespace system_color

// Owns its widget. The end of the surface hides the widget at once and deletes it when no event of the
// toolkit can be on the stack any more.
class QtSurface : public QObject {
  public:
    // The tables are looked through in their order; the last one is usually the common one. `inner` is
    // the widget that gets mouse and keyboard where it isn't the outer one (a viewport, a line edit).
    // A widget that is no window starts hidden and with the font of controls.
    QtSurface(QWidget* widget, ControlListener& listener, std::vector<QtMemberTable> tables,
              QWidget* inner = nullptr);
    ~QtSurface() override;
    QtSurface(const QtSurface&) = delete;
    QtSurface& operator=(const QtSurface&) = delete;

    // The surface that a widget, or one of those that it stands in, belongs to; nullptr for none.
    static QtSurface* Of(const QWidget* widget);
    // The same for the widget alone.
    static QtSurface* OfWidget(const QWidget* widget);

    // Besides what a row throws: 438 for no such member, 91 when the widget has gone with its parent.
    MemberValue Get(std::u16string_view member, const MemberArguments& arguments);
    void Set(std::u16string_view member, const MemberValue& value,
             const MemberArguments& arguments);
    MemberValue Call(std::u16string_view member, const MemberArguments& arguments);

    QWidget* Widget() const { return widget_; }
    template <class W>
    W& As() const {
        return *static_cast<W*>(widget_.data());
    }
    // The outer widget where there is no other.
    QWidget* Inner() const { return inner_; }

    // Tells the listener; false when there is none any more. The surface may be gone afterwards: whoever
    // goes on looks at a QPointer of it first. The filter tells mouse, keys, focus and drops; everything
    // else (sizes among it) is told by the class of the widget.
    bool Tell(const ControlEvent& event);
    bool Tell(EventKind kind);
    // While it lives, changes that the runtime itself makes tell nothing.
    class Quiet {
      public:
        explicit Quiet(QtSurface& surface) : surface_(&surface) { ++surface.quiet_; }
        ~Quiet() {
            if (surface_ != nullptr) --surface_->quiet_;
        }
        Quiet(const Quiet&) = delete;
        Quiet& operator=(const Quiet&) = delete;

      private:
        QPointer<QtSurface> surface_;
    };
    bool IsQuiet() const { return quiet_ != 0; }
    // Tells unless quiet.
    void TellChange(EventKind kind);

    // Left and top within the container, or the frame on the screen of a window.
    PixelBox Geometry() const;
    void SetGeometry(const PixelBox& box);

    // Lets the palette follow the colours below, where the widget is painted by the toolkit's style;
    // others paint with the colours themselves.
    void UsePalette(QPalette::ColorRole foreground, QPalette::ColorRole background);
    void SetColors(std::int32_t foreground, std::int32_t background);
    void SetDropMode(std::int32_t mode);

    // What the members keep beside the widget.
    std::int32_t pointer = 0;           // number of the mouse pointer
    std::u16string pointerFile;         // of a pointer of the script's own
    std::int32_t dropMode = 1;          // 0: takes no drops, 2: the widget takes them itself
    std::int32_t maskColor = 0xC0C0C0;  // with useMaskColor: transparent in the picture
    bool useMaskColor = false;
    std::int32_t foreColor = system_color::kButtonText;
    std::int32_t backColor = system_color::kButtonFace;
    double fontSize = 9;  // points, where one is 4/3 pixels of the script
    std::int32_t fontCharset = 128;
    std::u16string tag;
    std::uint64_t tabOrder;  // rises from control to control within a window
    // Called before a left release on the widget is told: what it chooses is chosen by then.
    void (*beforeRelease)(QtSurface& surface) = nullptr;
    bool tellsClicks = false;           // the filter makes clicks of the left button
    bool tellsDoubleClicks = true;      // otherwise a second press is one more press
    bool isPlacedByInner = false;       // places are told from the corner of the inner widget
    ToolkitControl* control = nullptr;  // whose surface it is

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QPointer<QWidget> widget_;
    QPointer<QWidget> inner_;
    ControlListener* listener_;
    std::vector<QtMemberTable> tables_;
    const QWidget* key_;   // in the list of surfaces; the widget may be gone
    std::uint64_t birth_;  // see RemoveWhenFree
    QPalette::ColorRole foreground_ = QPalette::NoRole;
    QPalette::ColorRole background_ = QPalette::NoRole;
    int quiet_ = 0;
    bool isPressed_ = false;
    bool isDoubleClick_ = false;
    bool isComposing_ = false;
    bool hasFocus_ = false;
    static int ending_;  // while a surface ends, what gets the keyboard from it tells nothing

    const QtMember* Find(std::u16string_view member) const;
    void RemoveWidget();
    QWidget& Place() const;
    QPointF PlaceIn(const QWidget& at, QPointF position) const;
    bool OnMouse(QWidget& at, const QMouseEvent& event);
    bool OnRelease(const ControlEvent& told);
    bool OnKey(QWidget& at, const QKeyEvent& event);
    bool OnKeyDown(const QKeyEvent& event);
    bool OnInputMethod(QInputMethodEvent& event);
    void OnFocus(const QFocusEvent& event);
    bool OnDrag(QWidget& at, QDropEvent& event, EventKind kind);
};

// The members that all controls and windows have: Visible, Enabled, ForeColor, BackColor, Font…,
// MousePointer, MouseIcon, ToolTipText, TabIndex, TabStop, ZOrder, SetFocus, Refresh, OLEDropMode, hWnd …
QtMemberTable CommonMembers();

}  // namespace velm
