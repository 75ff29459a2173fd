// The folders in which programs keep what is a user's. There is one file of them for each system.
#pragma once

#include "base/paths.h"

namespace norvik {

/// Where programs keep a user's data.
FilePath UserDataFolder();

/// Where programs keep what they remember of a user's work.
FilePath UserStateFolder();

/// Where programs keep a user's settings.
FilePath UserConfigFolder();

}  // namespace norvik
