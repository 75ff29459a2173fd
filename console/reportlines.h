// What the converter reports of a register that was loaded: a line for each finding, the source's
// name in front.
#pragma once

#include "console/options.h"
#include "register/register.h"
#include "register/settings.h"

namespace norvik {

/// One line for each loss in the target format, or in every format with its name in front.
Text LossLines(const ConverterOptions& options, const Settings& settings,
               const RegisterState& state);

/// One line for each number of several entries.
Text DoubleLines(const ConverterOptions& options, const Settings& settings,
                 const RegisterState& state);

}  // namespace norvik
