// What every window and control of ours is made of: the widget, its listener, its table of members, and
// the filter that turns the toolkit's events into ours.
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>
#include <cstdint>
#include <functional>
#include <span>
#include <string_view>
#include <vector>

#include "platform/toolkit.h"

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

// Owns its widget. The end of the surface hides the widget at once and deletes it when no event of the
// toolkit can be on the stack any more.
class QtSurface : public QObject {
  public:
    // The tables are looked through in their order; the last one is usually the common one. `inner` is
    // the widget that gets mouse and keyboard where it isn't the outer one (a viewport, a line edit).
    QtSurface(QWidget* widget, ControlListener& listener, std::vector<QtMemberTable> tables,
              QWidget* inner = nullptr);
    ~QtSurface() override;
    QtSurface(const QtSurface&) = delete;
    QtSurface& operator=(const QtSurface&) = delete;

    MemberValue Get(std::u16string_view member, const MemberArguments& arguments);
    void Set(std::u16string_view member, const MemberValue& value,
             const MemberArguments& arguments);
    MemberValue Call(std::u16string_view member, const MemberArguments& arguments);

    QWidget* Widget() const { return widget_; }
    template <class W>
    W& As() const {
        return *static_cast<W*>(static_cast<QWidget*>(widget_));
    }
    QWidget* Inner() const { return inner_; }

    // Tells the listener; false when there is none any more. The surface may be gone afterwards: whoever
    // goes on looks at a QPointer of it first.
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

    // Left and top within the container, or the frame on the screen of a window.
    PixelBox Geometry() const;
    void SetGeometry(const PixelBox& box);

    // What a class keeps beside the widget (a mask colour, a tag of its own).
    std::int32_t pointer = 0;           // number of the mouse pointer
    std::u16string pointerFile;         // of a pointer of the script's own
    std::int32_t dropMode = 1;          // 0: takes no drops
    std::int32_t maskColor = 0xC0C0C0;  // with useMaskColor: transparent in the picture
    bool useMaskColor = false;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QPointer<QWidget> widget_;
    QPointer<QWidget> inner_;
    ControlListener* listener_;
    std::vector<QtMemberTable> tables_;
    int quiet_ = 0;

    const QtMember* Find(std::u16string_view member) const;
};

// The members that all controls and windows have: Visible, Enabled, ForeColor, BackColor, Font…,
// MousePointer, MouseIcon, ToolTipText, TabIndex, TabStop, ZOrder, SetFocus, Refresh, OLEDropMode, hWnd …
QtMemberTable CommonMembers();

}  // namespace velm
