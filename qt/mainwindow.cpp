#include "qt/mainwindow.h"

#include "mainwindow/handlers.h"
#include "mainwindow/keeping.h"
#include "mainwindow/registerlistwindow.h"
#include "mainwindow/startup.h"
#include "mainwindow/undo.h"
#include "qt/display.h"
#include "qt/entryfield.h"
#include "qt/entrylist.h"
#include "qt/icons.h"
#include "qt/mobileexportdialog.h"
#include "qt/phonepicture.h"
#include "qt/registerlistwindow.h"
#include "qt/remembered.h"
#include "qt/settingsdialog.h"
#include "qt/textconversion.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollBar>

#include <utility>

namespace norvik {

MainWindow::MainWindow(const FilePath& folder, std::function<void()> hardStop,
                       const FilePath& documentFolder, const FilePath& versionFolder,
                       FilePath settingsFile)
    : desktop_(*this),
      hardStop_(std::move(hardStop)),
      widgets_(MakeMainWindowWidgets(*this)),
      model_(new EntryListModel(this)),
      settingsFile_(UsableSettingsFile(std::move(settingsFile))) {
    setObjectName(QStringLiteral("MW"));
    setAcceptDrops(true);
    program_.Folder = folder;
    program_.DocumentFolder = documentFolder;
    program_.Keep.Folder = versionFolder;
    widgets_.TelRegListe->setModel(model_);
    MakeMenus();
    MakeShortcuts();
    ConnectEntry();
    ConnectChoices();
    ConnectButtons();
    ConnectSelection();
    ConnectSession();
    DrawCurrentFile();
    Draw();
    memory_.Follow(*this);
    widgets_.Texts[NameField]->setFocus();
}

void MainWindow::Start(const QString& commandLine, const FilePath& file) {
    StartKeeping(program_);
    Run([&] { StartUp(program_, ToText(commandLine), desktop_, file); });
}

void MainWindow::MakeMenus() {
    QMenu* menu = nullptr;
    int group = 0;
    for (const MenuRow& row : MenuTable()) {
        const QString menuName = QLatin1String(row.Menu.data(), static_cast<int>(row.Menu.size()));
        if (menu == nullptr || menu->objectName() != menuName) {
            menu = menuBar()->addMenu(ToQString(row.MenuCaption));
            menu->setObjectName(menuName);
            // On a small screen a menu scrolls: a second column might not stand on it.
            menu->setStyleSheet(QStringLiteral("QMenu { menu-scrollable: 1; }"));
            group = row.Group;
        }
        if (std::exchange(group, row.Group) != row.Group) {
            menu->addSeparator();
        }
        QAction* action = menu->addAction(ToQString(row.Caption));
        action->setObjectName(QLatin1String(row.Name.data(), static_cast<int>(row.Name.size())));
        action->setShortcuts(QKeySequence::listFromString(QString::fromUtf8(row.Shortcut.data())));
        if (row.SavesRegister) {
            saveActions_.push_back(action);
        }
        if (row.Check != nullptr) {
            action->setCheckable(true);
            checkActions_.emplace_back(action, row.Check);
        }
        if (row.CaptionNow != nullptr) {
            changingActions_.emplace_back(action, &row);
            action->setAutoRepeat(false);  // a key held down stops where a field's own steps end
        }
        action->setIcon(MenuIcon(row.Name));
        connect(action, &QAction::triggered, this, [this, &row] {
            Run([&] { row.Run(program_, desktop_, desktop_); }, row.Step);
            if (row.SavesRegister) {
                NoteSavedRegister();
            }
        });
        if (row.Name == "mnuDateiVersions") {
            AddRecentMenu(menu, action);
        }
    }
}

void MainWindow::ConnectEntry() {
    for (int number = 0; number < TextFields; ++number) {
        EntryField* field = widgets_.Texts.at(static_cast<std::size_t>(number));
        if (field == nullptr) {
            continue;
        }
        connect(field, &EntryField::keyPressed, this, [this, number](FieldKey key, bool shift) {
            Run([&] { Anzeigefeld_KeyDown(program_, number, key, shift, desktop_); }, StoredStep);
        });
        connect(field, &QLineEdit::textChanged, this, &MainWindow::FollowTyping);
        connect(field, &EntryField::stepped, this, [this](int records) {
            widgets_.Satzwahl->setValue(widgets_.Satzwahl->value() + records);
        });
        connect(field, &EntryField::beeped, this, [this] { desktop_.Beep(); });
    }
}

void MainWindow::ConnectChoices() {
    const auto changed = [this] {
        if (!drawing_) {
            Run([&] { Choice_Change(program_); });
        }
    };
    for (QComboBox* list : {widgets_.DDTon, widgets_.DDAB, widgets_.DDMSN}) {
        connect(list, &QComboBox::currentIndexChanged, this, changed);
    }
    for (QCheckBox* box : {widgets_.chkTon, widgets_.chkCharge}) {
        connect(box, &QCheckBox::toggled, this, changed);
    }
    connect(widgets_.FilterGroup, &QButtonGroup::idToggled, this, [changed](int, bool on) {
        if (on) {  // one goes on for another that goes off
            changed();
        }
    });
    connect(widgets_.chkExport, &QCheckBox::toggled, this, [this] {
        if (!drawing_) {
            Run([&] { chkExport_Click(program_, desktop_); },
                widgets_.chkExport->isChecked() ? MarkedStep : UnmarkedStep);
        }
    });
}

void MainWindow::ConnectButtons() {
    const auto onClick = [this](QPushButton* button, void (*handler)(Program&, Desktop&),
                                TextView what = {}) {
        connect(button, &QPushButton::clicked, this,
                [this, handler, what] { Run([&] { handler(program_, desktop_); }, what); });
    };
    onClick(widgets_.btnSaveChange, btnSaveChange_Click, StoredStep);
    onClick(widgets_.btnNew, btnNew_Click, NewStep);
    onClick(widgets_.btnErase, btnErase_Click, EraseStep);
    onClick(widgets_.btnSearch, btnSearch_Click);
    onClick(widgets_.btnSearchMore, btnSearchMore_Click);
    connect(widgets_.Bild1, &PhonePicture::clicked, this,
            [this] { Run([&] { Bild1_Click(program_, desktop_); }); });
    connect(widgets_.btnEraseCharge, &QPushButton::clicked, this,
            [this] { Run([&] { btnEraseCharge_Click(program_); }); });
}

void MainWindow::ConnectSelection() {
    connect(widgets_.Satzwahl, &QScrollBar::valueChanged, this, [this](int value) {
        if (!drawing_) {
            Run([&] { Satzwahl_Change(program_, value, desktop_); });
        }
    });
    connect(widgets_.Satzwahl, &QScrollBar::sliderMoved, this,
            [this](int value) { widgets_.AnzNr->Show(value); });
    connect(widgets_.TelRegListe, &EntryListView::rowChosen, this, [this](int row) {
        const Text text = model_->Row(row);
        Run([&] { TelRegListe_Click(program_, text, desktop_); }, StoredStep);
    });
    connect(widgets_.TelRegListe, &EntryListView::eraseWanted, widgets_.btnErase,
            &QPushButton::click);
    connect(widgets_.chkListFilter, &QCheckBox::toggled, this, [this] {
        if (!drawing_) {
            Run([&] { chkListFilter_Click(program_, desktop_); });
        }
    });
}

void MainWindow::Run(const std::function<void()>& operation, TextView what) {
    ReadFields();
    sessionEnds_ = false;
    quits_ = false;
    statusPainted_.invalidate();
    ++running_;
    try {
        RunStep(program_, what, operation, desktop_);
    } catch (const HardStop&) {
        EndKeepingEarly(program_, Ending::HardStop);
        hardStop_();
    }
    --running_;
    Draw();
    FollowRecentFiles();
    if (std::exchange(statusWaits_, false)) {
        widgets_.Status->repaint();
    }
    if (std::exchange(statusUntold_, false)) {
        widgets_.Status->Tell();
    }
    if (running_ == 0 && std::exchange(closesLater_, false)) {
        QMetaObject::invokeMethod(this, "close", Qt::QueuedConnection);
    }
}

void MainWindow::ReadFields() {
    MainWindowFields& fields = program_.Fields;
    for (std::size_t i = 0; i < widgets_.Texts.size(); ++i) {
        if (widgets_.Texts.at(i) != nullptr) {
            fields.Anzeigefeld.at(i) = ToText(widgets_.Texts.at(i)->text());
        }
    }
    fields.DDTon = widgets_.DDTon->currentIndex();
    fields.DDAB = widgets_.DDAB->currentIndex();
    fields.DDMSN = widgets_.DDMSN->currentIndex();
    fields.chkTon = widgets_.chkTon->isChecked();
    fields.chkCharge = widgets_.chkCharge->isChecked();
    fields.OptFilter = widgets_.FilterGroup->checkedId();
    fields.chkExport = widgets_.chkExport->isChecked();
    fields.chkListFilter = widgets_.chkListFilter->isChecked();
}

void MainWindow::FocusField(int field) {
    widgets_.Texts.at(static_cast<std::size_t>(field))->setFocus(Qt::OtherFocusReason);
}

void MainWindow::CloseByMenu() {
    closingByMenu_ = true;
    close();
    closingByMenu_ = false;
}

void MainWindow::RunMobileExport() {
    MobileExportDialog dialog(NVHE_Load(program_.Set), this, [this] { desktop_.Beep(); });
    memory_.Follow(dialog);
    connect(&dialog, &MobileExportDialog::exportWanted, this, [this, &dialog] {
        Run([&] { btnExport_Click(dialog.Fields(), program_.State, program_.Set, desktop_); });
    });
    connect(&dialog, &MobileExportDialog::saveWanted, this, [this, &dialog] {
        Run([&] {
            btnSaveSettings_Click(dialog.Fields(), program_.Set, program_.Folder, desktop_);
        });
    });
    dialog.exec();
}

void MainWindow::ShowRegisterList() {
    if (list_ == nullptr) {
        list_ = new RegisterListWindow(this);
        memory_.Follow(*list_);
        connect(list_, &RegisterListWindow::boxesChanged, this, [this] {
            Run([&] {
                program_.List.chkFi = list_->Boxes();
                chkFi_Click(program_, desktop_, desktop_);
            });
        });
        connect(list_, &RegisterListWindow::lineChosen, this, [this](int line) {
            Run([&] { ListResult_DblClick(program_, line, desktop_); }, StoredStep);
        });
        connect(list_, &RegisterListWindow::exitClicked, this,
                [this] { Run([&] { NVList_btnExit_Click(program_, desktop_, desktop_); }); });
        connect(list_, &RegisterListWindow::cancelled, this,
                [this] { Run([&] { NVList_btnCancel_Click(program_, desktop_); }); });
    }
    list_->Draw(program_.List);
    list_->setWindowState(list_->windowState() & ~Qt::WindowMinimized);
    list_->show();
    list_->raise();
    list_->activateWindow();
}

void MainWindow::CloseRegisterList() {
    if (list_ != nullptr) {
        list_->hide();
        list_->deleteLater();  // it may be in the midst of telling of a click
        list_ = nullptr;
    }
}

void MainWindow::RunSettings() {
    SettingsDialog dialog(
        NVSET_Load(program_.Set), desktop_,
        [this](const SettingsDialog::Operation& operation) { Run(operation); }, this);
    memory_.Follow(dialog);
    connect(&dialog, &SettingsDialog::storeWanted, this, [this, &dialog] {
        bool stored = false;
        Run([&] {
            StoreSettings(program_, dialog.Fields(), desktop_);
            stored = true;
        });
        if (stored) {
            dialog.CloseStored();
        }
    });
    dialog.exec();
}

void MainWindow::closeEvent(QCloseEvent* event) {
    // An operation that waits for an answer is not torn down under its own feet.
    const bool sessionQuits = sessionEnds_ && quits_;
    if (running_ > 0 && !closingByMenu_) {
        closesLater_ = sessionQuits;
        event->ignore();
        return;
    }
    // The user's own click is asked about, also where another program kept the session from ending.
    bool mayClose = sessionQuits;
    if (!mayClose) {
        Run([&] { mayClose = MayClose(program_, desktop_); });
    }
    event->setAccepted(mayClose);
    if (mayClose) {
        EndKeeping(program_, VersionReason::NotSavedAtQuit);
        sessionEnds_ = false;
        CloseRegisterList();
        CloseVersions();
        CloseDoubles();
    }
}

}  // namespace norvik
