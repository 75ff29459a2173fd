// The menu items of the vCard file: loading and saving.
#pragma once

#include "base/charset.h"
#include "base/desktop.h"
#include "formats/common/sourcefile.h"
#include "register/register.h"
#include "register/settings.h"

namespace norvik {

/// Asks for a vCard file, loads and sorts it and shows its first entry. A failure is reported and
/// ends the operation; the register stays where no number could be read.
void mnuDateiLoadVCard(RegisterState& state, const Settings& settings, Desktop& desktop);

/// Asks for a name and saves the register as contacts, with the numbers in international form. The
/// file holds a part of each entry, so the register counts as saved or not as before.
void mnuDateiSaveVCard(RegisterState& state, const Settings& settings, Desktop& desktop);

/// Loads a vCard file, neither sorted nor shown; a failure is reported as that of
/// mnuDateiLoadVCard. Gives whether the file was loaded. `characters` is as for LoadVCard.
bool LoadVCardOrReport(RegisterState& state, const SourceReader& open, const Settings& settings,
                       Desktop& desktop, Charset characters = Charset::Automatic);

}  // namespace norvik
