// The menu items of the register file: loading, saving as a 195 and as a 193 file.
#pragma once

#include "base/desktop.h"
#include "base/runtimeerror.h"
#include "formats/common/sourcefile.h"
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

/// Asks for a name and saves the register as a 195 file. A failure shows in the status line only.
void mnuDateiSaveNV(RegisterState& state, Desktop& desktop);

/// Asks for a name and, unless the register came from a 193 file, whether only the marked entries
/// are wanted; saves as a 193 file and shows entry 1. A failure shows in the status line only.
void MNUDateiSave193(RegisterState& state, Desktop& desktop);

}  // namespace norvik
