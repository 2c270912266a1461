// See qt_dialog_run.h.
#include "platform/qt/qt_dialog_run.h"

#include <QDialog>
#include <QEvent>

#include "platform/qt/qt_removal.h"
#include "platform/qt/qt_wait_watch.h"

namespace velm {

namespace {

// Takes a dialog away from its owner before the owner deletes what stands over it.
class OwnerWatch : public QObject {
  public:
    explicit OwnerWatch(QDialog& dialog) : dialog_(dialog) {
        if (dialog.parentWidget() != nullptr) dialog.parentWidget()->installEventFilter(this);
    }
    bool IsFreed() const { return isFreed_; }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::DeferredDelete && watched == dialog_.parentWidget()) Free();
        return false;
    }

  private:
    QDialog& dialog_;
    bool isFreed_ = false;

    // It is hidden by that, and no longer waits.
    void Free() {
        isFreed_ = true;
        const QPoint place = dialog_.pos();
        dialog_.setParent(nullptr, dialog_.windowFlags());
        dialog_.move(place);
    }
};

}  // namespace

int RunDialog(QDialog& dialog) {
    const ToolkitScope scope;
    const OwnerWatch watch(dialog);
    const QtWaitWatch stop([&dialog] { dialog.done(QDialog::Rejected); });
    bool isAnswered = false;
    const auto noteAnswer = [&isAnswered] { isAnswered = true; };
    QObject::connect(&dialog, &QDialog::finished, &watch, noteAnswer);
    const int result = dialog.exec();
    return watch.IsFreed() && !isAnswered ? dialog.exec() : result;
}

}  // namespace velm
