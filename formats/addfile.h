// Adding a file of any format to the register.
#pragma once

#include "base/desktop.h"
#include "formats/csv/csvformat.h"
#include "register/register.h"
#include "register/settings.h"

namespace norvik {

/// Asks for a file of a format that can be loaded and adds its entries to the register, which is
/// then sorted and shows the first one of them; tells in one report what was added and what its
/// reader found. Of a file that cannot be read to its end the whole entries are added. The register
/// stays that of its own file.
void mnuDateiAdd(RegisterState& state, const Settings& settings, const CsvLoadOptions& options,
                 Desktop& desktop);

}  // namespace norvik
