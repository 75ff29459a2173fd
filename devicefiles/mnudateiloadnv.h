#pragma once

#include "base/desktop.h"
#include "base/runtimeerror.h"
#include "devicefiles/sourcefile.h"
#include "register/register.h"

namespace norvik {

/// Asks for a 195/193 register file, loads, checks and sorts it and shows its first entry. A file
/// that cannot be read is reported and leaves the register as it was.
void mnuDateiLoadNV(RegisterState& state, Desktop& desktop);

/// Shows the box for an error of the load.
void ReportLoadNVError(const RuntimeError& error, Desktop& desktop);

/// Loads and checks a 195/193 register file, neither sorted nor shown; a failure is reported as
/// that of mnuDateiLoadNV. Gives whether the file was loaded.
bool LoadNVOrReport(RegisterState& state, const SourceReader& read, Desktop& desktop);

}  // namespace norvik
