// What the program prints beside its target: lines of UTF-8 that do a terminal no harm.
#pragma once

#include "base/text.h"

#include <cstdio>
#include <system_error>

namespace norvik {

inline constexpr TextView ConverterName = u"norvik-konverter";

/// Prints each line of a text, a CR LF being the only line end; one at the text's end opens no
/// further line. Gives the system's error when the output has not taken everything.
std::error_code PrintLines(std::FILE* output, TextView text);

/// Prints one line of the program's own to standard error, the program's name in front.
void Say(TextView message);

}  // namespace norvik
