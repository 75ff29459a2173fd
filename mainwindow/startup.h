// Everything between the program's start and the moment the window waits for its user.
#pragma once

#include "base/desktop.h"
#include "mainwindow/program.h"

namespace norvik {

/// Reads the settings file and the command line and allocates the empty register. A settings file
/// that is missing or cannot be read is reported; the program goes on with empty settings.
void LoadSettings(Program& program, TextView commandLine, Desktop& desktop);

/// Prepares settings, register and window fields and loads the start file. `program.Folder` must be
/// set and the window be shown. `commandLine` holds the program's arguments joined by blanks.
/// `file`, when it is not empty, is loaded instead of the start file that the settings or the
/// command line name; it is taken exactly as written, whatever characters it holds.
void StartUp(Program& program, TextView commandLine, Desktop& desktop, const FilePath& file = {});

}  // namespace norvik
