// What of the main window has to do with the window of the doubled numbers.
#include "mainwindow/doubleswindow.h"
#include "mainwindow/undo.h"
#include "qt/doubleswindow.h"
#include "qt/mainwindow.h"

namespace norvik {

void MainWindow::ShowDoubles() {
    if (doubles_ == nullptr) {
        doubles_ = new DoublesWindow(this);
        memory_.Follow(*doubles_);
        connect(doubles_, &DoublesWindow::rowChosen, this, [this](int row) {
            Run([&] { ListDoubles_Click(program_, row, desktop_); }, StoredStep);
        });
        connect(doubles_, &DoublesWindow::eraseClicked, this,
                [this] { Run([&] { DOUBLES_btnErase_Click(program_, desktop_); }, EraseStep); });
        connect(doubles_, &DoublesWindow::closed, this,
                [this] { Run([&] { DOUBLES_btnClose_Click(program_, desktop_); }); });
    }
    doubles_->Draw(program_.Doubles);
    doubles_->setWindowState(doubles_->windowState() & ~Qt::WindowMinimized);
    doubles_->show();
    doubles_->raise();
    doubles_->activateWindow();
}

void MainWindow::CloseDoubles() {
    if (doubles_ != nullptr) {
        doubles_->hide();
        doubles_->deleteLater();  // it may be in the midst of telling of a click
        doubles_ = nullptr;
    }
}

}  // namespace norvik
