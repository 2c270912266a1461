// The boxes and the file dialog behind the runtime's questions.
#include "platform/qt/qt_dialogs.h"

#include <QApplication>
#include <QFile>
#include <QFileDialog>

#include "platform/qt/file_progress.h"
#include "platform/qt/input_box.h"
#include "platform/qt/message_box.h"
#include "platform/qt/qt_dialog_run.h"
#include "platform/qt/qt_text.h"

namespace velm {

namespace {

// A box stands over the window that the person works with.
QWidget* Owner() { return QApplication::activeWindow(); }

int AskButtons(const std::u16string& text, int style, const std::u16string& title) {
    MessageBox box(text, style, title, Owner());
    return box.Ask();
}

}  // namespace

void QtDialogs::ShowText(const std::u16string& text, int style, const std::u16string& title) {
    AskButtons(text, style, title);
}

int QtDialogs::Ask(const std::u16string& text, int style, const std::u16string& title) {
    return AskButtons(text, style, title);
}

int QtDialogs::Report(const std::u16string& text, int style, const std::u16string& title) {
    return AskButtons(text, style, title);
}

std::optional<std::u16string> QtDialogs::AskText(const std::u16string& prompt,
                                                 const std::u16string& preset,
                                                 const std::u16string& title) {
    InputBox box(prompt, preset, title, Owner());
    return box.Ask();
}

bool QtDialogs::ShowFileProgress(const std::u16string& name, std::int64_t done,
                                 std::int64_t total) {
    return ReportFileProgress(name, done, total);
}

FileChoice AskFile(const std::u16string& title, const std::u16string& kind,
                   const std::u16string& masks) {
    QFileDialog dialog(Owner(), ToTitle(title));
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setNameFilter(ToQString(kind + u" (" + masks + u")"));
    dialog.setWindowModality(Qt::ApplicationModal);
    dialog.show();
    if (!dialog.isVisible()) return {};
    FileChoice choice;
    choice.end = RunDialog(dialog) == QDialog::Accepted ? FileChoice::End::kChosen
                                                        : FileChoice::End::kCancelled;
    const QStringList files = dialog.selectedFiles();
    if (choice.end == FileChoice::End::kChosen && !files.isEmpty()) {
        choice.nativePath = QFile::encodeName(files.first()).toStdString();
    }
    return choice;
}

}  // namespace velm
