// How file operations of the menu report a run-time error that they do not tell apart.
#pragma once

#include "base/desktop.h"
#include "base/runtimeerror.h"

namespace norvik {

/// "Undef'd Error: ", the menu item's name, ":", the error's number and description.
void ReportUndefinedError(TextView menuItem, const RuntimeError& error, Desktop& desktop);

}  // namespace norvik
