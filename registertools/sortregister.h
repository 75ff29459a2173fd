// Sorting the register by name.
#pragma once

#include "base/desktop.h"
#include "register/register.h"

#include <vector>

namespace norvik {

/// Sorts the used positions by lower-cased name, by character codes; equal names keep their order.
/// `place` names the current position, 1 to 2000; on return it holds the new position of the first
/// entry with the same name and number. Shows its passes in the status line. Stops the program hard
/// ("Sortierfehler") when that entry is not among the used positions, as in a register of none.
void SortRegister(RegisterState& state, int& place, Desktop& desktop);

/// The swaps of each pass that a bubble sort by neighbours makes over `keys`, the last pass with
/// none: pass k swaps as many times as there are keys with at least k greater keys before them.
std::vector<int> SwapsOfPasses(const std::vector<Text>& keys);

}  // namespace norvik
