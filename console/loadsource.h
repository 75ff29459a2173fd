// From the source to a register in memory.
#pragma once

#include "base/desktop.h"
#include "console/options.h"
#include "formats/common/sourcefile.h"
#include "register/register.h"
#include "register/settings.h"

namespace norvik {

/// The settings as the window has them after its start: those of the options' file, if they name
/// one, and the options' price. Raises what reading it raises.
Settings ReadConverterSettings(const ConverterOptions& options);

/// Opens the source, file or standard input; raises what that raises.
Source OpenSource(const FilePath& source);

/// Opens the options' source, and reads it as a whole unless its format is read block by block.
/// Raises what that raises.
Source OpenSource(const ConverterOptions& options);

enum class LoadResult {
    Whole,
    TakenDespiteDamage,
    Damaged,      ///< some entries were read, and the options do not want them alone
    NothingRead,  ///< damaged, and no entry was read
    OtherKind,    ///< no register of this format, which has been reported
};

/// Loads and checks the source, sorts it as the options say and adds or removes the zeros for the
/// outside line. A register without entries is not sorted. What is amiss with a source that was not
/// read whole stands in the register's Damage.
LoadResult LoadSource(const ConverterOptions& options, Source source, const Settings& settings,
                      RegisterState& state, Desktop& desktop);

}  // namespace norvik
