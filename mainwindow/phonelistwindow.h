// The handlers of the phone list's dialog, named by control and event.
#pragma once

#include "base/desktop.h"
#include "dialogs/windows.h"
#include "mainwindow/program.h"

namespace norvik {

/// Shows the dialog that prints the phone list.
void mnuDateiPrint(Program& program, Windows& windows);
/// Shows the dialog that saves it as a PDF file.
void mnuDateiSavePdf(Program& program, Windows& windows);

/// The pages that the dialog's choices give on paper of the given size.
PaperDocument PhoneListPages(const Program& program, const PaperSize& size, FileTime printed);

/// "Speichern...": asks for a name and writes the PDF file. Gives whether it was saved. The
/// register counts as saved or not as before.
bool PHONELIST_btnSave_Click(const Program& program, FileTime printed, Desktop& desktop);

/// How a print ends: so many pages were printed, nothing stands for a printer that takes none.
void EndPrinting(std::optional<int> pages, Desktop& desktop);

/// The same where there is no printer at all, and the system's dialog for printing needs one.
void EndPrintingWithoutPrinter(Desktop& desktop);

}  // namespace norvik
