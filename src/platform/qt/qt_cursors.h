// Mouse pointers by the numbers that scripts give them.
#pragma once

#include <QCursor>
#include <cstdint>
#include <string>

namespace velm {

class QtSurface;

// The number of a pointer of the script's own.
inline constexpr std::int32_t kOwnPointer = 99;

// 0 the widget's own, 1 arrow, 2 cross, 3 text, 4 double square, 5 move, 6 to 9 sizes, 10 up, 11 wait,
// 12 forbidden, 13 busy arrow, 14 help, 15 all sizes; the arrow for other numbers.
Qt::CursorShape PointerShape(std::int32_t number);

// The picture of a cursor, icon or image file, with the hot spot that the file tells, otherwise its
// middle. Throws Failure as LoadQtPicture does.
QCursor LoadCursor(const std::u16string& path);

// Shows the pointer of a surface's number and file.
void ApplyPointer(QtSurface& surface);
// The empty name takes it away.
void LoadPointer(QtSurface& surface, const std::u16string& path);

}  // namespace velm
