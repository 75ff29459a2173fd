// From a telephone number as people write it to what the telephone dials.
#pragma once

#include "base/text.h"
#include "register/settings.h"

namespace norvik {

/// The own country code in digits, "49"; empty where the settings have none.
Text OwnCountryCode(const Settings& settings);

struct DialledNumber {
    Text Number;           ///< digits, "*", "#", pauses ("p", "w"); empty where there is no digit
    bool LeftOut = false;  ///< an extension or words of the number were left out
    bool LettersAsDigits = false;     ///< letters became the digits of their keys
    bool PlusWithoutCountry = false;  ///< "+" became "00", since the own country is not known
};

/// What the telephone dials for `number`, which may be a "tel:" address. "+" and the own country
/// code become "0", another "+" "00"; the "(0)" of an international number goes, and so do blanks
/// and signs between digits. Codes ("*", "#", a leading "i") stay, pauses are "p" and "w".
DialledNumber Dialled(TextView number, TextView ownCountry);

/// The number as people read it: without "tel:" and what stands behind it as ";name=value",
/// unless it would be dialled otherwise then.
Text ShownNumber(TextView number);

}  // namespace norvik
