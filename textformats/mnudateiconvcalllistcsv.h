#pragma once

#include "base/desktop.h"

namespace norvik {

/// Asks for a call list and converts it. The register is not touched.
void mnuDateiConvCallListCSV(Desktop& desktop);

}  // namespace norvik
