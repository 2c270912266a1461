// Lists of items, of which one or several may be chosen.
#include "platform/qt/qt_control_classes.h"
#include "platform/qt/qt_list_rows.h"
#include "platform/qt/qt_list_widget.h"
#include "platform/qt/qt_members.h"

namespace velm {

namespace {

class ListWidget : public QtListWidget {
  public:
    using QtListWidget::QtListWidget;

    bool isSorted = false;
    int newIndex = -1;
};

ListWidget& ListOf(QtSurface& surface) { return surface.As<ListWidget>(); }

int ListCount(QtSurface& surface) { return ListOf(surface).count(); }
int NewIndex(QtSurface& surface) { return ListOf(surface).newIndex; }
bool IsSorted(QtSurface& surface) { return ListOf(surface).isSorted; }
void SetSorted(QtSurface& surface, bool isOn) { ListOf(surface).isSorted = isOn; }

int ListIndex(QtSurface& surface) { return ListOf(surface).ChosenRow(); }
// Tells of a click when another row is chosen.
void SetListIndex(QtSurface& surface, int row) {
    ListWidget& list = ListOf(surface);
    Within(row, -1, list.count() - 1);
    if (list.ChosenRow() == row) return;
    {
        const QtSurface::Quiet quiet(surface);
        list.ChooseRow(row);
    }
    surface.TellChange(EventKind::kClick);
}

int MultiSelect(QtSurface& surface) { return ListOf(surface).MultiSelect(); }
void SetMultiSelect(QtSurface& surface, int mode) {
    const QtSurface::Quiet quiet(surface);
    ListOf(surface).SetMultiSelect(Within(mode, 0, 2));
}

// A row that isn't there has no text.
MemberValue GetList(QtSurface& surface, const MemberArguments& arguments) {
    const QListWidgetItem* item = ListOf(surface).item(IntArgument(arguments, 0));
    return item == nullptr ? std::u16string() : FromQString(item->text());
}
// The row behind the last one is a new one.
void SetList(QtSurface& surface, const MemberValue& value, const MemberArguments& arguments) {
    ListWidget& list = ListOf(surface);
    const int row = Within(IntArgument(arguments, 0), 0, list.count());
    const QString text = ToQString(MemberToText(value));
    const QtSurface::Quiet quiet(surface);
    if (row == list.count()) {
        list.addItem(text);
    } else {
        list.item(row)->setText(text);
    }
}

MemberValue GetSelected(QtSurface& surface, const MemberArguments& arguments) {
    ListWidget& list = ListOf(surface);
    return list.item(CheckedRow(IntArgument(arguments, 0), list.count()))->isSelected();
}
void SetSelected(QtSurface& surface, const MemberValue& value, const MemberArguments& arguments) {
    ListWidget& list = ListOf(surface);
    const int row = CheckedRow(IntArgument(arguments, 0), list.count());
    const bool isOn = MemberToBool(value);
    if (list.item(row)->isSelected() == isOn) return;
    if (list.MultiSelect() == 0) return SetListIndex(surface, isOn ? row : -1);
    {
        const QtSurface::Quiet quiet(surface);
        list.ChooseRow(row);
        list.item(row)->setSelected(isOn);
    }
    surface.TellChange(EventKind::kClick);
}

QString Text(QtSurface& surface) {
    const QListWidgetItem* item = ListOf(surface).item(ListIndex(surface));
    return item == nullptr ? QString() : item->text();
}
// Chooses the row with this text; without one the choice stays.
void SetText(QtSurface& surface, const QString& text) {
    ListWidget& list = ListOf(surface);
    const QList<QListWidgetItem*> found = list.findItems(text, Qt::MatchFixedString);
    if (!found.empty()) SetListIndex(surface, list.row(found.first()));
}

int SelCount(QtSurface& surface) {
    return static_cast<int>(ListOf(surface).selectionModel()->selectedRows().size());
}

// Arguments: text, row.
MemberValue AddItem(QtSurface& surface, const MemberArguments& arguments) {
    ListWidget& list = ListOf(surface);
    const QString text = ToQString(TextArgument(arguments, 0));
    const auto textAt = [&list](int at) { return list.item(at)->text(); };
    int row = list.isSorted ? SortedRow(text, list.count(), textAt) : list.count();
    if (arguments.size() > 1) row = Within(IntArgument(arguments, 1), 0, list.count());
    const QtSurface::Quiet quiet(surface);
    list.insertItem(row, text);
    list.newIndex = row;
    return {};
}

// The toolkit would choose a neighbour in its place.
MemberValue RemoveItem(QtSurface& surface, const MemberArguments& arguments) {
    ListWidget& list = ListOf(surface);
    const int row = CheckedRow(IntArgument(arguments, 0), list.count());
    const QtSurface::Quiet quiet(surface);
    if (list.MultiSelect() == 0 && list.currentRow() == row) list.ChooseRow(-1);
    delete list.takeItem(row);
    list.newIndex = -1;
    return {};
}

void Clear(QtSurface& surface) {
    const QtSurface::Quiet quiet(surface);
    ListOf(surface).clear();
    ListOf(surface).newIndex = -1;
}

constexpr QtMember kListMembers[] = {
    ReadOnlyMember<ListCount>(u"ListCount"),
    Member<ListIndex, SetListIndex>(u"ListIndex"),
    {u"List", GetList, SetList, nullptr},
    {u"Selected", GetSelected, SetSelected, nullptr},
    {u"AddItem", nullptr, nullptr, AddItem},
    {u"RemoveItem", nullptr, nullptr, RemoveItem},
    Action<Clear>(u"Clear"),
    Member<Text, SetText>(u"Text"),
    Member<IsSorted, SetSorted>(u"Sorted"),
    Member<MultiSelect, SetMultiSelect>(u"MultiSelect"),
    Member<TopIndex, SetTopIndex>(u"TopIndex"),
    ReadOnlyMember<NewIndex>(u"NewIndex"),
    ReadOnlyMember<SelCount>(u"SelCount"),
};

QWidget* MakeList(QWidget* parent) { return new ListWidget(parent); }
QWidget* ViewportOf(QWidget& widget) { return static_cast<ListWidget&>(widget).viewport(); }
void StartList(QtSurface& surface) { ListOf(surface).Start(surface); }

}  // namespace

const QtControlClass kListClass = {.make = MakeList,
                                   .start = StartList,
                                   .members = kListMembers,
                                   .inner = ViewportOf,
                                   .foreColor = system_color::kWindowText,
                                   .backColor = system_color::kWindow};

}  // namespace velm
