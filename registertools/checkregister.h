// Check and repair of values that the telephones cannot hold.
#pragma once

#include "base/desktop.h"
#include "register/register.h"

namespace norvik {

/// The report's first line where it tells of the load alone.
inline constexpr TextView NothingCorrected = u"Es wurden 0 Fehler korrigiert";

/// Checks every named entry of the whole table (not of the used positions only), repairs
/// announcements above 7 and tones above 79 (both become 0), reports them and charge counters above
/// 32768 in LoadReport, and shows the report when it is not empty.
void CheckRegister(RegisterState& state, Desktop& desktop);

/// Checks and repairs one entry and appends the findings to `report`; gives their number. An entry
/// without a name is left as it is.
int CheckEntry(RegisterEntry& entry, LongReport& report);

}  // namespace norvik
