// The toolkit's start and its pump.
#include <gtest/gtest.h>

#include <QApplication>
#include <QFontDatabase>
#include <QLocale>
#include <QThread>
#include <QTimer>
#include <clocale>
#include <ctime>

#include "platform/qt/qt_application.h"

namespace velm {
namespace {

TEST(Application, NumbersKeepTheirPoint) {
    EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
    EXPECT_EQ(QLocale().language(), QLocale::Japanese);
}

TEST(Application, ClosingABoxIsNoWishToQuit) {
    EXPECT_FALSE(QApplication::quitOnLastWindowClosed());
}

TEST(Application, TheFontCanWriteJapanese) {
    if (QFontDatabase::families(QFontDatabase::Japanese).isEmpty()) {
        FAIL() << "no Japanese font is installed; tools/packages.txt names one";
    }
    bool writes = false;
    for (const QString& family : QApplication::font().families()) {
        writes = writes || QFontDatabase::writingSystems(family).contains(QFontDatabase::Japanese);
    }
    EXPECT_TRUE(writes);
}

TEST(Application, ThePumpDeliversWhatWaits) {
    bool delivered = false;
    QTimer::singleShot(0, [&] { delivered = true; });
    for (int i = 0; i < 200 && !delivered; ++i) {
        QThread::msleep(1);
        PumpApplication();
    }
    EXPECT_TRUE(delivered);
}

TEST(Application, ThePumpIsQuickWhenNothingWaits) {
    constexpr int kCalls = 2'000'000;
    const std::clock_t start = std::clock();
    for (int i = 0; i < kCalls; ++i) PumpApplication();
    const double seconds = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
    EXPECT_LT(seconds / kCalls, 0.5e-6);
}

}  // namespace
}  // namespace velm
