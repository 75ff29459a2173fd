// Standard input and output as binary streams.
#pragma once

#include "base/inputstream.h"

namespace norvik {

/// Standard input; raises error 57 when reading fails.
InputStream OpenStandardInput();

/// Raises error 61 or 57 when standard output does not take everything.
void WriteToStandardOutput(ByteView bytes);

}  // namespace norvik
