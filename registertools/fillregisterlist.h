// The register list: the entries that have chosen properties, a line for each property.
#pragma once

#include "base/desktop.h"
#include "register/register.h"

#include <array>
#include <vector>

namespace norvik {

/// The letters of the boxes chkFi(0) to chkFi(7).
inline constexpr TextView FilterLetters = u"ATMGRVC3";
/// Two letters that no box sends: any call filter, and none.
inline constexpr char16_t AnyFilterLetter = u'F';
inline constexpr char16_t NoFilterLetter = u'N';

/// What AnzTreffer shows before the first fill.
inline constexpr TextView NoHitCount = u"-";

/// The list window's fields, named as it names them.
struct RegisterListFields {
    bool Open = false;  ///< the window is on the screen
    std::array<bool, FilterLetters.size()> chkFi{};
    std::vector<Text> ListResult;  ///< by lower-cased text, by character codes
    std::vector<int> ListPlaces;   ///< the table index of each line's entry
    Text AnzTreffer = Text(NoHitCount);
};

/// Fills the list with a line for each entry, of all entries in their order,
/// and each letter of `filter` whose condition the entry meets; marks the entries with a line as
/// listed and counts the lines. `toneNames` are the items of the tone list; `unitPrice` is the
/// price of a charge unit.
void FillRegisterList(TextView filter, RegisterState& state, const std::vector<Text>& toneNames,
                      double unitPrice, RegisterListFields& fields);

/// The position at which the entry of a line stands now, whatever happened since the fill; that of
/// another one with the same name and number where its place holds something else, 0 where there is
/// none.
int PositionOfLine(const RegisterListFields& fields, int line, const RegisterState& state);

}  // namespace norvik
