// What "--hilfe" and "--version" show.
#pragma once

#include "base/text.h"

namespace norvik {

/// How the program is called; lines ended by CR LF.
Text HelpText();

/// The program's name and version in one line.
Text VersionText();

}  // namespace norvik
