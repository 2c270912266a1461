// The members of windows beside those that all controls have.
#include <QWindow>
#include <iterator>

#include "data/failure.h"
#include "platform/qt/qt_canvas_view.h"
#include "platform/qt/qt_printer.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/qt_wayland.h"
#include "platform/qt/qt_window.h"

namespace velm {

namespace {

constexpr std::int32_t kLastKind = 5;
constexpr std::int32_t kOpaque = 255;

using Arguments = MemberArguments;

QtWindow& WindowOf(QtSurface& surface) {
    QtWindow* window = QtWindow::Of(surface.Widget());
    if (window == nullptr) throw Failure(failure::kNothingThere);
    return *window;
}

MemberValue GetCaption(QtSurface& surface, const Arguments&) { return WindowOf(surface).caption; }

void SetCaption(QtSurface& surface, const MemberValue& value, const Arguments&) {
    QtWindow& window = WindowOf(surface);
    window.caption = MemberToText(value);
    QString title = ToTitle(window.caption);
    // The toolkit's mark of a changed document; doubled it is itself.
    title.replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));
    surface.Widget()->setWindowTitle(title);
}

MemberValue GetVisible(QtSurface& surface, const Arguments&) {
    return surface.Widget()->isVisible();
}

void SetVisible(QtSurface& surface, const MemberValue& value, const Arguments&) {
    if (MemberToBool(value)) {
        WindowOf(surface).Show(false);
    } else {
        WindowOf(surface).Hide();
    }
}

MemberValue GetState(QtSurface& surface, const Arguments&) {
    return static_cast<double>(WindowOf(surface).State());
}

void SetState(QtSurface& surface, const MemberValue& value, const Arguments&) {
    WindowOf(surface).SetState(MemberToInt(value));
}

MemberValue GetKind(QtSurface& surface, const Arguments&) {
    return static_cast<double>(WindowOf(surface).Style().kind);
}

void SetKind(QtSurface& surface, const MemberValue& value, const Arguments&) {
    const std::int32_t kind = MemberToInt(value);
    if (kind < 0 || kind > kLastKind) throw Failure(failure::kBadCall);
    QtWindow& window = WindowOf(surface);
    QtWindowStyle style = window.Style();
    style.kind = kind;
    window.SetStyle(style);
}

template <bool QtWindowStyle::*Flag>
MemberValue GetFlag(QtSurface& surface, const Arguments&) {
    return WindowOf(surface).Style().*Flag;
}

template <bool QtWindowStyle::*Flag>
void SetFlag(QtSurface& surface, const MemberValue& value, const Arguments&) {
    QtWindow& window = WindowOf(surface);
    QtWindowStyle style = window.Style();
    style.*Flag = MemberToBool(value);
    window.SetStyle(style);
}

void SetTopMost(QtSurface& surface, const MemberValue& value, const Arguments& arguments) {
    if (MemberToBool(value)) RefuseOnWayland();
    SetFlag<&QtWindowStyle::isTopMost>(surface, value, arguments);
}

MemberValue GetMoveable(QtSurface&, const Arguments&) { return true; }

// No desktop here lets a program nail its windows down.
void SetMoveable(QtSurface&, const MemberValue& value, const Arguments&) {
    if (!MemberToBool(value)) throw Failure(failure::kNoSuchMember);
}

MemberValue GetAlpha(QtSurface& surface, const Arguments&) {
    return static_cast<double>(WindowOf(surface).alpha);
}

void SetAlpha(QtSurface& surface, const MemberValue& value, const Arguments&) {
    const std::int32_t alpha = MemberToInt(value);
    if (alpha < 0 || alpha > kOpaque) throw Failure(failure::kBadCall);
    if (alpha != kOpaque) RefuseOnWayland();
    WindowOf(surface).alpha = alpha;
    surface.Widget()->setWindowOpacity(static_cast<double>(alpha) / kOpaque);
}

