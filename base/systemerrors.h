// From the system's errors to run-time errors: the one table of them.
#pragma once

#include "base/paths.h"
#include "base/runtimeerror.h"

#include <system_error>

namespace norvik {

/// The number of an error that a call on `path` met: a missing file is 53, a missing folder in its
/// path 76, no permission 70, something of another kind than wanted or in the way 75, an impossible
/// name 64 (one whose links lead round in a circle can never name a file), no memory 7, a full disk
/// 61, anything else 57.
ErrorNumber NumberOfSystemError(const std::error_code& error, const FilePath& path);

/// Raises that error.
[[noreturn]] void RaiseSystemError(const std::error_code& error, const FilePath& path);

/// Raises it unless all went well.
void RaiseIfFailed(const std::error_code& error, const FilePath& path);

/// The error of the C library's last call.
std::error_code LastError();

/// Raises error 64 for an empty path and for one that no system takes.
void EnsurePossibleName(const FilePath& path);

}  // namespace norvik
