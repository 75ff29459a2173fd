// What of the main window has to do with files that come to it beside the menu's dialogs.
#include "mainwindow/givenfile.h"
#include "qt/droppedfiles.h"
#include "qt/icons.h"
#include "qt/mainwindow.h"
#include "qt/remembered.h"
#include "qt/textconversion.h"
#include "qt/widgetmakers.h"
#include "versions/versionstore.h"

#include <QDropEvent>
#include <QMenu>
#include <QMimeData>

#include <utility>

namespace norvik {

void MainWindow::AddRecentMenu(QMenu* menu, QAction* before) {
    recentMenu_ = new QMenu(QStringLiteral("Zule&tzt geöffnet"), menu);
    recentMenu_->setObjectName(QStringLiteral("mnuDateiRecent"));
    recentMenu_->setIcon(MenuIcon("mnuDateiRecent"));
    menu->insertMenu(before, recentMenu_);
    menu->insertSeparator(before);
    program_.Recent = ReadRecentFiles(settingsFile_);
    shownRecent_ = program_.Recent;
    DrawRecentMenu();
}

void MainWindow::DrawRecentMenu() {
    recentMenu_->clear();
    int place = 0;
    for (const FilePath& path : program_.Recent.Paths) {
        QAction* action = recentMenu_->addAction(
            ToQString(RecentCaption(static_cast<std::size_t>(place) + 1, path)));
        action->setObjectName(IndexedName("mnuDateiRecent", place));
        connect(
            action, &QAction::triggered, this,
            [this, path] {  // the action may go in the midst of it
                const FilePath chosen = path;
                Run([&] { LoadRecentFile(program_, chosen, desktop_, desktop_); },
                    StepOfFile(chosen));
            },
            Qt::QueuedConnection);
        ++place;
    }
    recentMenu_->setEnabled(place > 0);
}

void MainWindow::FollowRecentFiles() {
    if (program_.Recent == shownRecent_) {
        return;
    }
    const bool sameFiles = program_.Recent.Paths == shownRecent_.Paths;
    shownRecent_ = program_.Recent;
    if (!sameFiles) {
        DrawRecentMenu();
    }
    WriteRecentFiles(settingsFile_, shownRecent_);
}

void MainWindow::NoteSavedRegister() {
    if (!program_.SavedTo.empty()) {
        AddRecent(program_.Recent, program_.SavedTo, program_.Keep.Folder);
        FollowRecentFiles();
    }
}

FilePath MainWindow::DialogFolder(bool saves) const {
    const FilePath& current = program_.State.File.Path;
    if (saves && !current.empty() && !IsInFolder(current, program_.Keep.Folder)) {
        return FullPath(current).parent_path();
    }
    return program_.Recent.Folder;
}

void MainWindow::NoteChosenFile(const FilePath& file) {
    NoteFolder(program_.Recent, file.parent_path(), program_.Keep.Folder);
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (running_ == 0 && !FilesOf(*event->mimeData()).empty()) {
        event->setDropAction(Qt::CopyAction);  // whatever becomes of it, the file stays
        event->accept();
    }
}

void MainWindow::dropEvent(QDropEvent* event) {
    const std::vector<FilePath> files = FilesOf(*event->mimeData());
    if (running_ > 0 || files.empty()) {
        return;
    }
    event->setDropAction(Qt::CopyAction);
    event->accept();
    const Dropped what =
        event->modifiers().testFlag(Qt::ControlModifier) ? Dropped::Add : Dropped::Load;
    activateWindow();
    // The other program waits for the end of the drop, but not for that of the questions.
    dropped_ = {files, what};
    QMetaObject::invokeMethod(this, "TakeDropped", Qt::QueuedConnection);
}

void MainWindow::TakeDropped() {
    const auto taken = std::exchange(dropped_, {});
    const std::vector<FilePath>& files = taken.first;
    if (running_ == 0 && !files.empty()) {
        Run([&] { TakeDroppedFiles(program_, files, taken.second, desktop_, desktop_); },
            StepOfFile(files.front(), taken.second));
    }
}

}  // namespace norvik
