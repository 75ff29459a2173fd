// The handlers of the earlier versions' window, named by control and event.
#pragma once

#include "base/desktop.h"
#include "dialogs/windows.h"
#include "mainwindow/program.h"

namespace norvik {

/// What undoing calls the load of an earlier version.
inline constexpr TextView VersionLoadedStep = u"Früheren Stand laden";

/// Shows the earlier versions beside the main window, the newest one chosen.
void mnuDateiVersions(Program& program, Windows& windows);
/// The menu item's caption: with a mark while the program has to tell why it ended the last time.
Text VersionsCaption(const Program& program);

/// While the window is open: brings its rows up to date when a version was kept.
void FollowVersions(Program& program);

/// The user chose a row.
void ListVersions_Click(Program& program, int row);
/// "Laden": the chosen version is the register. One of a register comes back exactly as it was, one
/// of a file is loaded as a file of its kind. Nothing of it counts as saved.
void VERSIONS_btnLoad_Click(Program& program, Desktop& desktop, Windows& windows);
/// "Speichern unter...": asks for a name and saves the chosen version in the format of its ending;
/// the bytes of a file as they are where the ending is the same.
void VERSIONS_btnSaveAs_Click(Program& program, Desktop& desktop);
/// "Entfernen": the chosen version goes.
void VERSIONS_btnRemove_Click(Program& program);
/// "Schließen", also by the window's own button.
void VERSIONS_btnClose_Click(Program& program, Windows& windows);

}  // namespace norvik
