// The help menu.
#pragma once

#include "base/desktop.h"
#include "dialogs/windows.h"

#include <vector>

namespace norvik {

/// The documents lie in the first of the folders that holds them.
using HelpFolders = std::vector<FilePath>;

void mnuHelpManual(const HelpFolders& folders, Desktop& desktop, Windows& windows);
void mnuHilfeReadme(const HelpFolders& folders, Desktop& desktop, Windows& windows);
void mnuHilfeWhatsNew(const HelpFolders& folders, Windows& windows);
void mnuHilfeAbout(Desktop& desktop);

}  // namespace norvik
