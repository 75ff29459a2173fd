// The handlers of the register list's window, named by control and event.
#pragma once

#include "base/desktop.h"
#include "mainwindow/program.h"

namespace norvik {

/// Shows the register list beside the main window.
void mnuListView_Click(Program& program, Desktop& desktop);

/// The user changed one of the boxes.
void chkFi_Click(Program& program, Desktop& desktop);
/// Fills the list as the boxes ask; without a ticked box the list and the marks stay.
void RefreshRegisterList(Program& program, Desktop& desktop);
/// A register was loaded: what an open list shows of the old one goes.
void RenewRegisterList(Program& program, Desktop& desktop);

/// "Filter setzen": closes the list; the main window's list shows the listed entries alone when a
/// box is ticked.
void NVList_btnExit_Click(Program& program, Desktop& desktop);
/// "Abbrechen", also by the window's own button: closes the list.
void NVList_btnCancel_Click(Program& program, Desktop& desktop);

}  // namespace norvik
