#pragma once

#include "base/desktop.h"
#include "register/register.h"

namespace norvik {

/// Asks for a name and saves the register as a 195 file. A failure shows in the status line only.
void mnuDateiSaveNV(RegisterState& state, Desktop& desktop);

}  // namespace norvik
