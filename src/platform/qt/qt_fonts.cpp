// See qt_fonts.h.
#include "platform/qt/qt_fonts.h"

#include <QApplication>
#include <algorithm>
#include <cmath>

#include "platform/qt/qt_members.h"

namespace velm {

namespace {

constexpr double kPixelsPerPoint = 4.0 / 3;
constexpr double kLargestSize = 2160;
constexpr int kPointsOfControls = 9;

void Change(QtSurface& surface, void (*change)(QFont&, bool), bool isOn) {
    const QtSurface::Quiet quiet(surface);
    QFont font = surface.Widget()->font();
    change(font, isOn);
    surface.Widget()->setFont(font);
}

QString Name(QtSurface& surface) { return surface.Widget()->font().families().value(0); }
void SetName(QtSurface& surface, const QString& name) {
    const QtSurface::Quiet quiet(surface);
    QFont font = surface.Widget()->font();
    SetFamily(font, name);
    surface.Widget()->setFont(font);
}

double Size(QtSurface& surface) { return surface.fontSize; }
void SetSize(QtSurface& surface, double points) {
    CheckFontSize(points);
    const QtSurface::Quiet quiet(surface);
    surface.fontSize = points;
    QFont font = surface.Widget()->font();
    font.setPixelSize(static_cast<int>(std::max(1L, std::lround(PixelsOfPoints(points)))));
    surface.Widget()->setFont(font);
}

bool IsBold(QtSurface& surface) { return surface.Widget()->font().bold(); }
void SetBold(QtSurface& surface, bool isOn) {
    Change(
        surface, [](QFont& font, bool on) { font.setBold(on); }, isOn);
}

bool IsItalic(QtSurface& surface) { return surface.Widget()->font().italic(); }
void SetItalic(QtSurface& surface, bool isOn) {
    Change(
        surface, [](QFont& font, bool on) { font.setItalic(on); }, isOn);
}

bool IsUnderlined(QtSurface& surface) { return surface.Widget()->font().underline(); }
void SetUnderline(QtSurface& surface, bool isOn) {
    Change(
        surface, [](QFont& font, bool on) { font.setUnderline(on); }, isOn);
}

bool IsStruck(QtSurface& surface) { return surface.Widget()->font().strikeOut(); }
void SetStruck(QtSurface& surface, bool isOn) {
    Change(
        surface, [](QFont& font, bool on) { font.setStrikeOut(on); }, isOn);
}

// Text is Unicode, so that the number means nothing to the toolkit.
int Charset(QtSurface& surface) { return surface.fontCharset; }
void SetCharset(QtSurface& surface, int number) { surface.fontCharset = Within(number, 0, 255); }

constexpr QtMember kFontMembers[] = {
    Member<Name, SetName>(u"FontName"),
    Member<Size, SetSize>(u"FontSize"),
    Member<IsBold, SetBold>(u"FontBold"),
    Member<IsItalic, SetItalic>(u"FontItalic"),
    Member<IsUnderlined, SetUnderline>(u"FontUnderline"),
    Member<IsStruck, SetStruck>(u"FontStrikethru"),
    Member<IsStruck, SetStruck>(u"FontStrikethrough"),
    Member<Charset, SetCharset>(u"FontCharset"),
    Member<Name, SetName>(u"Font.Name"),
    Member<Size, SetSize>(u"Font.Size"),
    Member<IsBold, SetBold>(u"Font.Bold"),
    Member<IsItalic, SetItalic>(u"Font.Italic"),
    Member<IsUnderlined, SetUnderline>(u"Font.Underline"),
    Member<IsStruck, SetStruck>(u"Font.Strikethrough"),
    Member<Charset, SetCharset>(u"Font.Charset"),
};

QFont MakeControlFont() {
    QFont font = QApplication::font();
    font.setFamilies(font.families());
    font.setPixelSize(static_cast<int>(std::lround(PixelsOfPoints(kPointsOfControls))));
    font.setBold(false);
    font.setItalic(false);
    font.setUnderline(false);
    font.setStrikeOut(false);
    return font;
}

}  // namespace

const QFont& ControlFont() {
    static const QFont font = MakeControlFont();
    return font;
}

int LinePitch(const QFont& font) { return std::max(1, font.pixelSize()); }

int LineBase(const QFont& font) {
    constexpr double kBase = 0.86;
    return static_cast<int>(kBase * LinePitch(font));
}

QtMemberTable FontMembers() { return kFontMembers; }

void SetFamily(QFont& font, const QString& family) {
    QStringList families = ControlFont().families();
    families.removeAll(family);
    families.prepend(family);
    font.setFamilies(families);
}

double PixelsOfPoints(double points) { return points * kPixelsPerPoint; }

void CheckFontSize(double points) {
    if (!(points > 0 && points <= kLargestSize)) throw Failure(failure::kBadCall);
}

}  // namespace velm
