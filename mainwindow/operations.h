// How operations are started, and what happens to a run-time error that none of them handles.
#pragma once

#include "base/desktop.h"
#include "base/runtimeerror.h"

#include <functional>

namespace norvik {

/// Shows a run-time error that no operation handled.
void ReportUnhandled(const RuntimeError& error, Desktop& desktop);

/// Runs an operation to its end. A run-time error, or memory running out, ends the operation with a
/// message; the pointer is normal afterwards, however it ended. A HardStop passes through.
void RunOperation(const std::function<void()>& operation, Desktop& desktop);

}  // namespace norvik
