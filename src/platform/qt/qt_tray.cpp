// The notification area through the toolkit.
#include "platform/qt/qt_tray.h"

#include <QApplication>
#include <QIcon>
#include <QPixmap>
#include <QPointer>
#include <QSystemTrayIcon>

#include "data/failure.h"
#include "platform/qt/qt_pictures.h"
#include "platform/qt/qt_text.h"

namespace velm {

namespace {

// Units that the home platform keeps of each text, its end not counted.
constexpr std::size_t kTipLength = 127;
constexpr std::size_t kBalloonLength = 255;
constexpr std::size_t kTitleLength = 63;
constexpr int kBalloonTime = 10000;  // milliseconds

QIcon IconOf(const Pixmap& picture) { return QIcon(QPixmap::fromImage(ImageOfPixmap(picture))); }

QString Cut(const std::u16string& text, std::size_t length) {
    return ToLines(std::u16string_view(text).substr(0, length));
}

class Tray : public TrayIcon {
  public:
    void Show(const Pixmap& icon, const std::u16string& tip) override {
        if (!QSystemTrayIcon::isSystemTrayAvailable()) throw Failure(failure::kNoSuchMember);
        if (icon_ == nullptr) icon_ = new QSystemTrayIcon(qApp);
        icon_->setIcon(IconOf(icon));
        icon_->setToolTip(Cut(tip, kTipLength));
        icon_->show();
    }

    void SetIcon(const Pixmap& icon) override { Shown().setIcon(IconOf(icon)); }
    void SetTip(const std::u16string& tip) override { Shown().setToolTip(Cut(tip, kTipLength)); }

    void ShowBalloon(const std::u16string& title, const std::u16string& text,
                     std::int32_t icon) override {
        // The toolkit counts them alike: none, information, warning, error.
        const bool isIcon = icon >= 0 && icon <= QSystemTrayIcon::Critical;
        const auto kind = static_cast<QSystemTrayIcon::MessageIcon>(isIcon ? icon : 0);
        Shown().showMessage(Cut(title, kTitleLength), Cut(text, kBalloonLength), kind,
                            kBalloonTime);
    }

    void Hide() override { delete icon_; }

  private:
    // Ends with the toolkit at the latest.
    QPointer<QSystemTrayIcon> icon_;

    QSystemTrayIcon& Shown() {
        if (icon_ == nullptr) throw Failure(failure::kNothingThere);
        return *icon_;
    }
};

}  // namespace

TrayIcon& QtTray() {
    static Tray tray;
    return tray;
}

}  // namespace velm
