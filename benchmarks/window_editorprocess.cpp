// The editor as a whole process that ends as soon as its window is shown and started; its folder is
// the argument. benchmarks/processes.py measures it.
#include "qt/application.h"
#include "qt/mainwindow.h"
#include "qt/textconversion.h"

#include <QApplication>
#include <QTimer>

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    norvik::PrepareApplication(application);
    norvik::MainWindow window(norvik::ToFilePath(QApplication::arguments().value(1)), [] {});
    window.show();
    QTimer::singleShot(0, &window, [&window] {
        window.Start({});
        QTimer::singleShot(0, &QApplication::quit);
    });
    return QApplication::exec();
}