MemberValue GetTaskbar(QtSurface& surface, const Arguments&) {
    return WindowOf(surface).isInTaskbar;
}

void SetTaskbar(QtSurface& surface, const MemberValue& value, const Arguments&) {
    QtWindow& window = WindowOf(surface);
    const bool before = window.isInTaskbar;
    window.isInTaskbar = MemberToBool(value);
    try {
        window.ShowTaskbarState();
    } catch (const Failure&) {
        window.isInTaskbar = before;
        throw;
    }
}

MemberValue GetClip(QtSurface& surface, const Arguments&) {
    return WindowOf(surface).clipsControls;
}

// Drawing never reaches the controls here, so that the flag is only remembered.
void SetClip(QtSurface& surface, const MemberValue& value, const Arguments&) {
    WindowOf(surface).clipsControls = MemberToBool(value);
}

MemberValue CallShow(QtSurface& surface, const Arguments& arguments) {
    WindowOf(surface).Show(!arguments.empty() && MemberToBool(arguments[0]));
    return {};
}

MemberValue CallHide(QtSurface& surface, const Arguments&) {
    WindowOf(surface).Hide();
    return {};
}

MemberValue CallUnload(QtSurface& surface, const Arguments&) {
    WindowOf(surface).Close(false);
    return {};
}

MemberValue CallSetFocus(QtSurface& surface, const Arguments&) {
    WindowOf(surface).SetFocus();
    return {};
}

// Argument: 0 or none to the front, 1 to the back.
MemberValue CallZOrder(QtSurface& surface, const Arguments& arguments) {
    const bool toBack = !arguments.empty() && MemberToInt(arguments[0]) != 0;
    if (toBack) {
        surface.Widget()->lower();
    } else {
        surface.Widget()->raise();
    }
    return {};
}

MemberValue CallPrintForm(QtSurface& surface, const Arguments&) {
    PrintWidget(WindowOf(surface).Client());
    return {};
}

MemberValue CallStartMove(QtSurface& surface, const Arguments&) {
    WindowOf(surface).StartMove();
    return {};
}

constexpr QtMember kMembers[] = {
    {u"Caption", GetCaption, SetCaption, nullptr},
    {u"Visible", GetVisible, SetVisible, nullptr},
    {u"WindowState", GetState, SetState, nullptr},
    {u"Kind", GetKind, SetKind, nullptr},
    {u"Moveable", GetMoveable, SetMoveable, nullptr},
    {u"Alpha", GetAlpha, SetAlpha, nullptr},
    {u"TopMost", GetFlag<&QtWindowStyle::isTopMost>, SetTopMost, nullptr},
    {u"ShowInTaskbar", GetTaskbar, SetTaskbar, nullptr},
    {u"MinButton", GetFlag<&QtWindowStyle::hasMinButton>, SetFlag<&QtWindowStyle::hasMinButton>,
     nullptr},
    {u"MaxButton", GetFlag<&QtWindowStyle::hasMaxButton>, SetFlag<&QtWindowStyle::hasMaxButton>,
     nullptr},
    {u"ControlBox", GetFlag<&QtWindowStyle::hasControlBox>, SetFlag<&QtWindowStyle::hasControlBox>,
     nullptr},
    {u"ClipControls", GetClip, SetClip, nullptr},
    {u"Show", nullptr, nullptr, CallShow},
    {u"Hide", nullptr, nullptr, CallHide},
    {u"Unload", nullptr, nullptr, CallUnload},
    {u"SetFocus", nullptr, nullptr, CallSetFocus},
    {u"ZOrder", nullptr, nullptr, CallZOrder},
    {u"PrintForm", nullptr, nullptr, CallPrintForm},
    {u"StartMove", nullptr, nullptr, CallStartMove},
};

}  // namespace

QtMemberTable WindowMembers() { return kMembers; }

}  // namespace velm
