// Clearing all charge counters.
#pragma once

#include "base/desktop.h"
#include "register/register.h"

namespace norvik {

/// Asks, then sets the charge counter of every entry to 0. Gives false when the user cancels.
bool ClearCharges(RegisterState& state, Desktop& desktop);

}  // namespace norvik
