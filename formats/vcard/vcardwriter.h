// The register as vCards 3.0 in UTF-8, and what reading them again gives.
#pragma once

#include "base/outputfile.h"
#include "register/register.h"
#include "register/settings.h"

#include <optional>
#include <string>
#include <vector>

namespace norvik {

/// The number as telephones anywhere dial it, "+" in front, with the own country and area code of
/// the settings. What the settings have no code for stays as it is, and so do numbers of the own
/// exchange ("i", "*", "#", "A" in them) and short ones or services, which have no area.
Text InternationalNumber(TextView number, const Settings& settings);

/// The card of entries that are one person's: they have the same name in front of the brackets. One
/// entry has its whole name.
std::string VCardOf(const std::vector<RegisterEntry>& entries, const Settings& settings);

/// What a load makes of the card of an entry; nothing without a number that can be dialled.
std::optional<RegisterEntry> ThroughCard(const RegisterEntry& entry, const Settings& settings);

/// Writes the entries at positions 1 to count, those of one person in one card where reading it
/// gives the same entries. Raises what writing raises.
void WriteVCard(const RegisterState& state, const OutputTarget& target, const Settings& settings);

}  // namespace norvik
