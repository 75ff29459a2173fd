// What the window remembers from one run to the next, apart from the program's own settings.
#pragma once

#include "mainwindow/recentfiles.h"

namespace norvik {

/// The settings file; empty where something else bears its name, or a file that is far too large,
/// which nobody could read to its end.
FilePath UsableSettingsFile(FilePath file);

/// The last files, as they stand in the settings file; none where there is no such file.
RecentFiles ReadRecentFiles(const FilePath& settingsFile);

/// Puts them there. Nobody is told where that does not work. Without a file nothing is remembered.
void WriteRecentFiles(const FilePath& settingsFile, const RecentFiles& files);

}  // namespace norvik
