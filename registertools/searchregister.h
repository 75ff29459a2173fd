// Searching the register for a text.
#pragma once

#include "base/desktop.h"
#include "register/register.h"

namespace norvik {

/// Looks for `term`, regardless of case, in name, info and number of the entries, the three joined
/// without a separator; from position 1, or with `continueSearch` from behind the current position.
/// Beeps and shows the entry that it finds; otherwise says that there is none.
void SearchRegister(RegisterState& state, TextView term, bool continueSearch, Desktop& desktop);

}  // namespace norvik
