// Files that come to the window without its dialogs: from the list of the last ones, or dropped on
// it. They are loaded by the menu's own operations.
#pragma once

#include "dialogs/windows.h"
#include "mainwindow/program.h"

#include <vector>

namespace norvik {

/// What becomes of files that were dropped.
enum class Dropped { Load, Add };

/// Loads the file as its menu item would when it was chosen in the dialog; one that no item loads
/// is told of.
void LoadGivenFile(Program& program, const FilePath& path, Desktop& desktop, Windows& windows);

/// The same for a file of the list. One that is gone is told of and leaves the list.
void LoadRecentFile(Program& program, const FilePath& path, Desktop& desktop, Windows& windows);

/// Loads the first of the files, or adds it to the register; the status tells of the others.
void TakeDroppedFiles(Program& program, const std::vector<FilePath>& files, Dropped what,
                      Desktop& desktop, Windows& windows);

/// What undoing calls that.
TextView StepOfFile(const FilePath& path, Dropped what = Dropped::Load);

}  // namespace norvik
