// The members that all controls and windows have.
#include <QVariant>
#include <QWidget>
#include <iterator>
#include <vector>

#include "platform/qt/qt_colors.h"
#include "platform/qt/qt_cursors.h"
#include "platform/qt/qt_fonts.h"
#include "platform/qt/qt_members.h"
#include "platform/qt/qt_tab_order.h"
#include "platform/qt/qt_wayland.h"

namespace velm {

namespace {

// Whether it would show once its window does.
bool IsVisible(QtSurface& surface) { return !surface.Widget()->isHidden(); }
void SetVisible(QtSurface& surface, bool isOn) { surface.Widget()->setVisible(isOn); }

bool IsEnabled(QtSurface& surface) {
    return !surface.Widget()->testAttribute(Qt::WA_ForceDisabled);
}
void SetEnabled(QtSurface& surface, bool isOn) { surface.Widget()->setEnabled(isOn); }

int ForeColor(QtSurface& surface) { return surface.foreColor; }
void SetForeColor(QtSurface& surface, const MemberValue& value) {
    surface.SetColors(MemberToColor(value), surface.backColor);
}

int BackColor(QtSurface& surface) { return surface.backColor; }
void SetBackColor(QtSurface& surface, const MemberValue& value) {
    surface.SetColors(surface.foreColor, MemberToColor(value));
}

int Pointer(QtSurface& surface) { return surface.pointer; }
void SetPointer(QtSurface& surface, int number) {
    surface.pointer = Within(number, 0, kOwnPointer);
    ApplyPointer(surface);
}

std::u16string PointerFile(QtSurface& surface) { return surface.pointerFile; }
void SetPointerFile(QtSurface& surface, const std::u16string& file) { LoadPointer(surface, file); }

QString Tip(QtSurface& surface) { return surface.Widget()->property("velmTip").toString(); }
// A tip is plain text, whatever it begins with.
void SetTip(QtSurface& surface, const QString& tip) {
    surface.Widget()->setProperty("velmTip", tip);
    surface.Widget()->setToolTip(
        tip.isEmpty() ? tip : QStringLiteral("<qt>%1</qt>").arg(tip.toHtmlEscaped()));
}

int TabIndex(QtSurface& surface) { return TabIndexOf(surface); }
void SetTabIndex(QtSurface& surface, int index) { MoveInTabOrder(surface, index); }

bool IsTabStop(QtSurface& surface) {
    return (surface.Widget()->focusPolicy() & Qt::TabFocus) == Qt::TabFocus;
}
void SetTabStop(QtSurface& surface, bool isOn) {
    const Qt::FocusPolicy policy = surface.Widget()->focusPolicy();
    if (policy == Qt::NoFocus) return;
    surface.Widget()->setFocusPolicy(static_cast<Qt::FocusPolicy>(
        isOn ? policy | Qt::TabFocus : policy & ~static_cast<int>(Qt::TabFocus)));
}

// 0 in front of all others, 1 behind them.
void Order(QtSurface& surface, int order) {
    if (Within(order, 0, 1) == 0) {
        surface.Widget()->raise();
    } else {
        surface.Widget()->lower();
    }
}
MemberValue CallOrder(QtSurface& surface, const MemberArguments& arguments) {
    Order(surface, arguments.empty() ? 0 : IntArgument(arguments, 0));
    return {};
}

int DropMode(QtSurface& surface) { return surface.dropMode; }
void SetDropMode(QtSurface& surface, int mode) { surface.SetDropMode(Within(mode, 0, 2)); }

QString Tag(QtSurface& surface) { return ToQString(surface.tag); }
void SetTag(QtSurface& surface, const std::u16string& tag) { surface.tag = tag; }

// Of the window of the display that shows it; 0 before there is one.
double Handle(QtSurface& surface) {
    RefuseOnWayland();
    return static_cast<double>(surface.Widget()->effectiveWinId());
}

void Focus(QtSurface& surface) {
    QWidget* window = surface.Widget()->window();
    if (window->isVisible() && !window->isActiveWindow()) window->activateWindow();
    surface.Widget()->setFocus(Qt::OtherFocusReason);
}

void Repaint(QtSurface& surface) {
    surface.Widget()->repaint();
    if (surface.Inner() != surface.Widget()) surface.Inner()->repaint();
}

constexpr QtMember kCommonMembers[] = {
    Member<IsVisible, SetVisible>(u"Visible"),
    Member<IsEnabled, SetEnabled>(u"Enabled"),
    Member<ForeColor, SetForeColor>(u"ForeColor"),
    Member<BackColor, SetBackColor>(u"BackColor"),
    Member<Pointer, SetPointer>(u"MousePointer"),
    Member<PointerFile, SetPointerFile>(u"MouseIcon"),
    Member<Tip, SetTip>(u"ToolTipText"),
    Member<TabIndex, SetTabIndex>(u"TabIndex"),
    Member<IsTabStop, SetTabStop>(u"TabStop"),
    Member<DropMode, SetDropMode>(u"OLEDropMode"),
    Member<Tag, SetTag>(u"Tag"),
    ReadOnlyMember<Handle>(u"hWnd"),
    {u"ZOrder", nullptr, WriteMember<Order>, CallOrder},
    Action<Focus>(u"SetFocus"),
    Action<Repaint>(u"Refresh"),
};

}  // namespace

QtMemberTable CommonMembers() {
    static const std::vector<QtMember> members = [] {
        std::vector<QtMember> all(std::begin(kCommonMembers), std::end(kCommonMembers));
        all.insert(all.end(), FontMembers().begin(), FontMembers().end());
        return all;
    }();
    return members;
}

}  // namespace velm
