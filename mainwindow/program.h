// All state of the program in one record. Only this floor and the window above it know it; what
// stands below takes the parts that it touches.
#pragma once

#include "base/paths.h"
#include "mainwindow/fields.h"
#include "register/register.h"
#include "register/settings.h"
#include "registertools/fillregisterlist.h"
#include "sync/loadsyncdatabase.h"

namespace norvik {

struct Program {
    /// Where "norvik.ini" and the optional companion files lie.
    FilePath Folder;
    Settings Set;
    RegisterState State;
    MainWindowFields Fields;
    Text SearchTerm;          ///< survives from one search to the next
    RegisterListFields List;  ///< of the register list's window
    SyncState Sync;
    /// Where the help documents are installed; those in Folder come first.
    FilePath DocumentFolder;
};

}  // namespace norvik
