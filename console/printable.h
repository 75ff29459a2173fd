// Texts that a terminal shows safely, whatever they hold.
#pragma once

#include "base/paths.h"

namespace norvik {

/// `text` for one line of a terminal: every control character, line ends included, becomes "?".
Text Printable(TextView text);

/// A path for one line of a terminal; characters outside Windows-1252 become "?", too.
Text PrintablePath(const FilePath& path);

}  // namespace norvik
