// The shown entry: from the register into the fields and back.
#pragma once

#include "mainwindow/fields.h"

namespace norvik {

/// Shows the entry at position AnzNr in the fields. `unitPrice` is the price of a charge unit.
/// Raises error 9 for a position outside 1 to 2000, before any field is changed.
void ShowEntry(const RegisterState& state, double unitPrice, MainWindowFields& fields);

/// Writes the fields into the entry at position AnzNr. A charge counter is kept, or cleared when
/// the shown amount is 0. RegisterSaved stays.
void StoreEntry(const MainWindowFields& fields, RegisterState& state);

}  // namespace norvik
