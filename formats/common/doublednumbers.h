// Which entries of the register reach the same line.
#pragma once

#include "register/register.h"
#include "register/settings.h"

#include <vector>

namespace norvik {

/// What the numbers of one line have in common: their international form, with the prefixes of the
/// settings. A number that only the own exchange understands (a mark of internal numbers or another
/// key in it) is itself, cleaned, and so is one without an area code where the settings have none.
/// Empty for a number without a digit, which reaches nothing.
Text DialledKey(TextView number, const Settings& settings);

/// Entries whose numbers have one key.
struct DoubledNumber {
    Text Key;
    std::vector<int> Positions;  ///< two at least, ascending
    bool operator==(const DoubledNumber&) const = default;
};

/// All numbers that several entries of positions 1 to count have, in the order of their first
/// positions.
std::vector<DoubledNumber> DoubledNumbers(const RegisterState& state, const Settings& settings);

}  // namespace norvik
