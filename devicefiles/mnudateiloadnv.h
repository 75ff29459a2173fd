#pragma once

#include "base/desktop.h"
#include "base/runtimeerror.h"
#include "register/register.h"

namespace norvik {

/// Asks for a 195/193 register file, loads, checks and sorts it and shows its first entry. A file
/// that cannot be read is reported and leaves the register as it was.
void mnuDateiLoadNV(RegisterState& state, Desktop& desktop);

/// Shows the box for an error of the load.
void ReportLoadNVError(const RuntimeError& error, Desktop& desktop);

}  // namespace norvik
