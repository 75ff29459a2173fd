// The baseline of the editor as a process: an application with an empty window, or with one that
// shows its argument, that ends as soon as it is shown.
#include <QApplication>
#include <QLabel>
#include <QMainWindow>
#include <QTimer>

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    QMainWindow window;
    if (argc > 1) {
        window.setCentralWidget(new QLabel(QApplication::arguments().value(1)));
    }
    window.show();
    QTimer::singleShot(0, &window, [] { QTimer::singleShot(0, &QApplication::quit); });
    return QApplication::exec();
}
