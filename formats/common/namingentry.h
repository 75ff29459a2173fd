// Which entry keeps a file from being written.
#pragma once

#include "register/register.h"

#include <functional>

namespace norvik {

/// Runs `write`, which writes what the file holds of the entry at `position`. A value that the file
/// cannot hold gets the entry as the error's cause: "#1 B: 70000 Einheiten".
void NamingEntry(const RegisterState& state, int position,
                 const std::function<void(const RegisterEntry& entry)>& write);

}  // namespace norvik
