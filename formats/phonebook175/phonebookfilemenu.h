// The menu items of the 175's phonebook file: loading and saving.
#pragma once

#include "base/desktop.h"
#include "formats/common/sourcefile.h"
#include "register/register.h"

namespace norvik {

/// Asks for a 175 phonebook file, loads, checks and sorts it and shows its first entry. A failure
/// is reported and ends the operation.
void mnuDateiLoad175(RegisterState& state, Desktop& desktop);

/// Loads a 175 phonebook file; a failure is reported as that of mnuDateiLoad175. Gives whether the
/// file was loaded.
bool Load175OrReport(RegisterState& state, const FilePath& path, Desktop& desktop);
bool Load175OrReport(RegisterState& state, const SourceReader& read, Desktop& desktop);

/// Asks for a name, saves the register as a 175 phonebook file and shows entry 1. A failure shows
/// in the status line only.
void mnuDateiSave175(RegisterState& state, Desktop& desktop);

}  // namespace norvik
