// The main window's handlers, named by control and event. Before a handler runs, the window has put
// what the user typed and clicked into the program's Fields; afterwards it draws them.
#pragma once

#include "base/desktop.h"
#include "dialogs/settingsfields.h"
#include "dialogs/windows.h"
#include "mainwindow/program.h"

namespace norvik {

/// Shows the entry at AnzNr in the fields.
void ShowEntry(Program& program);
/// Builds the list's rows anew.
void RebuildRows(Program& program);

/// Writes the fields into the entry, sorts and follows the entry to its new position.
void btnSaveChange_Click(Program& program, Desktop& desktop);
/// A new empty entry at the end. Raises error 9 on a full register.
void btnNew_Click(Program& program, Desktop& desktop);
/// Erases the shown entry, without a question.
void btnErase_Click(Program& program, Desktop& desktop);
/// Clears the charge counter on screen; the entry's counter follows when it is stored.
void btnEraseCharge_Click(Program& program);
/// Stores the entry and sets or clears its export mark as chkExport shows.
void chkExport_Click(Program& program, Desktop& desktop);
/// A choice (tone, announcement, MSN, filter, charge counter) was changed by the user.
void Choice_Change(Program& program);

/// Asks for a term and searches from the first entry on.
void btnSearch_Click(Program& program, Desktop& desktop);
/// Searches the same term behind the shown entry.
void btnSearchMore_Click(Program& program, Desktop& desktop);
/// Searches the same term in front of the shown entry.
void SearchBackwards(Program& program, Desktop& desktop);

/// The record selector took a value.
void Satzwahl_Change(Program& program, int value, Desktop& desktop);
/// The user chose the entry at a position. Asks what becomes of a pending choice first.
void ChooseEntry(Program& program, int position, Desktop& desktop);
/// A row of the list was chosen.
void TelRegListe_Click(Program& program, TextView row, Desktop& desktop);
/// The filter box of the list was ticked or cleared.
void chkListFilter_Click(Program& program, Desktop& desktop);

enum class FieldKey { Return, Down, Up };
/// A key in one of the eight text fields (0, 1, 8 to 13): moves on in their cycle; with `shift`,
/// Return and Down store the entry first.
void Anzeigefeld_KeyDown(Program& program, int field, FieldKey key, bool shift, Desktop& desktop);

/// Asks for a number and shows its international form.
void Bild1_Click(const Program& program, Desktop& desktop);

/// Removes the outgoing MSN of all entries; the shown entry's choice and raw value follow at once.
void mnuBearbeitenKillMSN(Program& program, Desktop& desktop);
/// Clears all charge counters; the shown amount follows at once.
void mnuGebDelete(Program& program, Desktop& desktop);
/// Renews the names of the tone list from the tone folder, stores them and shows the entry again.
/// Raises what writing "rt.lng" raises; the list then shows the new names all the same.
void mnuNameRingtones(Program& program, Desktop& desktop);
/// Loads the address database.
void mnuDateiLoadSync(Program& program, Desktop& desktop);
/// Looks for the shown entry's address.
void mnuSyncAdd(Program& program, Desktop& desktop);
/// Stores what the settings dialog holds; the shown amount follows a new price unless the user
/// cleared it. Raises what writing "norvik.ini" raises; the settings then stay as they were.
void StoreSettings(Program& program, const SettingsFields& fields, Desktop& desktop);
/// Reverses the check mark.
void mnuExtraDoubles(Program& program);

/// Closes the window as its close box does.
void mnuDateiBeenden(Windows& windows);
/// Whether the window may close: asks while the register is not saved.
bool MayClose(const Program& program, Desktop& desktop);

}  // namespace norvik
