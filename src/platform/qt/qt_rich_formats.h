// What the characters of rich text have that the toolkit's formats don't: sizes in points of the script,
// and protection.
#pragma once

#include <QTextCharFormat>

namespace velm {

// The size in points; `fallback` where the text has none of its own.
double PointsOf(const QTextCharFormat& format, double fallback);
void SetPoints(QTextCharFormat& format, double points);

// The family; the empty name where the text has none of its own.
QString FamilyOf(const QTextCharFormat& format);
void SetFormatFamily(QTextCharFormat& format, const QString& family);

bool IsProtected(const QTextCharFormat& format);
void SetProtected(QTextCharFormat& format, bool isOn);

}  // namespace velm
