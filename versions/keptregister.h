// A register in a lossless form of its own. docs/formats/keptversion.md describes the bytes.
#pragma once

#include "base/windows1252.h"
#include "register/register.h"

#include <optional>

namespace norvik {

/// The register's entries, order, count, source, model and warning flag; neither the shown position
/// nor the listed marks, which belong to the window. Raises error 5 for a text that holds a
/// character outside Windows-1252.
Bytes EncodeRegister(const RegisterState& state);

/// The register that EncodeRegister took, at position 1; nothing for any other bytes.
std::optional<RegisterState> DecodeRegister(ByteView bytes);

}  // namespace norvik
