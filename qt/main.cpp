#include "base/platform.h"
#include "base/runtimeerror.h"
#include "qt/application.h"
#include "qt/endsignals.h"
#include "qt/mainwindow.h"

#include <QApplication>
#include <QTimer>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

int main(int argc, char* argv[]) {
    std::vector<std::string> words =
        norvik::platform::Arguments(argc, argv, norvik::platform::Patterns::Leave);
    const norvik::FilePath file = norvik::TakeFile(words);
    int name = std::min(argc, 1);  // the toolkit takes none of the words
    QApplication application(name, argv);
    norvik::PrepareApplication(application);
    norvik::MainWindow window(
        norvik::ApplicationFolder(), [] { std::_Exit(norvik::HardStop::ExitStatus); },
        norvik::ApplicationDocumentFolder(), norvik::ApplicationVersionFolder(),
        norvik::ApplicationSettingsFile());
    const norvik::EndSignals ends([&window] { window.KeepAtSignal(); });
    window.show();
    const QString commandLine = norvik::CommandLine(words);
    QTimer::singleShot(0, &window,
                       [&window, commandLine, file] { window.Start(commandLine, file); });
    return QApplication::exec();
}
