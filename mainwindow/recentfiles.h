// The files that were used last, for the menu and for the folder in which a dialog begins.
#pragma once

#include "base/paths.h"

#include <vector>

namespace norvik {

/// More than these are forgotten.
inline constexpr std::size_t MostRecentFiles = 8;

struct RecentFiles {
    std::vector<FilePath> Paths;  ///< of registers, the newest first
    FilePath Folder;              ///< where the user was last; empty where that is unknown
    bool operator==(const RecentFiles&) const = default;
};

/// A register was loaded from the file, or saved to it. One whose ending belongs to no register is
/// not noted, but its folder is; nothing is of a file in `hidden`.
void AddRecent(RecentFiles& files, const FilePath& path, const FilePath& hidden);

/// The user chose a file of the folder in a dialog.
void NoteFolder(RecentFiles& files, const FilePath& visited, const FilePath& hidden);

void RemoveRecent(RecentFiles& files, const FilePath& path);

/// What the menu shows of the file: its place in the list as the mnemonic, its name and its folder.
Text RecentCaption(std::size_t place, const FilePath& path);

/// The menu item that loads a file of this ending, by its name; empty for an ending that none
/// loads.
std::string_view LoadItemOf(const FilePath& path);

}  // namespace norvik
