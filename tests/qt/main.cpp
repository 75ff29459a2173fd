// The window tests need an application like the program's own.
#include "qt/application.h"

#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    norvik::PrepareApplication(application);
    return RUN_ALL_TESTS();
}
