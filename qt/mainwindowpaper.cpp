// What of the main window has to do with the phone list on paper.
#include "mainwindow/phonelistwindow.h"
#include "qt/mainwindow.h"
#include "qt/panelarea.h"
#include "qt/paperprinting.h"
#include "qt/phonelistdialog.h"
#include "qt/systemshell.h"

#include <QPageSize>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPrinterInfo>

#include <chrono>

namespace norvik {

namespace {

FileTime Now() {
    return std::chrono::floor<FileTime::duration>(std::chrono::system_clock::now());
}

void SetUp(QPrinter& printer, const PhoneListOptions& options) {
    printer.setDocName(QStringLiteral("Telefonliste"));
    printer.setFullPage(true);
    printer.setPageSize(QPageSize(options.Paper == PaperA5 ? QPageSize::A5 : QPageSize::A4));
}

}  // namespace

void MainWindow::RunPhoneList() {
    PhoneListDialog dialog(program_.PhoneList, this);
    memory_.Follow(dialog);
    connect(&dialog, &PhoneListDialog::previewWanted, this, [this, &dialog] {
        program_.PhoneList.Chosen = dialog.Options();
        PreviewPhoneList(dialog);
    });
    connect(&dialog, &PhoneListDialog::listWanted, this, [this, &dialog] {
        program_.PhoneList.Chosen = dialog.Options();
        bool isDone = false;
        if (program_.PhoneList.AsPdf) {
            Run([&] { isDone = PHONELIST_btnSave_Click(program_, Now(), desktop_); });
        } else {
            isDone = PrintPhoneList(dialog);
        }
        if (isDone) {
            dialog.accept();
        }
    });
    dialog.exec();
}

std::optional<int> MainWindow::PrintPages(QPrinter& printer) {
    return PrintPaper(
        printer, [this](const PaperSize& size) { return PhoneListPages(program_, size, Now()); });
}

bool MainWindow::PrintPhoneList(QWidget& parent) {
    if (!PrintsWithoutPrinter() && QPrinterInfo::availablePrinterNames().isEmpty()) {
        Run([&] { EndPrintingWithoutPrinter(desktop_); });
        return false;
    }
    QPrinter printer(QPrinter::HighResolution);
    SetUp(printer, program_.PhoneList.Chosen);
    QPrintDialog dialog(&printer, &parent);
    if (dialog.exec() != QDialog::Accepted) {
        return false;
    }
    std::optional<int> pages;
    Run([&] {
        pages = PrintPages(printer);
        EndPrinting(pages, desktop_);
    });
    return pages.value_or(0) > 0;
}

void MainWindow::PreviewPhoneList(QWidget& parent) {
    QPrinter printer(QPrinter::HighResolution);
    SetUp(printer, program_.PhoneList.Chosen);
    QPrintPreviewDialog preview(&printer, &parent);
    preview.setObjectName(QStringLiteral("PREVIEW"));
    Resize(preview, {preview.fontMetrics().averageCharWidth() * 140, RoomFor(preview).height()});
    memory_.Follow(preview);
    connect(&preview, &QPrintPreviewDialog::paintRequested, this,
            [this](QPrinter* target) { PrintPages(*target); });
    preview.exec();
}

}  // namespace norvik
