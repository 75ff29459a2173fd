// Loading the address database: an address book, exported as text or as vCard, whose records are
// looked up by telephone number.
#pragma once

#include "base/desktop.h"
#include "formats/common/loadprogress.h"
#include "sync/synctables.h"

namespace norvik {

struct SyncState {
    SyncTables Tables;
    bool SyncLoaded = false;  ///< a load was completed; the address menu is enabled with it
};

/// Replaces the tables by the records of the database that the settings name. A missing file is
/// reported, in the status line too; the tables are empty then. The status line also tells of
/// replaced characters. Any other failure ends the reading without a message.
void LoadSyncDatabase(const SettingsTable& settings, SyncState& sync, Desktop& desktop,
                      const Clock& clock = std::chrono::steady_clock::now);

}  // namespace norvik
