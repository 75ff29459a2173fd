// The handlers of the register list's window, named by control and event.
#pragma once

#include "base/desktop.h"
#include "dialogs/windows.h"
#include "mainwindow/program.h"

namespace norvik {

/// Shows the register list beside the main window.
void mnuListView(Program& program, Windows& windows);

/// The user changed one of the boxes.
void chkFi_Click(Program& program, Desktop& desktop, Windows& windows);
/// Fills the list as the boxes ask, and shows its window if it is not shown; without a ticked box
/// the list and the marks stay.
void RefreshRegisterList(Program& program, Desktop& desktop, Windows& windows);
/// A register was loaded: what an open list shows of the old one goes.
void RenewRegisterList(Program& program, Desktop& desktop, Windows& windows);

/// A double click or Return on a line: shows its entry in the main window, as a click in the list
/// there does.
void ListResult_DblClick(Program& program, int line, Desktop& desktop);
/// "Filter setzen": closes the list; the main window's list shows the listed entries alone when a
/// box is ticked.
void NVList_btnExit_Click(Program& program, Desktop& desktop, Windows& windows);
/// "Abbrechen", also by the window's own button: closes the list.
void NVList_btnCancel_Click(Program& program, Windows& windows);

}  // namespace norvik
