// The telephones' character set (code page 850 for the fifteen characters below) and the PC's.
#pragma once

#include "base/windows1252.h"

namespace norvik {

/// A name or info text of the telephone: the fifteen device characters become their Windows
/// characters, every other byte is read as Windows-1252.
Text DeviceToAnsi(ByteView bytes);

/// The reverse of DeviceToAnsi. Raises error 5 for a character outside Windows-1252.
Bytes AnsiToDevice(TextView text);

}  // namespace norvik
