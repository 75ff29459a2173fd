// The handlers of the doubled numbers' window, named by control and event.
#pragma once

#include "base/desktop.h"
#include "dialogs/windows.h"
#include "mainwindow/program.h"

namespace norvik {

/// Shows the entries whose numbers reach the same line, beside the main window.
void mnuListDoubles(Program& program, Windows& windows);

/// While the window is open: brings its rows up to date. The chosen entry stays chosen; when it
/// went, none is.
void FollowDoubles(Program& program);

/// The user chose a row: the main window shows its entry, as if it was chosen in its list.
void ListDoubles_Click(Program& program, int row, Desktop& desktop);
/// "Löschen": shows the chosen entry and erases it, as the main window's button does.
void DOUBLES_btnErase_Click(Program& program, Desktop& desktop);
/// "Schließen", also by the window's own button.
void DOUBLES_btnClose_Click(Program& program, Windows& windows);

}  // namespace norvik
