// The rows of the main window's list.
#pragma once

#include "register/register.h"

#include <optional>
#include <vector>

namespace norvik {

/// A row "#1: Name (Tel) Info" for each used position whose entry has a name; with `onlyListed`
/// only for entries with the listed mark. In the order of positions.
std::vector<Text> ListRows(const RegisterState& state, bool onlyListed);

/// The position that a row stands for: the number behind its first character.
int PositionOfRow(TextView row);

/// The row from the entry's name on; a row of another list as it is.
TextView WithoutPosition(TextView row);

/// The 0-based row of a position, if it has one.
std::optional<int> RowOfPosition(const std::vector<Text>& rows, int position);

}  // namespace norvik
