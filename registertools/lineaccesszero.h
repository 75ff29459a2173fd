// The zero for the outside line in front of all numbers of the register.
#pragma once

#include "base/desktop.h"
#include "register/register.h"

namespace norvik {

/// With code "0" puts a zero in front of every external number and takes the mark off internal
/// ones; with any other code takes a zero off and puts the code in front of the numbers without
/// one. A number that becomes longer than 21 characters is cut, with a warning. Goes through the
/// table, not through the order. Sets or clears WarnLineAccessZero.
void ConvertLineAccessZero(RegisterState& state, TextView code, Desktop& desktop);

/// Asks, then adds the zeros.
void mnuBearbeitenNullHinzu(RegisterState& state, Desktop& desktop);

/// Asks how internal numbers are to be marked, then removes the zeros.
void mnuBearbeitenNullEntf(RegisterState& state, Desktop& desktop);

}  // namespace norvik
