// The charge statement (".geb"). docs/formats/chargestatement.md describes it.
#pragma once

#include "base/desktop.h"
#include "register/register.h"

namespace norvik {

/// Asks, then writes the charges of every entry with a charge counter and their sum into a file.
/// `unitPrice` is the price of a charge unit. Raises what writing raises.
void mnuGebAuszug(const RegisterState& state, double unitPrice, Desktop& desktop);

/// The entry's name as the statement shows it: taken as the telephone's characters. Names read from
/// a register file have become Windows characters already, in which hardly any of the telephone's
/// codes stands.
Text ChargeStatementName(const RegisterEntry& entry);

/// Writes the statement's file.
void WriteChargeStatement(const RegisterState& state, double unitPrice, const FilePath& path);

}  // namespace norvik
