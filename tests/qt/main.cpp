// The window tests need an application like the program's own, and no screen.
#include "qt/application.h"

#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char* argv[]) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    norvik::PrepareApplication(application);
    return RUN_ALL_TESTS();
}
