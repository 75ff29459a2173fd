// The menu item of the vCard file: loading.
#pragma once

#include "base/desktop.h"
#include "formats/common/sourcefile.h"
#include "register/register.h"
#include "register/settings.h"

namespace norvik {

/// Asks for a vCard file, loads and sorts it and shows its first entry. A failure is reported and
/// ends the operation; the register stays where no number could be read.
void mnuDateiLoadVCard(RegisterState& state, const Settings& settings, Desktop& desktop);

/// Loads a vCard file, neither sorted nor shown; a failure is reported as that of
/// mnuDateiLoadVCard. Gives whether the file was loaded.
bool LoadVCardOrReport(RegisterState& state, const SourceReader& open, const Settings& settings,
                       Desktop& desktop);

}  // namespace norvik
