// See qt_rich_formats.h.
#include "platform/qt/qt_rich_formats.h"

#include <algorithm>
#include <cmath>

#include "platform/qt/qt_fonts.h"

namespace velm {

namespace {

constexpr int kPointsProperty = QTextFormat::UserProperty + 1;
constexpr int kProtectedProperty = QTextFormat::UserProperty + 2;

}  // namespace

double PointsOf(const QTextCharFormat& format, double fallback) {
    return format.hasProperty(kPointsProperty) ? format.doubleProperty(kPointsProperty) : fallback;
}

void SetPoints(QTextCharFormat& format, double points) {
    CheckFontSize(points);
    format.setProperty(kPointsProperty, points);
    format.setProperty(QTextFormat::FontPixelSize,
                       static_cast<int>(std::max(1L, std::lround(PixelsOfPoints(points)))));
}

QString FamilyOf(const QTextCharFormat& format) {
    return format.fontFamilies().toStringList().value(0);
}

void SetFormatFamily(QTextCharFormat& format, const QString& family) {
    QFont font;
    SetFamily(font, family);
    format.setFontFamilies(font.families());
}

bool IsProtected(const QTextCharFormat& format) { return format.boolProperty(kProtectedProperty); }

void SetProtected(QTextCharFormat& format, bool isOn) {
    format.setProperty(kProtectedProperty, isOn);
}

}  // namespace velm
