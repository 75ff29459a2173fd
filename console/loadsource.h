// From the source to a register in memory.
#pragma once

#include "base/desktop.h"
#include "console/options.h"
#include "formats/common/sourcefile.h"
#include "register/register.h"
#include "register/settings.h"

namespace norvik {

/// The settings as the window has them after its start: those of the options' file, if they name
/// one. Raises what reading it raises.
Settings ReadConverterSettings(const ConverterOptions& options);

/// Reads the source, file or standard input; raises what that raises.
SourceFile ReadSource(const FilePath& source);

/// Loads and checks the source, sorts it as the options say and adds or removes the zeros for the
/// outside line. A register without entries is not sorted. Gives false for a failure, which has
/// been reported. Throws HardStop for a broken file.
bool LoadSource(const ConverterOptions& options, const Settings& settings, RegisterState& state,
                Desktop& desktop);

}  // namespace norvik
