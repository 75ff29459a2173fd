// The register as a phone list on paper: which entries, what of each, and where on which page.
#pragma once

#include "base/numbers.h"
#include "paper/page.h"
#include "register/register.h"

#include <vector>

namespace norvik {

enum class ListedEntries {
    All,
    Marked,
    Filtered,  ///< those that the main window's list shows while its filter is on
};

inline constexpr int MostListColumns = 3;

inline constexpr PaperSize PaperA4 = {595.28, 841.89};
inline constexpr PaperSize PaperA5 = {419.53, 595.28};

/// What the user decides of the list.
struct PhoneListOptions {
    ListedEntries Entries = ListedEntries::All;
    int Columns = 2;  ///< 1 to MostListColumns; narrow paper has fewer
    PaperSize Paper = PaperA4;
    bool operator==(const PhoneListOptions&) const = default;
};

/// An entry as it is printed: every text tidied for reading, the control characters and needless
/// blanks gone.
struct PhoneListRow {
    char16_t Initial = u'#';  ///< A to Z; "#" for a name without a letter in front
    Text Name = {};
    Text Tel = {};
    std::vector<Text> Info = {};  ///< the lines that hold something
    bool operator==(const PhoneListRow&) const = default;
};

/// The entries in the order of the register, those without any text left out. In a register that is
/// sorted by name, umlauts stand behind "Z"; on paper such a name stands behind those with its
/// letter.
std::vector<PhoneListRow> PhoneListRows(const RegisterState& state, ListedEntries which);

/// How many rows there are.
int CountPhoneListRows(const RegisterState& state, ListedEntries which);

/// The pages of the list: at least one. `printed` is the day that stands in their foot, beside the
/// name of the register's file.
PaperDocument LayOutPhoneList(const RegisterState& state, const PhoneListOptions& options,
                              FileTime printed);

}  // namespace norvik
