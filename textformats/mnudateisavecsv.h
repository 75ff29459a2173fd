#pragma once

#include "base/desktop.h"
#include "register/register.h"

namespace norvik {

/// Asks for a name and saves the register as a CSV file. A failure is reported and ends the
/// operation.
void mnuDateiSaveCSV(RegisterState& state, Desktop& desktop);

}  // namespace norvik
