#include "base/runtimeerror.h"
#include "qt/application.h"
#include "qt/mainwindow.h"

#include <QApplication>
#include <QIcon>
#include <QTimer>

#include <cstdlib>

int main(int argc, char* argv[]) {
    const norvik::FilePath file = norvik::TakeFile(argc, argv);
    QApplication application(argc, argv);
    norvik::PrepareApplication(application);
    QApplication::setWindowIcon(QIcon::fromTheme(QApplication::desktopFileName()));
    norvik::MainWindow window(
        norvik::ApplicationFolder(), [] { std::_Exit(norvik::HardStop::ExitStatus); },
        norvik::ApplicationDocumentFolder());
    window.show();
    const QString commandLine = QApplication::arguments().mid(1).join(u' ');
    QTimer::singleShot(0, &window,
                       [&window, commandLine, file] { window.Start(commandLine, file); });
    return QApplication::exec();
}
