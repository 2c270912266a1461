// The file and folder dialogs.
#include "platform/qt/file_choice.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include "data/failure.h"
#include "data/text.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/qt/message_box.h"
#include "platform/qt/qt_dialog_run.h"
#include "platform/qt/qt_text.h"

namespace velm {

namespace {

constexpr int kQuestionIcon = 32;
constexpr int kWarningIcon = 48;

QString NativeName(std::u16string_view path) { return QFile::decodeName(NativePath(path).c_str()); }

// The toolkit's dialog with the checks of the flags before a choice counts.
class FileDialog : public QFileDialog {
  public:
    FileDialog(std::int32_t flags, bool isForOpening)
        : QFileDialog(QApplication::activeWindow()), flags_(flags), opens_(isForOpening) {}

    void accept() override {
        // A folder is entered, not chosen.
        for (const QString& path : selectedFiles()) {
            if (fileMode() != Directory && QFileInfo(path).isDir()) return QFileDialog::accept();
            if (!IsGood(path)) return;
        }
        QFileDialog::accept();
    }

  private:
    std::int32_t flags_;
    bool opens_;

    bool Has(std::int32_t flag) const { return (flags_ & flag) != 0; }

    // Whether a choice may stand; says or asks what there is to say.
    bool IsGood(const QString& path) {
        const QFileInfo info(path);
        if (Has(file_flag::kFolderMustExist) && !info.absoluteDir().exists())
            return Refuse(path, u"のフォルダがありません。");
        if (Has(file_flag::kNotReadOnly) && info.exists() && !info.isWritable())
            return Refuse(path, u"には書き込めません。");
        if (!opens_ || !Has(file_flag::kAskToCreate) || info.exists()) return true;
        MessageBox question(Quoted(path) + u"はありません。\n新しく作りますか？",
                            box::kYesNo | kQuestionIcon, FromQString(windowTitle()), this);
        return question.Ask() == box::kAnswerYes;
    }

    static std::u16string Quoted(const QString& path) {
        return u"「" + FromQString(QFileInfo(path).fileName()) + u"」";
    }

    bool Refuse(const QString& path, const char16_t* reason) {
        MessageBox refusal(Quoted(path) + reason, box::kOk | kWarningIcon,
                           FromQString(windowTitle()), this);
        refusal.Ask();
        return false;
    }
};

// The toolkit knows no masks with other characters than these; a ? stands for each of the others.
QString ToolkitMask(std::u16string_view mask) {
    static const QRegularExpression unknown(
        QStringLiteral("[^a-zA-Z0-9_.,*? +#\\-\\[\\]@{}/!<>$%&=^~:]"));
    if (mask == u"*.*") return QStringLiteral("*");
    QString shown = ToQString(mask);
    return shown.replace(unknown, QStringLiteral("?"));
}

QString FilterOf(std::u16string_view name, std::u16string_view masks) {
    QStringList list;
    for (const std::u16string_view mask : Split(masks, u";")) {
        if (!Trim(mask).empty()) list += ToolkitMask(Trim(mask));
    }
    if (list.isEmpty()) list += QStringLiteral("*");
    return ToTitle(name) + QStringLiteral(" (") + list.join(u' ') + u')';
}

QString UsualTitle(FileQuestion question) {
    switch (question) {
        case FileQuestion::kSave: return QStringLiteral("名前を付けて保存");
        case FileQuestion::kFolder: return QStringLiteral("フォルダの選択");
        default: return QStringLiteral("ファイルを開く");
    }
}

QFileDialog::FileMode ModeOf(const FileRequest& request) {
    const auto has = [&](std::int32_t flag) { return (request.flags & flag) != 0; };
    if (request.question == FileQuestion::kFolder) return QFileDialog::Directory;
    if (request.question == FileQuestion::kSave) return QFileDialog::AnyFile;
    if (has(file_flag::kSeveral)) return QFileDialog::ExistingFiles;
    return has(file_flag::kFileMustExist) ? QFileDialog::ExistingFile : QFileDialog::AnyFile;
}

// A start that can't be one leaves the dialog in the current folder.
void StartAt(QFileDialog& dialog, const FileRequest& request) {
    dialog.setDirectory(QDir::currentPath());
    if (request.start.empty() || IsMask(request.start)) return;
    Attempt([&] {
        const QFileInfo info(NativeName(request.start));
        if (info.isDir()) {
            dialog.setDirectory(info.absoluteFilePath());
            return;
        }
        if (info.absoluteDir().exists()) dialog.setDirectory(info.absoluteDir());
        if (request.question != FileQuestion::kFolder) dialog.selectFile(info.fileName());
    });
}

void SetOptions(QFileDialog& dialog, const FileRequest& request) {
    const auto has = [&](std::int32_t flag) { return (request.flags & flag) != 0; };
    const bool saves = request.question == FileQuestion::kSave;
    dialog.setWindowTitle(request.title.empty() ? UsualTitle(request.question)
                                                : ToTitle(request.title));
    dialog.setWindowModality(Qt::ApplicationModal);
    // The desktop's own would speak the desktop's language and know none of the flags.
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setOption(QFileDialog::DontResolveSymlinks, has(file_flag::kKeepLinks));
    dialog.setOption(QFileDialog::DontConfirmOverwrite, !has(file_flag::kAskToOverwrite));
    dialog.setOption(QFileDialog::ShowDirsOnly, request.question == FileQuestion::kFolder);
    dialog.setAcceptMode(saves ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(ModeOf(request));
    const QStringList filters = NameFilters(request.filter);
    if (request.question != FileQuestion::kFolder && !filters.isEmpty())
        dialog.setNameFilters(filters);
}

}  // namespace

QStringList NameFilters(std::u16string_view filter) {
    QStringList filters;
    if (filter.empty()) return filters;
    const std::vector<std::u16string_view> parts = Split(filter, u"|");
    for (std::size_t i = 0; i < parts.size(); i += 2) {
        const std::u16string_view masks = i + 1 < parts.size() ? parts[i + 1] : u"";
        if (!parts[i].empty() || !masks.empty()) filters += FilterOf(parts[i], masks);
    }
    return filters;
}

std::vector<std::u16string> AskFiles(const FileRequest& request) {
    FileDialog dialog(request.flags, request.question == FileQuestion::kOpen);
    SetOptions(dialog, request);
    StartAt(dialog, request);
    std::vector<std::u16string> chosen;
    if (RunDialog(dialog) != QDialog::Accepted) return chosen;
    for (const QString& path : dialog.selectedFiles())
        chosen.push_back(ScriptPath(QFile::encodeName(path).toStdString()));
    return chosen;
}

}  // namespace velm
