// What every load of a register does once the file is in memory.
#pragma once

#include "base/desktop.h"
#include "base/runtimeerror.h"
#include "register/register.h"

#include <functional>

namespace norvik {

/// Notes that the register may hold line-access zeros, sorts it by name and shows entry 1. A
/// register without entries takes the hard stop of the sort.
void FollowLoad(RegisterState& state, Desktop& desktop);

/// The part of FollowLoad behind the sort: shows entry 1 and brings the status fields up to date.
void ShowFirstEntry(RegisterState& state, Desktop& desktop);

/// Runs `load`, which raises an error where the file cannot be read, and gives whether it went to
/// its end. `report` tells of an error. Where the register was emptied by then, the entries that
/// were read whole (at least one) are the register now: the window shows them with their file, and
/// nothing of it counts as saved. The error then stands in the register's Damage.
bool LoadOrReport(RegisterState& state, const std::function<void()>& load,
                  const std::function<void(const RuntimeError&)>& report, Desktop& desktop);

}  // namespace norvik
