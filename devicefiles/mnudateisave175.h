#pragma once

#include "base/desktop.h"
#include "register/register.h"

namespace norvik {

/// Asks for a name, saves the register as a 175 phonebook file and shows entry 1. A failure shows
/// in the status line only.
void mnuDateiSave175(RegisterState& state, Desktop& desktop);

}  // namespace norvik
