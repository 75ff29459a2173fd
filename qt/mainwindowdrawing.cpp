// How the main window draws the program's fields.
#include "mainwindow/handlers.h"
#include "mainwindow/listrows.h"
#include "mainwindow/undo.h"
#include "qt/display.h"
#include "qt/doubleswindow.h"
#include "qt/entryfield.h"
#include "qt/entrylist.h"
#include "qt/mainwindow.h"
#include "qt/registerlistwindow.h"
#include "qt/textconversion.h"
#include "qt/versionswindow.h"
#include "qt/widgetmakers.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>

#include <utility>

namespace norvik {

namespace {

/// Names from a file may be longer than any list can show.
constexpr std::size_t LongestItem = 200;

QColor ToQColor(const Colour& colour) {
    return {colour.Red, colour.Green, colour.Blue};
}

/// A window title in which no part has a meaning of its own for the toolkit.
QString EscapedTitle(TextView caption) {
    return ToQString(caption).replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));
}

void DrawItems(QComboBox* list, const std::vector<Text>& items, int selected) {
    bool same = list->count() == static_cast<int>(items.size());
    for (int i = 0; same && i < list->count(); ++i) {
        same = list->itemText(i) == ToQString(items[static_cast<std::size_t>(i)]).left(LongestItem);
    }
    if (!same) {
        list->clear();
        for (const Text& item : items) {
            list->addItem(ToQString(item).left(LongestItem));
        }
    }
    list->setCurrentIndex(selected);
}

}  // namespace

void MainWindow::Draw() {
    const bool before = std::exchange(drawing_, true);
    const MainWindowFields& fields = program_.Fields;
    for (std::size_t i = 0; i < fields.Anzeigefeld.size(); ++i) {
        if (widgets_.Texts.at(i) != nullptr) {
            widgets_.Texts.at(i)->Show(fields.Anzeigefeld.at(i));
        } else {
            widgets_.Diagnostics.at(i)->setText(ToQString(fields.Anzeigefeld.at(i)));
        }
    }
    DrawChoices();
    DrawCounts();
    DrawSaveChange();
    widgets_.btnSearchMore->setEnabled(fields.btnSearchMoreEnabled);
    for (QAction* action : saveActions_) {
        action->setEnabled(fields.SaveMenusEnabled);
    }
    DrawSaveShortcut();
    for (const auto& [action, check] : checkActions_) {
        action->setChecked(fields.*check);
    }
    DrawUndo();
    findChild<QMenu*>(QStringLiteral("mnuSync"))->setEnabled(program_.Sync.SyncLoaded);
    SelectListRow();
    if (list_ != nullptr) {
        list_->Draw(program_.List);
    }
    if (versions_ != nullptr) {
        versions_->Draw(program_.Versions);
    }
    if (doubles_ != nullptr) {
        doubles_->Draw(program_.Doubles);
    }
    widgets_.Status->SetRemark(ToQString(program_.Keep.Note));
    drawing_ = before;
}

void MainWindow::DrawUndo() {
    for (const auto& [action, row] : changingActions_) {
        action->setText(ToQString(row->CaptionNow(program_)));
        if (row->EnabledNow != nullptr) {
            action->setEnabled(row->EnabledNow(program_));
        }
    }
    widgets_.NotStored->setVisible(IsNotStored(program_));
}

void MainWindow::FollowTyping() {
    if (!drawing_ && running_ == 0) {
        ReadFields();
        DrawUndo();
    }
}

void MainWindow::DrawChoices() {
    const MainWindowFields& fields = program_.Fields;
    DrawItems(widgets_.DDTon, fields.DDTonItems, fields.DDTon);
    DrawItems(widgets_.DDAB, fields.DDABItems, fields.DDAB);
    DrawItems(widgets_.DDMSN, fields.DDMSNItems, fields.DDMSN);
    widgets_.chkTon->setChecked(fields.chkTon);
    widgets_.chkCharge->setChecked(fields.chkCharge);
    widgets_.OptFilter.at(static_cast<std::size_t>(fields.OptFilter))->setChecked(true);
    TabToChosen(*widgets_.FilterGroup);
    widgets_.AnzGeb->Show(ToQString(fields.AnzGeb));
    widgets_.chkExport->setChecked(fields.chkExport);
    widgets_.chkListFilter->setChecked(fields.chkListFilter);
}

void MainWindow::DrawCounts() const {
    const RegisterState& state = program_.State;
    widgets_.AnzGes->Show(state.AnzGes);
    widgets_.AnzNr->Show(state.AnzNr);
    widgets_.AnzMarkiert->Show(state.AnzMarkiert);
    widgets_.Index->Show(program_.Fields.Index);
    widgets_.Satzwahl->setRange(1, state.Satzwahl.Maximum);
    widgets_.Satzwahl->setValue(state.Satzwahl.Value);
}

void MainWindow::DrawSaveChange() const {
    QPalette palette;
    QString meaning;  // of the colour, in words
    if (program_.Fields.btnSaveChange != EditState::Neutral) {
        const bool pending = program_.Fields.btnSaveChange == EditState::Pending;
        meaning = pending ? QStringLiteral("Änderungen sind noch nicht übernommen")
                          : QStringLiteral("Der Eintrag oder die Markierung ist übernommen");
        palette = widgets_.btnSaveChange->palette();
        palette.setColor(QPalette::Button, ToQColor(pending ? PendingColour : StoredColour));
        palette.setColor(QPalette::ButtonText, Qt::black);  // legible in a dark theme, too
    }
    widgets_.btnSaveChange->setPalette(palette);
    Describe(*widgets_.btnSaveChange, meaning, meaning);
}

void MainWindow::SelectListRow() const {
    widgets_.TelRegListe->SelectRow(
        RowOfPosition(program_.Fields.TelRegListe, program_.State.AnzNr));
}

void MainWindow::ShowCurrentEntry() {
    ShowEntry(program_);
    for (EntryField* field : widgets_.Texts) {
        if (field != nullptr) {
            field->ForgetUndo();
        }
    }
    Draw();
}

void MainWindow::RebuildList() {
    RebuildRows(program_);
    const bool before = std::exchange(drawing_, true);
    model_->SetRows(program_.Fields.TelRegListe);
    DrawCounts();
    SelectListRow();
    drawing_ = before;
}

void MainWindow::DrawStatus(const QString& text) {
    constexpr qint64 BetweenPaints = 16;  // milliseconds: no screen shows more
    widgets_.Status->ShowInPassing(text);
    statusUntold_ = true;
    statusWaits_ = statusPainted_.isValid() && statusPainted_.elapsed() < BetweenPaints;
    if (!statusWaits_) {
        widgets_.Status->repaint();
        statusPainted_.start();
    }
}

void MainWindow::DrawCurrentFile() {
    const CurrentFile& file = program_.State.File;
    setWindowTitle(EscapedTitle(CaptionOf(file)));
    widgets_.AnzQuelle->Show(ToQString(file.Type));
    widgets_.AnzQuellZeit->Show(ToQString(SourceTimeOf(file)));
}

}  // namespace norvik
