// What of the main window has to do with earlier versions and with the end of the session.
#include "mainwindow/keeping.h"
#include "mainwindow/versionswindow.h"
#include "qt/mainwindow.h"
#include "qt/versionswindow.h"

#include <QEvent>
#include <QGuiApplication>
#include <QSessionManager>

namespace norvik {

namespace {

class ToolkitsSessionManager : public SessionManager {
  public:
    explicit ToolkitsSessionManager(QSessionManager& manager) : manager_(manager) {}

    bool AllowsQuestion() override { return manager_.allowsInteraction(); }
    void Release() override { manager_.release(); }
    void Cancel() override { manager_.cancel(); }

  private:
    QSessionManager& manager_;
};

}  // namespace

void MainWindow::ConnectSession() {
    // Words of the session manager's own would be taken for a file's; the next session begins
    // without the program. It is told with each answer, the first at the start of the program.
    connect(
        qGuiApp, &QGuiApplication::saveStateRequest, this,
        [](QSessionManager& manager) { manager.setRestartHint(QSessionManager::RestartNever); },
        Qt::DirectConnection);
    qGuiApp->installEventFilter(this);
    // The session manager goes on as soon as this returns.
    connect(
        qGuiApp, &QGuiApplication::commitDataRequest, this,
        [this](QSessionManager& manager) {
            manager.setRestartHint(QSessionManager::RestartNever);
            ToolkitsSessionManager answers(manager);
            MayEndSession(answers);
        },
        Qt::DirectConnection);
    // Windows ends the process right behind this, without a window being closed.
    connect(qGuiApp, &QCoreApplication::aboutToQuit, this, [this] {
        if (sessionEnds_) {
            EndKeeping(program_, VersionReason::NotSavedAtQuit);
        }
    });
}

bool MainWindow::MayEndSession(SessionManager& manager) {
    bool mayEnd = true;
    if (running_ > 0) {  // no question in the midst of an operation
        mayEnd = EndSession(program_, manager, true, desktop_);
    } else {
        Run([&] { mayEnd = EndSession(program_, manager, false, desktop_); });
    }
    sessionEnds_ = mayEnd;
    return mayEnd;
}

bool MainWindow::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::Quit && object == qGuiApp) {
        quits_ = true;
    }
    return QMainWindow::eventFilter(object, event);
}

void MainWindow::KeepAtSignal() {
    EndKeepingEarly(program_, Ending::Signal);
}

Text MainWindow::KeepReplacedFile(const FilePath& file) {
    return KeepReplaced(program_, file);
}

Text MainWindow::KeepOverwrittenFile(const FilePath& file) {
    return KeepOverwritten(program_, file);
}

void MainWindow::ConnectVersions() {
    const auto on = [this](void (VersionsWindow::*clicked)(),
                           const std::function<void()>& operation, TextView what = {}) {
        connect(versions_, clicked, this, [this, operation, what] { Run(operation, what); });
    };
    connect(versions_, &VersionsWindow::rowChosen, this,
            [this](int row) { Run([&] { ListVersions_Click(program_, row); }); });
    on(
        &VersionsWindow::loadClicked,
        [this] { VERSIONS_btnLoad_Click(program_, desktop_, desktop_); }, VersionLoadedStep);
    on(&VersionsWindow::saveAsClicked, [this] { VERSIONS_btnSaveAs_Click(program_, desktop_); });
    on(&VersionsWindow::removeClicked, [this] { VERSIONS_btnRemove_Click(program_); });
    on(&VersionsWindow::closed, [this] { VERSIONS_btnClose_Click(program_, desktop_); });
}

void MainWindow::ShowVersions() {
    if (versions_ == nullptr) {
        versions_ = new VersionsWindow(this);
        memory_.Follow(*versions_);
        ConnectVersions();
    }
    versions_->Draw(program_.Versions);
    versions_->setWindowState(versions_->windowState() & ~Qt::WindowMinimized);
    versions_->show();
    versions_->raise();
    versions_->activateWindow();
}

void MainWindow::CloseVersions() {
    if (versions_ != nullptr) {
        versions_->hide();
        versions_->deleteLater();  // it may be in the midst of telling of a click
        versions_ = nullptr;
    }
}

}  // namespace norvik
