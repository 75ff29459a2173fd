// The charge statement (".geb"). docs/formats/chargestatement.md describes it.
#pragma once

#include "base/desktop.h"
#include "base/outputfile.h"
#include "register/register.h"
#include "register/settings.h"

namespace norvik {

namespace chargestatement {
inline constexpr std::string_view Ending = ".geb";
/// The filter of the save dialog.
inline constexpr TextView DialogFilter = u"norvik-Gebühren|*.geb|Alle Dateien|*.*";
}  // namespace chargestatement

/// Asks, then writes the charges of every entry with a charge counter and their sum into a file.
/// Raises what writing raises.
void mnuGebAuszug(const RegisterState& state, const Settings& settings, Desktop& desktop);

/// The entry's name as the statement shows it: taken as the telephone's characters. Names read from
/// a register file have become Windows characters already, in which hardly any of the telephone's
/// codes stands.
Text ChargeStatementName(const RegisterEntry& entry);

/// Writes the statement's file. `unitPrice` is the price of a charge unit.
void WriteChargeStatement(const RegisterState& state, double unitPrice, const OutputTarget& target);

}  // namespace norvik
