#include "base/runtimeerror.h"
#include "qt/application.h"
#include "qt/mainwindow.h"
#include "qt/textconversion.h"

#include <QApplication>
#include <QTimer>

#include <cstdlib>

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    norvik::PrepareApplication(application);
    norvik::MainWindow window(
        norvik::ApplicationFolder(), [] { std::_Exit(norvik::HardStop::ExitStatus); },
        norvik::ToFilePath(QApplication::applicationDirPath()));
    window.show();
    const QString commandLine = QApplication::arguments().mid(1).join(u' ');
    QTimer::singleShot(0, &window, [&window, commandLine] { window.Start(commandLine); });
    return QApplication::exec();
}
