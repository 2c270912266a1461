// Fonts of controls. Their sizes are points of which one is 4/3 pixels of the script, as those of the
// controls are, whatever resolution the display tells.
#pragma once

#include <QFont>

#include "platform/qt/qt_surface.h"

namespace velm {

// The application's family in 9 points. No property of it is taken over from what a control stands in.
const QFont& ControlFont();

// The height of a line in pixels: the size of the font alone, since the leading of the Japanese fonts of
// today has no room in controls of the classic sizes.
int LinePitch(const QFont& font);
// From the upper edge of a line to its base line.
int LineBase(const QFont& font);

// FontName, FontSize, FontBold …, also as Font.Name, Font.Size …
QtMemberTable FontMembers();

// A font of the family; what it lacks comes from the application's own.
void SetFamily(QFont& font, const QString& family);
// In pixels of the script.
double PixelsOfPoints(double points);
// Throws Failure(5) for a size that no font can have.
void CheckFontSize(double points);

}  // namespace velm
