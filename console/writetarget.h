// From the register in memory to the target.
#pragma once

#include "base/desktop.h"
#include "base/outputfile.h"
#include "base/runtimeerror.h"
#include "console/options.h"
#include "register/register.h"
#include "register/settings.h"

namespace norvik {

/// The options of the mobile export as its dialog would show them after the user has ticked the
/// boxes of the options: those of the settings are ticked already.
MobileExportOptions MobileOptions(const ConverterOptions& options, const Settings& settings);

/// How the target is written.
TargetOptions TargetOptionsOf(const ConverterOptions& options, const Settings& settings);

/// Writes the register into `target` as the options say. Gives false, after a message, when marked
/// entries are wanted and none is marked; nothing is written then. Raises what writing raises.
bool WriteTarget(const ConverterOptions& options, const Settings& settings, RegisterState& state,
                 const OutputTarget& target, Desktop& desktop);

/// Shows what the window shows in a box when writing this target fails; nothing where it passes
/// over the failure.
void ReportWriteError(const ConverterOptions& options, const RuntimeError& error, Desktop& desktop);

}  // namespace norvik
