// The program's command line.
#pragma once

#include "base/desktop.h"
#include "register/settings.h"

#include <vector>

namespace norvik {

/// The words of a command line, in lower case: split at blanks and commas, empty words left out. In
/// a word that begins with "/g" a comma directly before a digit is the decimal comma and does not
/// split.
std::vector<Text> CommandLineWords(TextView commandLine);

/// Applies the switches "/l" (start file) and "/g" (price of a charge unit) over the settings, in
/// the order of the words; any other word is reported.
void ReadCommandLine(TextView commandLine, Settings& settings, Desktop& desktop);

}  // namespace norvik
