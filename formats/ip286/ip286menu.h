// The menu item of the IP 286 and its warning.
#pragma once

#include "base/desktop.h"
#include "register/register.h"

namespace norvik {

/// Warns of a register that is too large for the IP 286, asks for a name and the texts to exclude,
/// and exports. A failure is reported and ends the operation.
void mnuDateiSaveIP286(RegisterState& state, Desktop& desktop);

/// Shows a warning when the register has more entries than the IP 286 keeps.
void WarnOfLargeRegister(const RegisterState& state, Desktop& desktop);

}  // namespace norvik
