#pragma once

#include "base/desktop.h"
#include "register/register.h"

namespace norvik {

/// Asks for a name and, unless the register came from a 193 file, whether only the marked entries
/// are wanted; saves as a 193 file and shows entry 1. A failure shows in the status line only.
void MNUDateiSave193(RegisterState& state, Desktop& desktop);

}  // namespace norvik
