// How a save ends: what the status line says of it, also where no message box tells of a failure.
#pragma once

#include "base/desktop.h"
#include "base/outputfile.h"
#include "base/runtimeerror.h"
#include "register/register.h"

#include <functional>
#include <optional>

namespace norvik {

/// What became of a save.
struct SaveResult {
    FilePath Path;
    Text Remark = {};  ///< what the status says behind the path
    std::optional<RuntimeError> Failure = {};
};

/// Tells the desktop of a file that is overwritten where it stands. What the status is to say of it
/// goes into `remark`, which lives as long as the hook.
OverwritingHook TellDesktop(Desktop& desktop, Text& remark);

/// The file at `path` with that hook.
OutputTarget TargetOf(const FilePath& path, Desktop& desktop, Text& remark);

/// Tells the desktop that the file at `path` is to be replaced, runs `write` with it and gives the
/// run-time error that ended it early, if any. The pointer is normal then.
SaveResult TrySave(const FilePath& path, const std::function<void(const OutputTarget&)>& write,
                   Desktop& desktop);

/// Says in the status line that nothing was saved, and why: the error's description and, in
/// brackets, what in particular is at fault.
void ShowNotSaved(const RuntimeError& error, Desktop& desktop);

/// Says in the status line under which path was saved, and the remark behind it.
void ShowSaved(const FilePath& path, Desktop& desktop, TextView remark = {});

/// How a save of the register ends: shows the one or the other. What could not be saved is not
/// saved, whatever was before.
void EndSave(RegisterState& state, const SaveResult& result, Desktop& desktop);

/// Runs `write`. An error goes on as it is, after the status line has said that nothing was saved.
void SaveOrSay(const std::function<void()>& write, Desktop& desktop);

}  // namespace norvik
