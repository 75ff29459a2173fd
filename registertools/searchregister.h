// Searching the register for a text.
#pragma once

#include "base/desktop.h"
#include "register/register.h"

namespace norvik {

/// Which way a search goes that goes on.
enum class SearchDirection { Forwards, Backwards };

/// Looks for `term`, regardless of case, in name, info and number of the entries, the three joined
/// without a separator; from position 1, or with `continueSearch` from the neighbour of the current
/// position in the given direction, where the register's ends join. Beeps and shows the entry that
/// it finds; otherwise says that there is none.
void SearchRegister(RegisterState& state, TextView term, bool continueSearch, Desktop& desktop,
                    SearchDirection direction = SearchDirection::Forwards);

}  // namespace norvik
