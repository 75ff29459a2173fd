// Standard input and output as binary streams.
#pragma once

#include "base/windows1252.h"

namespace norvik {

/// All bytes of standard input, at most MaximumFileSize; raises error 7 for more and 57 when
/// reading fails.
Bytes ReadStandardInput();

/// Raises error 61 or 57 when standard output does not take everything.
void WriteToStandardOutput(ByteView bytes);

}  // namespace norvik
