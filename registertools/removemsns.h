// Removing the outgoing MSN of all entries.
#pragma once

#include "base/desktop.h"
#include "register/register.h"

namespace norvik {

/// Asks, then sets the outgoing MSN of every entry that has one to that of the telephone and shows
/// how many there were. Gives false when the user cancels.
bool RemoveMsns(RegisterState& state, Desktop& desktop);

}  // namespace norvik
