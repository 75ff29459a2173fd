// The fonts' files as bytes of the program; the build makes the source of them from paper/fonts/.
#pragma once

#include "base/windows1252.h"

namespace norvik {

ByteView RegularFontFile();
ByteView BoldFontFile();

}  // namespace norvik
