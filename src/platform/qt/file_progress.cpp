// The progress of file operations.
#include "platform/qt/file_progress.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFontMetrics>
#include <QPointer>
#include <QProgressDialog>
#include <QTimer>

#include "platform/qt/qt_text.h"

namespace velm {

namespace {

constexpr qint64 kUntilShown = 500;   // milliseconds of work before the window comes up
constexpr qint64 kBetweenLooks = 50;  // between two looks at the window's events
constexpr int kUntilForgotten = 300;  // without a report, once events are delivered again
constexpr qint64 kOtherOperation =
    2000;  // without a report: what comes is the start of another one
constexpr QLatin1String kForgetter("forgetter");
constexpr int kBarUnits = 1000;
constexpr int kTextWidth = 360;

struct Progress {
    QElapsedTimer sinceStart;
    QElapsedTimer sinceReport;
    QElapsedTimer sinceLook;
    std::int64_t done = -1;  // of the last report
    QPointer<QProgressDialog> window;
} progress;

void Forget() {
    progress.done = -1;
    if (progress.window != nullptr) {
        progress.window->hide();
        progress.window->deleteLater();
    }
    progress.window = nullptr;
}

bool IsNewOperation(std::int64_t done) {
    return progress.done < 0 || done < progress.done ||
           (progress.window == nullptr && progress.sinceReport.elapsed() > kOtherOperation);
}

void Open() {
    auto* window = new QProgressDialog(QApplication::activeWindow());
    window->setWindowTitle(QStringLiteral("ファイルの操作"));
    window->setWindowModality(Qt::ApplicationModal);
    window->setCancelButtonText(QStringLiteral("キャンセル"));
    window->setAutoClose(false);
    window->setAutoReset(false);
    window->setMinimumDuration(0);
    window->setMinimumWidth(kTextWidth + kTextWidth / 4);
    window->setRange(0, kBarUnits);
    auto* forgetter = new QTimer(window);
    forgetter->setObjectName(kForgetter);
    forgetter->setSingleShot(true);
    QObject::connect(forgetter, &QTimer::timeout, Forget);
    progress.window = window;
}

void Update(const std::u16string& name, std::int64_t done, std::int64_t total) {
    QProgressDialog& window = *progress.window;
    // First of all, since a changed value delivers events.
    window.findChild<QTimer*>(kForgetter)->start(kUntilForgotten);
    window.show();
    const QFontMetrics metrics = window.fontMetrics();
    window.setLabelText(metrics.elidedText(ToTitle(name), Qt::ElideMiddle, kTextWidth));
    const double share = total > 0 ? static_cast<double>(done) / static_cast<double>(total) : 0;
    window.setValue(static_cast<int>(share * kBarUnits));
}

}  // namespace

bool ReportFileProgress(const std::u16string& name, std::int64_t done, std::int64_t total) {
    if (IsNewOperation(done)) {
        Forget();
        progress.sinceStart.start();
        progress.sinceLook.start();
    }
    progress.done = done;
    progress.sinceReport.start();
    const bool isShown = progress.window != nullptr;
    if (!isShown && progress.sinceStart.elapsed() < kUntilShown) return true;
    if (isShown && progress.sinceLook.elapsed() < kBetweenLooks) return true;
    if (!isShown) Open();
    Update(name, done, total);
    progress.sinceLook.start();
    QCoreApplication::processEvents();
    const bool goesOn = progress.window != nullptr && !progress.window->wasCanceled();
    if (!goesOn) Forget();
    return goesOn;
}

}  // namespace velm
