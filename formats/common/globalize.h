// Cleaning telephone numbers and turning them into their international form.
#pragma once

#include "base/repeatedbox.h"
#include "register/settings.h"

namespace norvik {

enum class GlobalizeMode {
    CleanForTelephone = 0,  ///< keeps what a telephone can dial, internal marks included
    Clean = 1,              ///< keeps digits, "p", "w" and a leading "+"
    AddArea = 2,            ///< and puts the area prefix in front of a local number
    International = 3,      ///< and turns the number into "00", country, number
    InternationalPlus = 4,  ///< and writes "+" for the leading "00"
};

/// The number without the blanks at its ends and without the characters that `mode` does not allow.
Text CleanNumber(TextView number, GlobalizeMode mode);

/// The number cleaned and converted as `mode` says, with the prefixes of the settings.
Text Globalized(TextView number, GlobalizeMode mode, const Settings& settings);

/// The same; a result that begins with "+0" is reported and returned all the same.
Text Globalize(TextView number, GlobalizeMode mode, const Settings& settings, Desktop& desktop);
/// The same for one of many numbers of an operation.
Text Globalize(TextView number, GlobalizeMode mode, const Settings& settings, RepeatedBox& reports);

}  // namespace norvik
