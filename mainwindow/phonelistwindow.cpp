#include "mainwindow/phonelistwindow.h"

#include "formats/common/quietsave.h"
#include "formats/common/undefinederror.h"
#include "paper/pdf.h"

#include <utility>

namespace norvik {

namespace {

/// What was chosen the last time stays chosen, unless there are no such entries.
void Open(Program& program, bool asPdf, Windows& windows) {
    PhoneListFields& fields = program.PhoneList;
    fields.AsPdf = asPdf;
    for (const ListedEntries which :
         {ListedEntries::All, ListedEntries::Marked, ListedEntries::Filtered}) {
        const bool isOn = which != ListedEntries::Filtered || program.Fields.chkListFilter;
        fields.Counts.at(static_cast<std::size_t>(which)) =
            isOn ? CountPhoneListRows(program.State, which) : 0;
    }
    if (fields.Counts.at(static_cast<std::size_t>(fields.Chosen.Entries)) == 0) {
        fields.Chosen.Entries = ListedEntries::All;
    }
    windows.ShowPhoneList();
}

}  // namespace

void mnuDateiPrint(Program& program, Windows& windows) {
    Open(program, false, windows);
}

void mnuDateiSavePdf(Program& program, Windows& windows) {
    Open(program, true, windows);
}

PaperDocument PhoneListPages(const Program& program, const PaperSize& size, FileTime printed) {
    PhoneListOptions options = program.PhoneList.Chosen;
    options.Paper = size;
    return LayOutPhoneList(program.State, options, printed);
}

bool PHONELIST_btnSave_Click(const Program& program, FileTime printed, Desktop& desktop) {
    const std::optional<FilePath> chosen =
        desktop.AskForFileToSave({.filter = Text(PdfFilter), .ending = std::string(PdfEnding)});
    if (!chosen) {
        return false;
    }
    const FilePath path = WithEnding(*chosen, PdfEnding);
    const PaperDocument pages = PhoneListPages(program, program.PhoneList.Chosen.Paper, printed);
    const SaveResult result = TrySave(
        path, [&](const OutputTarget& target) { WritePdf(pages, target); }, desktop);
    if (result.Failure) {
        ReportUndefinedError(u"mnuDateiSavePdf", *result.Failure, desktop);
        ShowNotSaved(*result.Failure, desktop);
        return false;
    }
    ShowSaved(path, desktop, result.Remark);
    return true;
}

void EndPrinting(std::optional<int> pages, Desktop& desktop) {
    if (!pages || *pages == 0) {
        desktop.SetStatus(pages ? u"Nicht gedruckt: diese Seiten gibt es nicht"
                                : u"Nicht gedruckt: der Drucker nimmt nichts an");
        return;
    }
    desktop.SetStatus(u"Gedruckt: " + Decimal(*pages) + (*pages == 1 ? u" Seite" : u" Seiten"));
}

void EndPrintingWithoutPrinter(Desktop& desktop) {
    desktop.SetStatus(u"Nicht gedruckt: es ist kein Drucker eingerichtet");
}

}  // namespace norvik
