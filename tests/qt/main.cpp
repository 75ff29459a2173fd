// The window tests need an application like the program's own, and no screen.
#include "qt/application.h"
#include "tests/support/leaveout.h"
#include "tests/support/testfolder.h"

#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char* argv[]) {
    // A screen of another size and other texts may be asked for.
    if (!qgetenv("QT_QPA_PLATFORM").startsWith("offscreen")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    // Neither the toolkit nor a program that is started reads or writes the user's settings.
    const norvik::test::TestFolder config;
    qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString(config.Path().string()));
    QApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    norvik::test::LeaveOutWhatIsNotTestedHere();
    norvik::PrepareApplication(application);
    return RUN_ALL_TESTS();
}
