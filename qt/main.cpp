#include "base/runtimeerror.h"
#include "qt/application.h"
#include "qt/endsignals.h"
#include "qt/mainwindow.h"

#include <QApplication>
#include <QTimer>

#include <algorithm>
#include <cstdlib>

int main(int argc, char* argv[]) {
    const norvik::FilePath file = norvik::TakeFile(argc, argv);
    int name = std::min(argc, 1);  // the toolkit takes none of the words
    QApplication application(name, argv);
    norvik::PrepareApplication(application);
    norvik::MainWindow window(
        norvik::ApplicationFolder(), [] { std::_Exit(norvik::HardStop::ExitStatus); },
        norvik::ApplicationDocumentFolder(), norvik::ApplicationVersionFolder(),
        norvik::ApplicationSettingsFile());
    const norvik::EndSignals ends([&window] { window.KeepAtSignal(); });
    window.show();
    const QString commandLine = norvik::CommandLine(argc, argv);
    QTimer::singleShot(0, &window,
                       [&window, commandLine, file] { window.Start(commandLine, file); });
    return QApplication::exec();
}
