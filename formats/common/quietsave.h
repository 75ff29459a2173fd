// The saves pass over a failure without a message box.
#pragma once

#include "base/desktop.h"
#include "base/runtimeerror.h"

#include <functional>
#include <optional>

namespace norvik {

/// Runs `write` and gives the run-time error that ended it early, if any. The pointer is normal
/// afterwards.
std::optional<RuntimeError> TrySave(const std::function<void()>& write, Desktop& desktop);

/// Says in the status line that a save failed; does nothing without an error.
void ReportNotSaved(const std::optional<RuntimeError>& error, Desktop& desktop);

}  // namespace norvik
