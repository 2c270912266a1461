// The list of drives, with their labels.
#include <string>

#include "platform/drives.h"
#include "platform/qt/qt_control_classes.h"
#include "platform/qt/qt_drop_down_widget.h"
#include "platform/qt/qt_members.h"

namespace velm {

namespace {

// "c:", or "c: [label]".
QString NameOfDrive(char16_t letter) {
    const DriveInfo drive = ReadDrive(letter);
    QString name = QString(QChar(letter).toLower()) + QLatin1Char(':');
    if (!drive.label.empty()) name += QStringLiteral(" [%1]").arg(ToQString(drive.label));
    return name;
}

void Fill(QtSurface& surface) {
    const QtSurface::Quiet quiet(surface);
    auto& box = surface.As<QtDropDownWidget>();
    box.clear();
    for (char16_t letter = u'A'; letter <= u'Z'; ++letter) {
        // A letter without a drive is no failure here.
        try {
            box.InsertRow(box.count(), NameOfDrive(letter));
        } catch (const Failure&) {
        }
    }
}

int RowOfDrive(const QtDropDownWidget& box, QChar letter) {
    return box.findText(QString(letter) + QLatin1Char(':'), Qt::MatchStartsWith);
}

QString Drive(QtSurface& surface) { return surface.As<QtDropDownWidget>().currentText(); }
// The first letter counts. Throws Failure(68) for a drive that isn't there.
void SetDrive(QtSurface& surface, const QString& text) {
    if (text.isEmpty()) throw Failure(failure::kBadCall);
    const int row = RowOfDrive(surface.As<QtDropDownWidget>(), text.at(0));
    if (row < 0) throw Failure(failure::kDeviceUnavailable);
    ChooseRow(surface, row);
}

void Refresh(QtSurface& surface) {
    const QString drive = Drive(surface);
    Fill(surface);
    auto& box = surface.As<QtDropDownWidget>();
    const QtSurface::Quiet quiet(surface);
    box.ChooseRow(drive.isEmpty() ? 0 : RowOfDrive(box, drive.at(0)));
}

constexpr QtMember kDriveListMembers[] = {
    Member<Drive, SetDrive>(u"Drive"),
    ReadOnlyMember<RowCount>(u"ListCount"),
    Member<ChosenRow, ChooseRow>(u"ListIndex"),
    {u"List", TextOfRow, nullptr, nullptr},
    ReadOnlyMember<Drive>(u"Text"),
    Action<Refresh>(u"Refresh"),
};

QWidget* MakeDriveList(QWidget* parent) { return new QtDropDownWidget(parent, false); }

void StartDriveList(QtSurface& surface) {
    auto& box = surface.As<QtDropDownWidget>();
    box.Start(surface);
    Fill(surface);
    // The drive of the current folder, which has a letter as any other.
    box.ChooseRow(RowOfDrive(box, QLatin1Char('C')));
}

}  // namespace

const QtControlClass kDriveListClass = {.make = MakeDriveList,
                                        .start = StartDriveList,
                                        .members = kDriveListMembers,
                                        .foreColor = system_color::kWindowText,
                                        .backColor = system_color::kWindow};

}  // namespace velm
