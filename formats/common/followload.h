// What every load of a register does once the file is in memory.
#pragma once

#include "base/desktop.h"
#include "register/register.h"

namespace norvik {

/// Notes that the register may hold line-access zeros, sorts it by name and shows entry 1. A
/// register without entries takes the hard stop of the sort.
void FollowLoad(RegisterState& state, Desktop& desktop);

/// The part of FollowLoad behind the sort: shows entry 1 and brings the status fields up to date.
void ShowFirstEntry(RegisterState& state, Desktop& desktop);

}  // namespace norvik
