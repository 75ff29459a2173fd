// What of the main window has to do with earlier versions and with the end of the session.
#include "mainwindow/keeping.h"
#include "mainwindow/versionswindow.h"
#include "qt/mainwindow.h"
#include "qt/versionswindow.h"

#include <QGuiApplication>
#include <QSessionManager>

namespace norvik {

void MainWindow::ConnectSession() {
    // The session manager goes on as soon as this returns.
    connect(
        qGuiApp, &QGuiApplication::commitDataRequest, this,
        [this](QSessionManager& manager) {
            manager.setRestartHint(QSessionManager::RestartNever);
            const bool mayAsk =
                !program_.State.RegisterSaved && running_ == 0 && manager.allowsInteraction();
            if (!MayEndSession(mayAsk)) {
                manager.cancel();
            }
            if (mayAsk) {
                manager.release();
            }
        },
        Qt::DirectConnection);
}

bool MainWindow::MayEndSession(bool mayAsk) {
    bool mayEnd = true;
    if (running_ > 0) {  // no question in the midst of an operation
        EndSession(program_, false, desktop_);
    } else {
        Run([&] { mayEnd = EndSession(program_, mayAsk, desktop_); });
    }
    sessionEnds_ = mayEnd;
    return mayEnd;
}

void MainWindow::KeepAtSignal() {
    EndKeepingEarly(program_, Ending::Signal);
}

Text MainWindow::KeepReplacedFile(const FilePath& file) {
    return KeepReplaced(program_, file);
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
