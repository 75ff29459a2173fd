// All state of the program in one record. Only this floor and the window above it know it; what
// stands below takes the parts that it touches.
#pragma once

#include "base/paths.h"
#include "mainwindow/fields.h"
#include "mainwindow/history.h"
#include "register/register.h"
#include "register/settings.h"
#include "registertools/fillregisterlist.h"
#include "sync/loadsyncdatabase.h"

#include <cstdint>
#include <map>

namespace norvik {

/// Where earlier versions are kept, and of what this process must know.
struct Keeping {
    FilePath Folder;       ///< of the versions; empty where nothing is kept
    FilePath SessionFile;  ///< holds the register of this process while no save does
    bool SessionFileStands = false;
    /// The contents of the files that this process loaded or saved, as hashes.
    std::map<FilePath, std::uint64_t> Known;
    FilePath Target;  ///< of the running save
};

struct Program {
    /// Where "norvik.ini" and the optional companion files lie.
    FilePath Folder;
    Settings Set;
    RegisterState State;
    MainWindowFields Fields;
    Text SearchTerm;          ///< survives from one search to the next
    RegisterListFields List;  ///< of the register list's window
    SyncState Sync;
    History Past;        ///< what can be undone
    EditBuffer Shown;    ///< what ShowEntry put into the fields, or StoreEntry took out of them
    unsigned Shows = 0;  ///< how often an entry was shown
    unsigned Kept = 0;   ///< how often what was typed was stored, or kept as a step
    Keeping Keep;
    /// Where the help documents are installed; those in Folder come first.
    FilePath DocumentFolder;
};

}  // namespace norvik
