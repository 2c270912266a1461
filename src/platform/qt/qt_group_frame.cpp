// The frame: a box with a caption, in which other controls stand.
#include <QGroupBox>

#include "platform/qt/qt_control_classes.h"
#include "platform/qt/qt_members.h"

namespace velm {

namespace {

QString Caption(QtSurface& surface) { return surface.As<QGroupBox>().title(); }
void SetCaption(QtSurface& surface, const QString& caption) {
    surface.As<QGroupBox>().setTitle(caption);
    surface.Widget()->setAccessibleName(caption);
}

bool HasBorder(QtSurface& surface) { return !surface.As<QGroupBox>().isFlat(); }
void SetBorder(QtSurface& surface, bool isOn) { surface.As<QGroupBox>().setFlat(!isOn); }

constexpr QtMember kFrameMembers[] = {
    Member<Caption, SetCaption>(u"Caption"),
    Member<HasBorder, SetBorder>(u"BorderStyle"),
};

QWidget* MakeFrame(QWidget* parent) { return new QGroupBox(parent); }

void StartFrame(QtSurface& surface) {
    surface.tellsClicks = true;
    surface.UsePalette(QPalette::WindowText, QPalette::Window);
}

}  // namespace

const QtControlClass kFrameClass = {
    .make = MakeFrame, .start = StartFrame, .members = kFrameMembers, .isContainer = true};

}  // namespace velm
