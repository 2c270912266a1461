// The list of folders: those on the way to the current one, from the drive on, and those in it.
#include <algorithm>
#include <filesystem>
#include <vector>

#include "data/text.h"
#include "platform/files.h"
#include "platform/qt/qt_control_classes.h"
#include "platform/qt/qt_list_rows.h"
#include "platform/qt/qt_list_widget.h"
#include "platform/qt/qt_members.h"

namespace velm {

namespace {

class FolderWidget : public QtListWidget {
  public:
    using QtListWidget::QtListWidget;

    std::u16string path;
    std::vector<std::u16string> folders;  // the whole paths of the rows
    int way = 0;                          // rows of the drive down to the folder

    // The folder has the number -1, those above it count on downwards, those in it upwards from 0.
    int NumberOfRow(int row) const { return row - way; }
    int RowOfNumber(int number) const { return number + way; }

    void AddRow(std::u16string_view name, std::u16string folder, int depth) {
        auto* row = new QListWidgetItem(ToQString(name));
        row->setData(kDepthRole, depth);
        addItem(row);
        folders.push_back(std::move(folder));
    }
};

FolderWidget& ListOf(QtSurface& surface) { return surface.As<FolderWidget>(); }

std::u16string PathIn(std::u16string_view folder, std::u16string_view name) {
    std::u16string path(folder);
    if (!path.ends_with(u'\\')) path += u'\\';
    path += name;
    return path;
}

std::vector<std::u16string> FoldersIn(std::u16string_view folder) {
    std::vector<std::u16string> names;
    // Of a folder that can't be read nothing shows.
    const PendingFailure before = pendingFailure;
    const bool isRead = Attempt([&] {
        for (const FolderEntry& entry : ListFolder(folder)) {
            const bool isHidden = (entry.info.attributes & attribute::kHidden) != 0;
            if (entry.info.kind == EntryKind::kFolder && !isHidden) names.push_back(entry.name);
        }
    });
    if (!isRead) pendingFailure = before;
    return names;
}

// path: an absolute one of a folder that is there.
void Fill(QtSurface& surface, const std::u16string& path) {
    const QtSurface::Quiet quiet(surface);
    FolderWidget& list = ListOf(surface);
    list.clear();
    list.folders.clear();
    list.path = path;
    std::u16string folder;
    int depth = 0;
    for (const std::u16string_view name : Split(path, u"\\")) {
        if (name.empty()) continue;
        folder = depth == 0 ? std::u16string(name) + u"\\" : PathIn(folder, name);
        list.AddRow(depth == 0 ? std::u16string_view(folder) : name, folder, depth);
        ++depth;
    }
    list.way = depth;
    for (const std::u16string& name : FoldersIn(path)) list.AddRow(name, PathIn(path, name), depth);
    list.ChooseRow(list.RowOfNumber(-1));
}

// From the drive on, without "..", and without a backslash at its end but for the root.
std::u16string WholePath(std::u16string_view path) {
    const std::filesystem::path native = std::filesystem::absolute(NativePath(path));
    const std::filesystem::path plain = (native / "").lexically_normal();
    return ScriptPath(plain.has_relative_path() ? plain.parent_path().string() : plain.string());
}

std::u16string Path(QtSurface& surface) { return ListOf(surface).path; }
// Throws Failure(76) for what is no folder.
void SetPath(QtSurface& surface, const std::u16string& path) {
    if (!IsFolder(path)) throw Failure(failure::kPathNotFound);
    const std::u16string folder = WholePath(path);
    if (folder == ListOf(surface).path) return;
    Fill(surface, folder);
    surface.TellChange(EventKind::kChange);
}

int ListCount(QtSurface& surface) { return ListOf(surface).count() - ListOf(surface).way; }
int ListIndex(QtSurface& surface) {
    const FolderWidget& list = ListOf(surface);
    return list.NumberOfRow(list.ChosenRow());
}
void SetListIndex(QtSurface& surface, int number) {
    FolderWidget& list = ListOf(surface);
    const int row =
        CheckedRow(list.RowOfNumber(Within(number, -list.way, list.count())), list.count());
    if (list.ChosenRow() == row) return;
    {
        const QtSurface::Quiet quiet(surface);
        list.ChooseRow(row);
    }
    surface.TellChange(EventKind::kClick);
}

std::u16string FolderOfNumber(FolderWidget& list, int number) {
    const int row = number < -list.way ? -1 : list.RowOfNumber(std::min(number, list.count()));
    if (row < 0 || row >= list.count()) return {};
    return list.folders[static_cast<std::size_t>(row)];
}
MemberValue GetList(QtSurface& surface, const MemberArguments& arguments) {
    return FolderOfNumber(ListOf(surface), IntArgument(arguments, 0));
}
std::u16string Text(QtSurface& surface) {
    return FolderOfNumber(ListOf(surface), ListIndex(surface));
}

int TopFolder(QtSurface& surface) {
    FolderWidget& list = ListOf(surface);
    return list.NumberOfRow(list.TopRow());
}
void SetTopFolder(QtSurface& surface, int number) {
    SetTopIndex(surface, ListOf(surface).RowOfNumber(
                             Within(number, -ListOf(surface).way, ListCount(surface))));
}

void Refresh(QtSurface& surface) { Fill(surface, Path(surface)); }

constexpr QtMember kFolderListMembers[] = {
    Member<Path, SetPath>(u"Path"),
    ReadOnlyMember<ListCount>(u"ListCount"),
    Member<ListIndex, SetListIndex>(u"ListIndex"),
    {u"List", GetList, nullptr, nullptr},
    ReadOnlyMember<Text>(u"Text"),
    Member<TopFolder, SetTopFolder>(u"TopIndex"),
    Action<Refresh>(u"Refresh"),
};

QWidget* MakeFolderList(QWidget* parent) { return new FolderWidget(parent); }
QWidget* ViewportOf(QWidget& widget) { return static_cast<FolderWidget&>(widget).viewport(); }

void OpenRow(QtSurface& surface, int row) {
    const FolderWidget& list = ListOf(surface);
    if (row >= list.count()) return;
    const std::u16string folder = list.folders[static_cast<std::size_t>(row)];
    const PendingFailure before = pendingFailure;
    if (!Attempt([&] { SetPath(surface, folder); })) pendingFailure = before;
}

void StartFolderList(QtSurface& surface) {
    FolderWidget& list = ListOf(surface);
    list.Start(surface);
    std::u16string folder = u"C:\\";
    const PendingFailure before = pendingFailure;
    if (!Attempt([&] { folder = CurrentFolder(); })) pendingFailure = before;
    Fill(surface, folder);
    // The rows change, which the toolkit mustn't see in the midst of an event.
    QObject::connect(
        &list, &QListWidget::doubleClicked, &surface, [&surface](const QModelIndex& index) {
            const int row = index.row();
            QMetaObject::invokeMethod(
                &surface, [&surface, row] { OpenRow(surface, row); }, Qt::QueuedConnection);
        });
}

}  // namespace

const QtControlClass kFolderListClass = {.make = MakeFolderList,
                                         .start = StartFolderList,
                                         .members = kFolderListMembers,
                                         .inner = ViewportOf,
                                         .foreColor = system_color::kWindowText,
                                         .backColor = system_color::kWindow};

}  // namespace velm
