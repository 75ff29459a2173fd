// A vCard file as the address database: no mapping is needed, a contact says itself what is what.
#pragma once

#include "base/inputstream.h"
#include "formats/common/loadprogress.h"
#include "sync/synctables.h"

namespace norvik {

/// So many records are made of the contacts, those for the further numbers of a contact included.
inline constexpr std::size_t MostContactRecords = 10 * SyncRecords;

/// Whether a path names a vCard file, by its ending.
bool NamesVCard(TextView path);

/// Puts the first SyncRecords contacts of a vCard file into empty tables and gives their number. A
/// contact with several numbers of one column has a record for each, one behind the other. The
/// file is read in a stream; a failure ends the reading without a message.
std::size_t ReadSyncContacts(InputStream& input, SyncTables& tables, Desktop& desktop,
                             const Clock& clock);

}  // namespace norvik
