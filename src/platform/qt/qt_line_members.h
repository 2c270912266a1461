// Members of a text of one line: a box by itself, or the part of a drop-down where one types. The inner
// widget of the surface is the line.
#pragma once

#include <QLineEdit>

#include "platform/qt/qt_surface.h"

namespace velm {

// Text, SelStart, SelLength, SelText, PasswordChar, Locked, MaxLength, IMEMode, Alignment, Undo.
extern const QtMember kLineMembers[10];

// Before the line has a surface: no limit to its length, and the whole height for its text.
void SetUpLine(QLineEdit& line);
// Tells of every change of the text.
void TellLineChanges(QtSurface& surface, QLineEdit& line);

// 0 left, 1 right, 2 middle. Throws Failure(5) for another number.
Qt::Alignment AlignmentOfNumber(int number);
int NumberOfAlignment(Qt::Alignment alignment);

}  // namespace velm
