// The baseline of the editor as a process: an application with an empty window that ends as soon as
// it is shown.
#include <QApplication>
#include <QMainWindow>
#include <QTimer>

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    QMainWindow window;
    window.show();
    QTimer::singleShot(0, &window, [] { QTimer::singleShot(0, &QApplication::quit); });
    return QApplication::exec();
}
