// Standard input and output as binary streams.
#pragma once

#include "base/files.h"

namespace norvik {

/// To be called before anything else: makes the standard streams binary, lets a reader that goes
/// away be an error of writing, and sees to it that no file that is opened later takes the place of
/// a standard stream that was closed.
void PrepareStandardStreams();

/// All bytes of standard input, at most MaximumFileSize; raises error 7 for more and 57 when
/// reading fails.
Bytes ReadStandardInput();

/// Writes a whole file to standard output. Raises error 61 or 57 when it does not take everything.
void CopyToStandardOutput(const FilePath& path);

}  // namespace norvik
