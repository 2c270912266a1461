// The pictures of a message box, drawn for the screen's own resolution: the toolkit's are bitmaps of
// one size.
#pragma once

#include <QPixmap>

namespace velm {

// The picture for the icon bits of a style (platform/dialogs.h), `size` logical pixels wide and high
// with `ratio` device pixels each; a null picture for bits that are no icon.
QPixmap BoxIcon(int icon, int size, double ratio);

// What a screen reader says for it; empty for bits that are no icon.
QString BoxIconName(int icon);

}  // namespace velm
