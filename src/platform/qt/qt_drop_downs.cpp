// Drop-downs, where one picks an item, and those where one may type as well.
#include <QLineEdit>

#include "platform/qt/qt_control_classes.h"
#include "platform/qt/qt_drop_down_widget.h"
#include "platform/qt/qt_line_members.h"
#include "platform/qt/qt_list_rows.h"
#include "platform/qt/qt_members.h"

namespace velm {

namespace {

constexpr int kReadOnlyText = 383;
// The classic numbers of the two kinds.
constexpr int kEditableStyle = 0;
constexpr int kPickStyle = 2;

class BoxWidget : public QtDropDownWidget {
  public:
    using QtDropDownWidget::QtDropDownWidget;

    bool isSorted = false;
    int newIndex = -1;
};

BoxWidget& BoxOf(QtSurface& surface) { return surface.As<BoxWidget>(); }

int NewIndex(QtSurface& surface) { return BoxOf(surface).newIndex; }
bool IsSorted(QtSurface& surface) { return BoxOf(surface).isSorted; }
void SetSorted(QtSurface& surface, bool isOn) { BoxOf(surface).isSorted = isOn; }
int Style(QtSurface& surface) { return BoxOf(surface).isEditable() ? kEditableStyle : kPickStyle; }
// A drop-down has no choice of several items.
int MultiSelect(QtSurface& /*surface*/) { return 0; }

// The row behind the last one is a new one.
void SetList(QtSurface& surface, const MemberValue& value, const MemberArguments& arguments) {
    BoxWidget& box = BoxOf(surface);
    const int row = Within(IntArgument(arguments, 0), 0, box.count());
    const QString text = ToQString(MemberToText(value));
    const QtSurface::Quiet quiet(surface);
    if (row == box.count()) {
        box.InsertRow(row, text);
    } else {
        box.setItemText(row, text);
    }
}

MemberValue GetSelected(QtSurface& surface, const MemberArguments& arguments) {
    return CheckedRow(IntArgument(arguments, 0), RowCount(surface)) == ChosenRow(surface);
}
void SetSelected(QtSurface& surface, const MemberValue& value, const MemberArguments& arguments) {
    const int row = CheckedRow(IntArgument(arguments, 0), RowCount(surface));
    const bool isOn = MemberToBool(value);
    if (isOn == (row == ChosenRow(surface))) return;
    ChooseRow(surface, isOn ? row : -1);
}

// Arguments: text, row.
MemberValue AddItem(QtSurface& surface, const MemberArguments& arguments) {
    BoxWidget& box = BoxOf(surface);
    const QString text = ToQString(TextArgument(arguments, 0));
    const auto textAt = [&box](int at) { return box.itemText(at); };
    int row = box.isSorted ? SortedRow(text, box.count(), textAt) : box.count();
    if (arguments.size() > 1) row = Within(IntArgument(arguments, 1), 0, box.count());
    const QtSurface::Quiet quiet(surface);
    box.InsertRow(row, text);
    box.newIndex = row;
    return {};
}

MemberValue RemoveItem(QtSurface& surface, const MemberArguments& arguments) {
    BoxWidget& box = BoxOf(surface);
    const int row = CheckedRow(IntArgument(arguments, 0), box.count());
    const QtSurface::Quiet quiet(surface);
    box.RemoveRow(row);
    box.newIndex = -1;
    return {};
}

// The text that one edits goes as well.
void Clear(QtSurface& surface) {
    const QtSurface::Quiet quiet(surface);
    BoxWidget& box = BoxOf(surface);
    box.clear();
    if (box.isEditable()) box.clearEditText();
    box.newIndex = -1;
}

QString Text(QtSurface& surface) { return BoxOf(surface).currentText(); }
// Picks the item with this text; there must be one.
void PickText(QtSurface& surface, const QString& text) {
    if (text == Text(surface)) return;
    const int row = BoxOf(surface).findText(text, Qt::MatchFixedString);
    if (row < 0) throw Failure(kReadOnlyText);
    ChooseRow(surface, row);
}
// An item with this text is the choice from then on.
void SetText(QtSurface& surface, const QString& text) {
    BoxWidget& box = BoxOf(surface);
    if (text == box.currentText()) return;
    {
        const QtSurface::Quiet quiet(surface);
        box.setCurrentIndex(box.findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive));
        box.setEditText(text);
    }
    surface.TellChange(EventKind::kChange);
}

bool IsLocked(QtSurface& surface) { return BoxOf(surface).isLocked; }
void SetLocked(QtSurface& surface, bool isOn) {
    BoxWidget& box = BoxOf(surface);
    box.isLocked = isOn;
    if (box.isEditable()) box.lineEdit()->setReadOnly(isOn);
}

// Without a line to edit there is nothing to select.
int NoNumber(QtSurface& /*surface*/) { return 0; }
QString NoText(QtSurface& /*surface*/) { return {}; }

constexpr QtMember kItemMembers[] = {
    ReadOnlyMember<RowCount>(u"ListCount"),
    Member<ChosenRow, ChooseRow>(u"ListIndex"),
    {u"List", TextOfRow, SetList, nullptr},
    {u"Selected", GetSelected, SetSelected, nullptr},
    {u"AddItem", nullptr, nullptr, AddItem},
    {u"RemoveItem", nullptr, nullptr, RemoveItem},
    Action<Clear>(u"Clear"),
    Member<IsSorted, SetSorted>(u"Sorted"),
    ReadOnlyMember<MultiSelect>(u"MultiSelect"),
    ReadOnlyMember<NewIndex>(u"NewIndex"),
    ReadOnlyMember<Style>(u"Style"),
    Member<IsLocked, SetLocked>(u"Locked"),
};

constexpr QtMember kPickMembers[] = {
    Member<Text, PickText>(u"Text"),
    ReadOnlyMember<NoNumber>(u"SelStart"),
    ReadOnlyMember<NoNumber>(u"SelLength"),
    ReadOnlyMember<NoText>(u"SelText"),
};

// The rest is that of any line.
const std::vector<QtMember>& EditMembers() {
    static const std::vector<QtMember> members = [] {
        std::vector<QtMember> all = {Member<Text, SetText>(u"Text")};
        all.insert(all.end(), std::begin(kLineMembers), std::end(kLineMembers));
        return all;
    }();
    return members;
}

template <bool kIsEditable>
QWidget* MakeBox(QWidget* parent) {
    return new BoxWidget(parent, kIsEditable);
}
QWidget* LineOf(QWidget& widget) { return static_cast<BoxWidget&>(widget).lineEdit(); }

void StartBox(QtSurface& surface) { BoxOf(surface).Start(surface); }

// Picking an item is no change of the text; typing is one.
void StartEditable(QtSurface& surface) {
    StartBox(surface);
    QObject::connect(BoxOf(surface).lineEdit(), &QLineEdit::textEdited, &surface,
                     [&surface] { surface.TellChange(EventKind::kChange); });
}

}  // namespace

const QtControlClass kDropDownClass = {.make = MakeBox<false>,
                                       .start = StartBox,
                                       .members = kItemMembers,
                                       .foreColor = system_color::kWindowText,
                                       .backColor = system_color::kWindow,
                                       .moreMembers = kPickMembers};
const QtControlClass kEditableDropDownClass = {.make = MakeBox<true>,
                                               .start = StartEditable,
                                               .members = kItemMembers,
                                               .inner = LineOf,
                                               .foreColor = system_color::kWindowText,
                                               .backColor = system_color::kWindow,
                                               .moreMembers = EditMembers()};

}  // namespace velm
