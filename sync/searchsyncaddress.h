// Looking for an entry's address in the address database.
#pragma once

#include "base/desktop.h"
#include "register/register.h"
#include "sync/loadsyncdatabase.h"

namespace norvik {

/// Looks for the shown entry's number among the numbers of the address database, asks for each hit
/// and puts the addresses that the user takes in front of the entry's info text. Two numbers are
/// the same when their international forms agree in the last ten characters.
void SearchSyncAddress(RegisterState& state, const SyncState& sync, const Settings& settings,
                       Desktop& desktop);

}  // namespace norvik
