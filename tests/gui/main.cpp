// The tests of the boxes in one process: the toolkit is started once, as the window face starts it.
#include <gtest/gtest.h>

#include <QApplication>

#include "platform/qt/qt_application.h"

int main(int count, char** words) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&count, words);
    const velm::ApplicationPointer application = velm::StartApplication();
    return RUN_ALL_TESTS();
}
