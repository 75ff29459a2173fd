// How a save ends: what the status line says of it, also where no message box tells of a failure.
#pragma once

#include "base/desktop.h"
#include "base/runtimeerror.h"
#include "register/register.h"

#include <functional>
#include <optional>

namespace norvik {

/// Runs `write` and gives the run-time error that ended it early, if any. The pointer is normal
/// afterwards.
std::optional<RuntimeError> TrySave(const std::function<void()>& write, Desktop& desktop);

/// Says in the status line that nothing was saved, and why: the error's description and, in
/// brackets, what in particular is at fault.
void ShowNotSaved(const RuntimeError& error, Desktop& desktop);

/// Says in the status line under which path was saved.
void ShowSaved(const FilePath& path, Desktop& desktop);

/// How a save of the register ends: shows the one or the other. What could not be saved is not
/// saved, whatever was before.
void EndSave(RegisterState& state, const std::optional<RuntimeError>& failure, const FilePath& path,
             Desktop& desktop);

/// Runs `write`. An error goes on as it is, after the status line has said that nothing was saved.
void SaveOrSay(const std::function<void()>& write, Desktop& desktop);

}  // namespace norvik
